#include <gtest/gtest.h>

#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnECMutableCalendarEvent.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

// A proxy of no class in particular, with the protected reads in the open.
class PlainProxy : public vnDelegateBase {
 public:
  using vnDelegateBase::flag;
  using vnDelegateBase::number;
  using vnDelegateBase::text;
  using vnDelegateBase::vnDelegateBase;
};

class DelegateBase : public testing::Test {
 protected:
  TestPlatform world;
  FakeHost host{world.classRuntime};
};

TEST_F(DelegateBase, PassesUpToTwoArgumentsAndTheResultOn) {
  const HostObject object = host.object("Thing", {{"zero", 0}, {"one:", "first"}, {"two:and:", "both"}});
  const PlainProxy proxy("Thing", object);
  EXPECT_EQ(proxy.getOLItemID("zero"), Value(0));
  EXPECT_EQ(proxy.getOLItemID("one:", "a"), Value("first"));
  EXPECT_EQ(proxy.getOLItemID("two:and:", "a", Value()), Value("both"));
  EXPECT_EQ(host.calls(object, "one:"), (std::vector<Arguments>{{Value("a")}}));
  ASSERT_EQ(host.calls(object, "two:and:").size(), 1u);
  EXPECT_TRUE(host.calls(object, "two:and:")[0][1].isAbsent());
}

TEST_F(DelegateBase, AnswersNeutrallyWhateverIsMissing) {
  const HostObject right = host.object("Thing", {{"name", "x"}});
  const HostObject wrong = host.object("Other", {{"name", "y"}});
  const HostObject dead = host.object("Thing", {{"name", "z"}});
  const PlainProxy onDead("Thing", dead);
  world.classRuntime.destroy(dead);
  const HostObject noText = host.object("Text", {{"null", nullptr}, {"count", 3}});
  for (const char* selector : {"null", "count"})
    EXPECT_EQ(PlainProxy("Text", noText).text(selector), std::nullopt);
  struct {
    const char* why;
    PlainProxy proxy;
    const char* selector;
  } const cases[] = {
      {"a missing selector", PlainProxy("Thing", right), "colour"},
      {"an empty selector", PlainProxy("Thing", right), ""},
      {"an object of another class", PlainProxy("Thing", wrong), "name"},
      {"a class that the host lacks", PlainProxy("Nothing", right), "name"},
      {"no class name", PlainProxy("", right), "name"},
      {"no object", PlainProxy("Thing", HostObject()), "name"},
      {"an object that the host has dropped", onDead, "name"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(c.proxy.getOLItemID(c.selector).isAbsent()) << c.why;
    EXPECT_EQ(c.proxy.text(c.selector), std::nullopt) << c.why;
    EXPECT_FALSE(c.proxy.flag(c.selector)) << c.why;
    EXPECT_EQ(c.proxy.number(c.selector), 0) << c.why;
  }
}

TEST_F(DelegateBase, TakesOnlyAnObjectOfItsClassOrAnHeir) {
  world.classRuntime.defineClass("Thing");
  world.classRuntime.defineClass("SpecialThing", "Thing");
  EXPECT_TRUE(PlainProxy("Thing", world.classRuntime.create("SpecialThing")).isValidConnection());
  EXPECT_FALSE(PlainProxy("SpecialThing", world.classRuntime.create("Thing")).isValidConnection());

  PlainProxy proxy("Thing", world.classRuntime.create("SpecialThing"));
  proxy.setDelegate(host.object("Other"));
  EXPECT_FALSE(proxy.isValidConnection());
}

TEST_F(DelegateBase, ReadsABooleanFromTheLowByteOfARawResult) {
  const std::pair<Value, bool> cases[] = {{true, true}, {1, true},       {0, false},       {255, true},
                                          {256, false}, {257, true},     {nullptr, false}, {"YES", true},
                                          {"0", false}, {Value(), false}};
  for (const auto& [raw, expected] : cases) {
    const HostObject object = host.object("Thing", {{"isSo", raw}});
    EXPECT_EQ(PlainProxy("Thing", object).flag("isSo"), expected) << raw.stringValue();
  }
}

TEST_F(DelegateBase, TheRecordToBeStoredKeepsTheFormatOfItsBody) {
  const HostObject record =
      host.object("ECMutableCalendarEvent", {{"setIsBodyHTML:", Value()}, {"setBody:", Value()}});
  const vnECMutableCalendarEvent proxy(record);
  proxy.setIsBodyHTML(true);
  proxy.setBody("text");
  EXPECT_TRUE(host.calls(record, "setIsBodyHTML:").empty());
  EXPECT_EQ(host.get(record, "body"), Value("text"));
}

}  // namespace
}  // namespace vorn
