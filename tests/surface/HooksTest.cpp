#include "host/proxies/vnERageMainWindowController.h"
#include "host/surface/HostDescription.h"
#include "tests/surface/SurfaceWorld.h"

namespace vorn {
namespace {

using Hooks = SurfaceWorld;

TEST_F(Hooks, ASaveOfAnAppointmentWithoutABarIsTheHostsOwn) {
  const std::pair<const char*, Arguments> saves[] = {
      {"save:", {"sender"}},           {"save", {}},
      {"saveAndClose:", {"sender"}},   {"saveAndCloseWindow:", {true}},
      {"sendMeetingPostValidate", {}}, {"saveAndCloseWindow:andReturnError:", {true, Value()}}};
  for (const auto& [selector, arguments] : saves) host.set(editor, selector, "the host's result");
  HookInstaller::sharedInstance().load();
  for (const auto& [selector, arguments] : saves) {
    EXPECT_EQ(world.classRuntime.send(editor, selector, arguments), Value("the host's result")) << selector;
    EXPECT_EQ(host.calls(editor, selector), (std::vector<Arguments>{arguments})) << selector;
  }
}

TEST_F(Hooks, TheHostNeverSeesTheBodyAmongTheChangesForAttendees) {
  host.set(editor, "checkMeetingChangesForAttendees:", true);
  host.set(editor, "uncommittedChanges",
           Value(Value::Dictionary{{"content.body", "secret"}, {"content.summary", "New \"plan\""}}));
  HookInstaller::sharedInstance().load();
  EXPECT_EQ(world.classRuntime.send(editor, "checkMeetingChangesForAttendees:", {"content.body"}), Value(true));
  world.classRuntime.send(editor, "checkMeetingChangesForAttendees:", {Value()});
  const auto calls = host.calls(editor, "checkMeetingChangesForAttendees:");
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].at(0), Value("{\n    \"content.summary\" = \"New \\\"plan\\\"\";\n}"));
  EXPECT_TRUE(calls[1].at(0).isAbsent());
  EXPECT_TRUE(host.get(editor, "uncommittedChanges").contains("content.body"));
}

TEST(HostDescription, ReadsAsThePlatformPrintsIt) {
  const Value nested(Value::Dictionary{
      {"a.b", Value(Value::Array{1, -7, 2.5, "x y", nullptr, Value(HostObject(0xabc))})},
      {"c d", Value(Value::Dictionary{{"A09z", "a_z"}, {"empty", ""}, {"none", Value(Value::Array{})}})},
      {"e", "line\n\"end\\ größer 😀"}});
  const std::pair<Value, const char*> rows[] = {
      {"x \"y\"", "x \"y\""},
      {nullptr, "<null>"},
      {Value(), "(null)"},
      {true, "1"},
      {-7, "-7"},
      {2.5, "2.5"},
      {nested,
       "{\n    \"a.b\" =     (\n        1,\n        \"-7\",\n        \"2.5\",\n        \"x y\",\n        "
       "\"<null>\",\n        \"<0xabc>\"\n    );\n"
       "    \"c d\" =     {\n        A09z = \"a_z\";\n        empty = \"\";\n        none =         (\n        "
       ");\n    "
       "};\n"
       "    e = \"line\\n\\\"end\\\\ gr\\U00f6\\U00dfer \\Ud83d\\Ude00\";\n}"},
  };
  for (const auto& [value, text] : rows) EXPECT_EQ(hostDescription(value), text);
}

TEST_F(Hooks, AHeaderOfAnHeirOrAFailedOneGetsNoBar) {
  world.classRuntime.defineClass("OLSpecialHeader", "OLAutoLayoutAttachmentsAcceptingView");
  bool succeeds = true;
  world.classRuntime.setInstanceMethod("OLAutoLayoutAttachmentsAcceptingView",
                                       "initWithFrame:", [&succeeds](const HostObject& self, const Arguments&) {
                                         return succeeds ? Value(self) : Value();
                                       });
  HookInstaller::sharedInstance().load();
  world.classRuntime.send(world.classRuntime.create("OLSpecialHeader"), "initWithFrame:", {Value()});
  succeeds = false;
  world.classRuntime.send(header, "initWithFrame:", {Value()});
  EXPECT_FALSE(inHeader);
}

TEST_F(Hooks, ADrawnHeaderPlacesItsBar) {
  host.teach("OLAutoLayoutAttachmentsAcceptingView", {"drawRect:"});
  HookInstaller::sharedInstance().load();
  const HostObject bar = host.object("vnActionAdditionView", {{"superview", header}});
  const HostObject zone = host.object("NSTextField", {{"stringValue", "(UTC+01:00) Berlin"}});
  host.set(header, "frame", valueFromRect({0, 0, 1000, 200}));
  host.set(header, "subviews", Value(Value::Array{zone, bar}));
  world.classRuntime.send(header, "drawRect:", {valueFromRect({})});
  EXPECT_EQ(rectFromValue(host.get(bar, "frame")).x, 590);
  EXPECT_EQ(rectFromValue(host.get(bar, "frame")).y, 13);
  const struct {
    const char* text;
    bool isEditable, isHidden, isInHiddenView;
    double top;
  } rows[] = {
      {"(GMT-08:00) Pacific Time", false, false, false, 13},
      {"(UTC) Coordinated Universal Time", false, false, false, 13},
      {" UTC+1", false, false, false, 13},
      {"(UTC\xE2\x88\x92"
       "05:00) Bogota",
       false, false, false, 13},
      {"(UTC+01:00) Berlin", false, true, false, -10},
      {"(UTC+01:00) Berlin", false, false, true, -10},
      // A subject that the user types, one that is only shown, and the name of an organizer.
      {"(UTC+01:00) moved", true, false, false, -10},
      {"Call at 10:00 GMT", false, false, false, -10},
      {"GMT Industries", false, false, false, -10},
      {"(UTCX)", false, false, false, -10},
      {"UTC-Sync", false, false, false, -10},
      {"GMT+", false, false, false, -10},
      {"(", false, false, false, -10},
  };
  for (const auto& row : rows) {
    host.set(zone, "stringValue", row.text);
    host.set(zone, "isEditable", row.isEditable);
    host.set(zone, "isHidden", row.isHidden);
    host.set(zone, "isHiddenOrHasHiddenAncestor", row.isHidden || row.isInHiddenView);
    world.classRuntime.send(header, "drawRect:", {valueFromRect({})});
    EXPECT_EQ(rectFromValue(host.get(bar, "frame")).y, row.top) << row.text;
  }
}

TEST_F(Hooks, AHeaderThatManagesItsViewsByItselfPlacesTheBarAmongThem) {
  host.teach("OLCalendarHeaderContainerView", {"drawRect:"});
  HookInstaller::sharedInstance().load();
  const HostObject container = host.object("OLCalendarHeaderContainerView");
  const HostObject bar = host.object("vnActionAdditionView", {{"superview", container}});
  const HostObject zone = host.object("NSTextField", {{"stringValue", "(UTC+01:00) Berlin"}});
  const HostObject entry = host.object("ManagedSubview", {{"view", bar}});
  host.set(container, "frame", valueFromRect({0, 0, 800, 200}));
  const std::pair<Value::Array, double> rows[] = {
      {{entry}, -10},
      {{zone, entry}, 13},
      {{host.object("NSView", {{"subviews", Value(Value::Array{zone})}}), bar}, 13}};
  for (const auto& [managed, top] : rows) {
    host.set(container, "managedSubviewsData", Value(managed));
    world.classRuntime.send(container, "drawRect:", {valueFromRect({})});
    EXPECT_EQ(rectFromValue(host.get(bar, "frame")).y, top);
    EXPECT_EQ(rectFromValue(host.get(bar, "frame")).x, 460);
    EXPECT_EQ(rectFromValue(host.get(bar, "frame")).width, 330);
  }
}

}  // namespace
}  // namespace vorn
