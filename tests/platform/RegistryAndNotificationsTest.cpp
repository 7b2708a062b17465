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
};
struct Younger {
  ~Younger() { ends().push_back(&Registry::shared<Older>() == older ? "younger" : "?"); }
  const Older* older = &Registry::shared<Older>();
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
    return [this, who = std::move(who)](const NotificationCenter::Notification&) { m_log.push_back(who); };
  }

  std::optional<NotificationCenter> m_center{std::in_place};
  std::vector<std::string> m_log;
};

TEST_F(Notifications, ReachTheObserversOfTheNameAndTheObjectInOrderWithWhatTheyCarry) {
  int object = 0;
  int other = 0;
  NotificationCenter::Notification got;
  const auto any = m_center->observe("name", noting("any"));
  const auto one = m_center->observe("name", noting("one"), &object);
  const auto else_ = m_center->observe("else", noting("else"));
  const auto held = m_center->observe("name", [&](const auto& each) { got = each; });
  m_center->post("name");
  m_center->post("name", &other);
  m_center->post("name", &object, Value::Dictionary{{"k", 1}});
  EXPECT_EQ(m_log, (std::vector<std::string>{"any", "any", "any", "one"}));
  EXPECT_EQ(got.name, "name");
  EXPECT_EQ(got.object, &object);
  EXPECT_EQ(got.userInfo["k"], 1);
}

TEST_F(Notifications, ObserversMayComeAndGoDuringAPost) {
  NotificationCenter::Subscription second;
  NotificationCenter::Subscription late;
  NotificationCenter::Subscription first = m_center->observe("name", [&](const NotificationCenter::Notification&) {
    m_log.push_back("first");
    second.end();
    late = m_center->observe("name", noting("late"));
    first.end();
  });
  second = m_center->observe("name", noting("second"));
  m_center->post("name");
  EXPECT_EQ(m_log, (std::vector<std::string>{"first"}));
  m_center->post("name");
  EXPECT_EQ(m_log, (std::vector<std::string>{"first", "late"}));
}

TEST_F(Notifications, ASubscriptionEndsItsOldOneWhenItTakesAnotherAndMayOutliveTheCenter) {
  NotificationCenter::Subscription held = m_center->observe("name", noting("old"));
  held = m_center->observe("name", noting("new"));
  m_center->post("name");
  EXPECT_EQ(m_log, (std::vector<std::string>{"new"}));
  m_center.reset();
  held.end();
}

}  // namespace
}  // namespace vorn
