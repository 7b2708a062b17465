#include "tests/surface/SurfaceWorld.h"

namespace vorn {
namespace {

constexpr const char* kRecord = R"({"meetingKey":"123"})";
constexpr const char* kResize =
    "dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:";
constexpr const char* kDrag = "performDragFrom:to:forDate:inProgress:";
constexpr const char* kRename = "subjectChanged:forEvent:andTileView:";

// A calendar grid with one selected event, and no desktop client, so that whatever has to be asked is refused.
class CalendarHooks : public SurfaceWorld {
 protected:
  void load() {
    for (const auto& [selector, arguments] : calls) host.set(wrapper, selector, "the host's result");
    host.set(event, "deleteEventNow", "the host's result");
    host.set(event, "cancelMeetingInWindow:", "the host's result");
    HookInstaller::sharedInstance().load();
  }
  Value send(const HostObject& receiver, const char* selector, const Arguments& arguments) {
    return world.classRuntime.send(receiver, selector, arguments);
  }

  HostObject gridView = host.object("NSView", {{"window", window}});
  HostObject grid = host.object("CCGridViewController", {{"selectedEvent", event}, {"view", gridView}});
  HostObject wrapper = host.object("OLCalendarGridViewWrapper", {{"gridViewController", grid}});
  // A pointer to the host's own flag travels as a number.
  const Value flagPointer = std::int64_t{0x7ffe1234};
  const Value date = host.object("OLCalendarDate", {{"dateUTC", 1795424400.0}});
  const std::vector<std::pair<const char*, Arguments>> calls = {
      {kResize, {event, Value(), date, 1800.0, flagPointer, false, true}},
      {kDrag, {"from", "to", date, flagPointer}},
      {kRename, {"Renamed", event, Value()}}};
};

TEST_F(CalendarHooks, AnEditIsTheHostsOwnUnlessAMeetingCannotBeToldOfIt) {
  const struct {
    const char *name, *record;
    bool isOwner, forwards;
  } rows[] = {{"no meeting", "", true, true},
              {"somebody else's meeting", kRecord, false, true},
              {"a meeting", kRecord, true, false}};
  load();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    host.set(event, "olmUCInband", row.record);
    host.set(event, "isOwner", row.isOwner);
    for (const auto& [selector, arguments] : calls) {
      const std::size_t before = host.calls(wrapper, selector).size();
      const Value result = send(wrapper, selector, arguments);
      const std::vector<Arguments> seen = host.calls(wrapper, selector);
      ASSERT_EQ(seen.size() - before, row.forwards ? 1u : 0u) << selector;
      EXPECT_EQ(result, row.forwards ? Value("the host's result") : Value(true)) << selector;
      // The flag of the drag is the host's and arrives as it came.
      if (row.forwards) {
        EXPECT_EQ(seen.back(), arguments) << selector;
      }
    }
    for (const char* selector : {"deleteEventNow", "cancelMeetingInWindow:"}) {
      const Value stopped = selector == std::string("deleteEventNow") ? Value(false) : Value();
      EXPECT_EQ(send(event, selector, {window}), row.forwards ? Value("the host's result") : stopped) << selector;
    }
  }
}

TEST_F(CalendarHooks, AGridThatSelectsNothingIsTheHostsOwn) {
  load();
  host.set(grid, "selectedEvent", Value());
  EXPECT_EQ(send(wrapper, kRename, calls[2].second), Value("the host's result"));
  host.set(wrapper, "gridViewController", Value());
  EXPECT_EQ(send(wrapper, kRename, calls[2].second), Value("the host's result"));
}

}  // namespace
}  // namespace vorn
