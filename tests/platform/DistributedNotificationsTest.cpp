#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/RealTimeRunLoop.h"
#include "tests/support/PrivateBus.h"

namespace vorn {
namespace {

using testing::ElementsAre;

class DistributedNotificationsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!PrivateBus::isInstalled()) GTEST_SKIP() << "dbus-daemon is not installed";
    bus = std::make_unique<PrivateBus>();
    ASSERT_NE(bus->address(), "");
    ours = EmbeddedDistributedNotifications::connect(loop, bus->address());
    theirs = EmbeddedDistributedNotifications::connect(loop, bus->address());
    ASSERT_TRUE(ours && theirs);
  }

  // Everything that was posted by one side before this call has arrived when it is over.
  void settle(EmbeddedDistributedNotifications& sender) {
    int arrived = 0;
    const auto end = [&](const Value&) { ++arrived; };
    const auto here = ours->observe("end of the test", end);
    const auto there = theirs->observe("end of the test", end);
    sender.post("end of the test", {});
    EXPECT_TRUE(loop.runUntil([&] { return arrived == 2; }, kPatience));
  }

  static constexpr double kPatience = 120;

  RealTimeRunLoop loop;
  std::unique_ptr<PrivateBus> bus;
  // Two connections are two processes to the bus.
  std::unique_ptr<EmbeddedDistributedNotifications> ours;
  std::unique_ptr<EmbeddedDistributedNotifications> theirs;
};

TEST_F(DistributedNotificationsTest, CarryWhatTextCanCarryToOthersAndToThePosterLater) {
  const std::string noUtf8 = "caf\xe9";
  const Value mixed =
      Value::Dictionary{{"number", 7},     {"null", nullptr}, {"list", Value::array()},        {"text", "7"},
                        {"bytes", noUtf8}, {noUtf8, "a"},     {"zero", std::string("a\0b", 3)}};
  const std::pair<Value, Value> cases[] = {{mixed, Value::Dictionary{{"text", "7"}}},
                                           {Value::dictionary(), Value::dictionary()},
                                           {"no dictionary", {}}};
  for (auto* sender : {ours.get(), theirs.get()}) {
    for (const auto& [posted, expected] : cases) {
      std::vector<Value> here;
      std::vector<Value> there;
      const auto first = ours->observe("name", [&](const Value& userInfo) { here.push_back(userInfo); });
      const auto second = theirs->observe("name", [&](const Value& userInfo) { there.push_back(userInfo); });
      sender->post("name", posted);
      EXPECT_TRUE(here.empty()) << "delivered inside the post";
      settle(*sender);
      EXPECT_EQ(here, std::vector{expected});
      EXPECT_EQ(there, std::vector{expected});
    }
  }
}

TEST_F(DistributedNotificationsTest, MayBeDestroyedByAHandlerAndBeforeTheirSubscriptions) {
  std::vector<std::string> heard;
  const auto first = theirs->observe("name", [&](const Value&) {
    heard.emplace_back("first");
    theirs.reset();
  });
  const auto second = theirs->observe("name", [&](const Value&) { heard.emplace_back("second"); });
  bool arrived = false;
  const auto last = ours->observe("last", [&](const Value&) { arrived = true; });
  for (int i = 0; i < 100; ++i) ours->post("name", {});
  EXPECT_TRUE(loop.runUntil([&] { return !theirs; }, kPatience));
  ours->post("last", {});
  EXPECT_TRUE(loop.runUntil([&] { return arrived; }, kPatience));
  EXPECT_THAT(heard, ElementsAre("first"));
}

// The tool is another program's idea of the wire form.
TEST_F(DistributedNotificationsTest, ComeFromOtherProgramsAndSurviveMalformedOnes) {
  const auto send = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--type=signal", "/us/vorn/DistributedNotifications",
                                         "us.vorn.DistributedNotifications.Posted"});
    return bus->run("dbus-send", arguments);
  };
  std::vector<Value> heard;
  const auto subscription = ours->observe("name", [&](const Value& userInfo) { heard.push_back(userInfo); });
  ASSERT_EQ(send({}), 0);
  ASSERT_EQ(send({"string:name"}), 0);
  ASSERT_EQ(send({"string:name", "boolean:true", "dict:string:int32:a,1"}), 0);
  ASSERT_EQ(send({"string:name", "boolean:true", "dict:string:string:actionId,200,content,5.12.3"}), 0);
  ASSERT_EQ(send({"string:name", "boolean:false", "dict:string:string:a,b"}), 0);
  EXPECT_TRUE(loop.runUntil([&] { return heard.size() == 2; }, kPatience));
  EXPECT_THAT(heard, ElementsAre(Value(Value::Dictionary{{"actionId", "200"}, {"content", "5.12.3"}}), Value()));
}

TEST_F(DistributedNotificationsTest, GoOutWholeWhenTheBusTakesOnlyAPartAtOnce) {
  const Value posted = Value::Dictionary{{"content", std::string(28 << 20, 'x')}};
  bool arrivedWhole = false;
  const auto subscription =
      theirs->observe("name", [&](const Value& userInfo) { arrivedWhole = userInfo == posted; });
  ours->post("name", posted);
  EXPECT_TRUE(loop.runUntil([&] { return arrivedWhole; }, kPatience));
}

TEST_F(DistributedNotificationsTest, TakeNothingTooLongForABusAndGoOn) {
  std::vector<Value> heard;
  const auto subscription = theirs->observe("name", [&](const Value& userInfo) { heard.push_back(userInfo); });
  ours->post("name", Value::Dictionary{{"content", std::string(32 << 20, 'x')}});
  ours->post("name", {});
  settle(*ours);
  EXPECT_THAT(heard, ElementsAre(Value()));
}

TEST_F(DistributedNotificationsTest, FallSilentWhenTheBusDies) {
  int heard = 0;
  const auto subscription = theirs->observe("name", [&](const Value&) { ++heard; });
  ours->post("name", Value::Dictionary{{"content", std::string(8 << 20, 'x')}});
  bus->kill();
  for (int i = 0; i < 10; ++i) ours->post("name", {});
  const auto later = ours->observe("name", [&](const Value&) { ++heard; });
  loop.runFor(0.1);
  EXPECT_LE(heard, 1);
}

TEST(DistributedNotificationsWithoutABus, AreNotThere) {
  RealTimeRunLoop loop;
  for (const char* address : {"unix:path=/nonexistent/bus", "nonsense", "unix:"}) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address, 1);
    EXPECT_EQ(EmbeddedDistributedNotifications::connect(loop), nullptr) << address;
  }
  ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

}  // namespace
}  // namespace vorn
