// What every service of distributed notifications keeps, whatever carries it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/ports/PortsWorld.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using Subscription = DistributedNotifications::Subscription;

struct Made {
  const char* name;
  std::unique_ptr<NotificationsWorld> (*make)();
};

class NotificationsContract : public testing::TestWithParam<Made> {
 protected:
  void SetUp() override {
    if (!world) GTEST_SKIP() << "nothing here carries notifications";
  }
  // Everything that was posted before has arrived when it is over.
  void settle() {
    bool arrived = false;
    const std::string last = world->own("end of the test");
    const auto end = world->notifications().observe(last, [&](const Value&) { arrived = true; });
    world->postElsewhere(last, {});
    EXPECT_TRUE(world->runUntil([&] { return arrived; }));
  }

  std::unique_ptr<NotificationsWorld> world = GetParam().make();
  const std::string name = world ? world->own("name") : "";
};

TEST_P(NotificationsContract, EachIsHeardUnderExactlyItsNameInTheOrderOfThePosts) {
  std::vector<std::string> names = {"VornOutlookPlugin.GetClientVersion",
                                    "VornOutlookPlugin",
                                    "with 'quotes', commas and \\",
                                    "',type='error",
                                    "Größe 会议 \U0001F600",
                                    "*",
                                    ""};
  for (std::string& name : names) name = world->own(name);
  std::vector<std::string> heard;
  std::vector<std::unique_ptr<Subscription>> subscriptions;
  for (const std::string& each : names) {
    subscriptions.push_back(
        world->notifications().observe(each, [&heard, &each](const Value&) { heard.push_back(each); }));
  }
  for (const std::string& each : names) world->postElsewhere(each, {});
  for (const std::string_view unknown : {std::string_view("caf\xe9"), std::string_view("\0", 1)}) {
    world->postElsewhere(unknown, {});
    world->notifications().post(unknown, {});
  }
  settle();
  EXPECT_EQ(heard, names);
}

TEST_P(NotificationsContract, TheTextsOfAPostArriveAndAPostWithoutAnyHasNone) {
  std::vector<Value> heard;
  const auto subscription =
      world->notifications().observe(name, [&](const Value& userInfo) { heard.push_back(userInfo); });
  const Value envelope = Value::Dictionary{{"actionId", "3"}, {"content", "4;42;\"a\"\n{}"}};
  const Value foreign = Value::Dictionary{{"", ""}, {"Größe", "会议 \U0001F600"}};
  for (const Value& posted : {envelope, Value(), foreign}) world->postElsewhere(name, posted);
  settle();
  EXPECT_THAT(heard, ElementsAre(envelope, Value(), foreign));
}

TEST_P(NotificationsContract, ASubscriptionThatHasEndedHearsNothingMore) {
  DistributedNotifications& notifications = world->notifications();
  std::vector<std::string> heard;
  const auto kept = notifications.observe(name, [&](const Value&) { heard.emplace_back("kept"); });
  auto ended = notifications.observe(name, [&](const Value&) { heard.emplace_back("ended"); });
  std::unique_ptr<Subscription> once = notifications.observe(name, [&](const Value&) {
    heard.emplace_back("once");
    once.reset();
  });
  world->postElsewhere(name, {});
  settle();
  // Where observers hear from the loop alone, this is on its way already when the subscription ends.
  if (world->mayDeliverAtOnce()) ended.reset();
  world->postElsewhere(name, {});
  ended.reset();
  settle();
  EXPECT_THAT(heard, ElementsAre("kept", "ended", "once", "kept"));
}

const Made kServices[] = {
    {"embedded", makeEmbeddedNotifications},
#ifdef VORN_OBJC
    {"apple", makeAppleNotifications},
#endif
};
INSTANTIATE_TEST_SUITE_P(On, NotificationsContract, testing::ValuesIn(kServices),
                         [](const auto& made) { return std::string(made.param.name); });

}  // namespace
}  // namespace vorn
