#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "RunningClient.h"
#include "platform/embedded/AsioRunLoop.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "tests/support/PrivateBus.h"

namespace vornlab {
namespace {

using test::Caller;
using test::RunningClient;
using testing::HasSubstr;
using vorn::Value;

Value asDictionary(const Envelope& envelope) {
  return Value::Dictionary{{"actionId", std::to_string(envelope.action)}, {"content", envelope.content}};
}

// The program and the product's own end of the bus, in two processes.
class NotificationsTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    if (!vorn::PrivateBus::isInstalled()) GTEST_SKIP() << "dbus-daemon is not installed";
    bus = std::make_unique<vorn::PrivateBus>();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus->address().c_str(), 1);
    plugin = vorn::EmbeddedDistributedNotifications::connect(loop);
    ASSERT_TRUE(plugin);
    for (const char* name : {kReply, kVersion}) {
      subscriptions.push_back(plugin->observe(name, [this, name](const Value& userInfo) {
        heard.emplace_back(name, Envelope{static_cast<std::uint32_t>(userInfo["actionId"].integerValue()),
                                          userInfo["content"].text()});
      }));
    }
  }
  void TearDown() override { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

  std::vector<std::string> arguments(std::vector<std::string> more) const {
    std::vector<std::string> all = {"--home",    home.path(),      "--db",      home / "meetings.db",
                                    "--journal", home / "journal", "--version", "5.4.60000"};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  void request(const Envelope& envelope) {
    plugin->post("VornOutlookPluginToVornVideoClient", asDictionary(envelope));
  }
  bool waitForReplies(std::size_t count) {
    return loop.runUntil([&] { return heard.size() >= count; }, 120);
  }

  static constexpr auto kReply = "VornVideoClientToVornOutlookPlugin";
  static constexpr auto kVersion = "vOutlookPluginAgentToVOutlookPlugin";

  test::TemporaryFolder home;
  vorn::AsioRunLoop loop;
  std::unique_ptr<vorn::PrivateBus> bus;
  std::unique_ptr<vorn::EmbeddedDistributedNotifications> plugin;
  std::vector<std::unique_ptr<vorn::DistributedNotifications::Subscription>> subscriptions;
  std::vector<std::pair<std::string, Envelope>> heard;
};

TEST_F(NotificationsTest, areSpoiltAsTheFaultsFileSays) {
  const std::string faults = home.write("faults",
                                        "reply 1 to action 11: delay 0.5 s\n"
                                        "reply 2 to action 11: split at 7, error 3113, twice\n"
                                        "reply 3 to action 11: silent\n"
                                        "reply 4 to action 11: close\n"
                                        "reply 5 to action 11: grow 4000000\n"
                                        "reply 1 to action 9: die\n");
  RunningClient client(arguments({"--transport", "notifications", "--faults", faults}));
  ASSERT_EQ(client.line(), "vornclient 5.4.60000 observes notifications");
  EXPECT_FALSE(std::filesystem::exists(home / "s.vop"));
  request({11, "11"});
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  for (int i = 0; i < 4; ++i) request({11, "11"});
  ASSERT_TRUE(waitForReplies(5));
  using Heard = std::pair<std::string, Envelope>;
  EXPECT_EQ(heard[0], Heard(kVersion, {200, "5.4.60000"})) << "the agent does not wait for the client";
  EXPECT_EQ(heard[1], Heard(kReply, {11, R"({"bosses":[]})"}));
  EXPECT_EQ(heard[2].second, (Envelope{11, "0;Error 3113"}));
  EXPECT_EQ(heard[3].second, (Envelope{11, "0;Error 3113"}));
  EXPECT_EQ(heard[4].second.content.size(), 4'000'000U);
  request({9, "9"});
  EXPECT_EQ(client.wait(), -SIGKILL);
}

TEST_F(NotificationsTest, goBesideTheSocketWhichGetsTheVersionToo) {
  RunningClient client(arguments({"--transport", "both"}));
  ASSERT_EQ(client.line(),
            "vornclient 5.4.60000 listens on " + (home / "s.vop").string() + " and observes notifications");
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  ASSERT_TRUE(waitForReplies(1));
  Caller caller(home / "s.vop");
  EXPECT_EQ(caller.receive(), (Envelope{200, "5.4.60000"})) << "asked before it was connected";
  EXPECT_EQ(caller.ask({11, "11"}), (Envelope{11, R"({"bosses":[]})"}));
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  EXPECT_EQ(caller.receive(), (Envelope{200, "5.4.60000"}));
  request({11, "11"});
  ASSERT_TRUE(waitForReplies(3));

  bus->kill();
  EXPECT_EQ(caller.ask({11, "11"}), (Envelope{11, R"({"bosses":[]})"})) << "the bus has gone, the socket has not";
  client.stop(SIGTERM);
  EXPECT_EQ(client.wait(), 0);
}

TEST_F(NotificationsTest, needABus) {
  RunningClient agent({"--client", VORNCLIENT_PROGRAM}, VORNAGENT_PROGRAM);
  ASSERT_TRUE(agent.line());
  bus->kill();
  EXPECT_EQ(agent.wait(), 1);
  EXPECT_THAT(agent.errors(), HasSubstr("the session bus has gone: "));
  RunningClient client(arguments({"--transport", "notifications"}));
  EXPECT_EQ(client.wait(), 1);
  EXPECT_THAT(client.errors(), HasSubstr("no session bus can be joined: "));
}

}  // namespace
}  // namespace vornlab
