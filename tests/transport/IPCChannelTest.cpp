#include "channel/transport/vnIPCChannel.h"

#include <gtest/gtest.h>

#include "channel/transport/vSocketClientImpl.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/Registry.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

class RecordingClient final : public vSocketClientImpl {
 public:
  void connect() override { ++connects; }
  void disconnect() override { ++disconnects; }
  bool send(const OptionalText& message) override {
    sent.push_back(message.value_or("absent"));
    return true;
  }
  int connects = 0;
  int disconnects = 0;
  std::vector<std::string> sent;
};

TEST(IPCChannel, TakesTheTransportOfTheSystemsVersion) {
  const std::pair<Surroundings::Version, bool> cases[] = {
      {{10, 14, 6}, true}, {{10, 15, 0}, false}, {{10, 9, 9}, true}, {{11, 0, 0}, false}, {{9, 20, 0}, true}};
  for (const auto& [version, usesNotifications] : cases) {
    TestPlatform world;
    world.surroundings.version = version;
    auto& client =
        static_cast<RecordingClient&>(Registry::install<vSocketClientImpl>(std::make_unique<RecordingClient>()));
    vnIPCChannel::initIPCChannel();
    EXPECT_TRUE(vnIPCChannel::sendIPCMessageToVornClient(3, "4;new"));
    vnIPCChannel::sendIPCMessageWithoutData(kIPCPluginLaunchClient);
    vnIPCChannel::releaseIPCChannel();

    const auto& posted = world.distributedNotifications.posted;
    ASSERT_EQ(posted.size(), usesNotifications ? 2u : 1u);
    EXPECT_EQ(posted.back().name, kIPCPluginLaunchClient) << "the agent is reached the same way by both";
    EXPECT_TRUE(posted.back().userInfo.isAbsent());
    if (usesNotifications) {
      EXPECT_EQ(posted[0].name, kIPCNotifyOutlookPluginToVornClient);
      EXPECT_EQ(posted[0].userInfo,
                Value::dictionaryFromPairs({{VN_IPC_ACTION_ID, "3"}, {VN_IPC_CONTENT, "4;new"}}));
    }
    const int expected = usesNotifications ? 0 : 1;
    EXPECT_EQ(client.connects, expected);
    EXPECT_EQ(client.disconnects, expected);
    EXPECT_EQ(client.sent.size(), static_cast<std::size_t>(expected));
  }
}

TEST(IPCChannel, DoesNothingOnTheNotificationChannelWithoutThePort) {
  TestPlatform world;
  world.surroundings.version = {10, 14, 6};
  world.platform().distributedNotifications = nullptr;
  world.reinstall();
  EXPECT_FALSE(vnIPCChannel::sendIPCMessageToVornClient(6, "6"));
  vnIPCChannel::sendIPCMessageWithoutData(kIPCPluginGetClientVersion);
}

TEST(IPCChannel, ReadsActionNumbersAsANumberFormatterDoes) {
  const std::pair<const char*, int> cases[] = {{"200", 200},
                                               {"-3", -3},
                                               {"", 0},
                                               {"many", 0},
                                               {"4x", 0},
                                               {"1.9", 1},
                                               {"007", 7},
                                               {" 4", 0},
                                               {"99999999999", 2147483647},
                                               {"999999999999999999999999", 0}};
  for (const auto& [text, action] : cases) {
    EXPECT_EQ(vnIPCChannel::actionOfEnvelope(Value::dictionaryFromPairs({{VN_IPC_ACTION_ID, text}})), action)
        << text;
  }
}

}  // namespace
}  // namespace vorn
