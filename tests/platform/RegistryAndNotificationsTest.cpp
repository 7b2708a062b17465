#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

std::vector<std::string>& ends() {
  static std::vector<std::string> all;
  return all;
}

struct Older {
  virtual ~Older() { ends().push_back("older"); }
  virtual int answer() { return 1; }
};
struct Younger {
  ~Younger() { ends().push_back(Registry::shared<Older>().answer() == 1 ? "younger" : "?"); }
};
struct Replacement final : Older {
  int answer() override { return 2; }
};

TEST(Registry, SharedInstancesLiveUntilTheResetTheYoungestGoingFirst) {
  ends().clear();
  {
    TestPlatform world;
    Older& first = Registry::shared<Older>();
    EXPECT_EQ(&Registry::shared<Older>(), &first);
    Registry::shared<Younger>();
    world.restart();
    EXPECT_EQ(ends(), (std::vector<std::string>{"younger", "older"}))
        << "an end may still reach an older instance";
    EXPECT_EQ(Registry::platform().runLoop, &world.runLoop);
  }
  EXPECT_EQ(Registry::platform().runLoop, nullptr);
}

TEST(Registry, ADerivedInstanceCanTakeThePlace) {
  TestPlatform world;
  Registry::install<Older>(std::make_unique<Replacement>());
  EXPECT_EQ(Registry::shared<Older>().answer(), 2);
}

TEST(Registry, FactsOfAStepAreMadeOnlyForATrace) {
  TestPlatform world;
  int made = 0;
  const auto facts = [&made] { return Value(++made); };
  traceStep("one", facts);
  ASSERT_EQ(world.trace.steps.size(), 1U);
  EXPECT_EQ(world.trace.steps[0].step, "one");
  world.platform().trace = nullptr;
  world.reinstall();
  traceStep("two", facts);
  EXPECT_EQ(made, 1);
}

class Notifications : public testing::Test {
 protected:
  NotificationCenter::Handler noting(std::string who) {
    return [this, who = std::move(who)](const NotificationCenter::Notification&) { log_.push_back(who); };
  }

  std::optional<NotificationCenter> center_{std::in_place};
  std::vector<std::string> log_;
};

TEST_F(Notifications, ReachTheObserversOfTheNameAndTheObjectInOrder) {
  int object = 0;
  int other = 0;
  const auto any = center_->observe("name", noting("any"));
  const auto one = center_->observe("name", noting("one"), &object);
  const auto else_ = center_->observe("else", noting("else"));
  center_->post("name", &object);
  center_->post("name", &other);
  center_->post("name");
  EXPECT_EQ(log_, (std::vector<std::string>{"any", "one", "any", "any"}));
}

TEST_F(Notifications, CarryTheirNameObjectAndInformation) {
  int object = 0;
  NotificationCenter::Notification got;
  const auto held = center_->observe("name", [&](const NotificationCenter::Notification& each) { got = each; });
  center_->post("name", &object, Value::Dictionary{{"k", 1}});
  EXPECT_EQ(got.name, "name");
  EXPECT_EQ(got.object, &object);
  EXPECT_EQ(got.userInfo["k"], 1);
}

TEST_F(Notifications, ObserversMayComeAndGoDuringAPost) {
  NotificationCenter::Subscription second;
  NotificationCenter::Subscription late;
  NotificationCenter::Subscription first = center_->observe("name", [&](const NotificationCenter::Notification&) {
    log_.push_back("first");
    second.end();
    late = center_->observe("name", noting("late"));
    first.end();
  });
  second = center_->observe("name", noting("second"));
  center_->post("name");
  EXPECT_EQ(log_, (std::vector<std::string>{"first"}));
  center_->post("name");
  EXPECT_EQ(log_, (std::vector<std::string>{"first", "late"}));
}

TEST_F(Notifications, ASubscriptionEndsItsOldOneWhenItTakesAnotherAndMayOutliveTheCenter) {
  NotificationCenter::Subscription held = center_->observe("name", noting("old"));
  held = center_->observe("name", noting("new"));
  center_->post("name");
  EXPECT_EQ(log_, (std::vector<std::string>{"new"}));
  center_.reset();
  held.end();
}

}  // namespace
}  // namespace vorn
