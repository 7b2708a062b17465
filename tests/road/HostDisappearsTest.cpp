// The host's objects belong to the host, which may drop any of them while an answer is still on its way. What they
// were asked for is then nothing to anybody; the next appointment goes its way as if nothing had been.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/road/Calendars.h"

namespace vorn {
namespace {

using EditorId = RoadWorld::EditorId;

std::string twoAppointments(bool withGuest) {
  return calendarOfTwo(std::string("SUMMARY:Review\r\nLOCATION:Castle\r\n") + (withGuest ? kGuest : ""));
}

struct HostPart {
  const char* name;
  HostObject (vornlab::OutlookHost::*of)(EditorId) const;
};

constexpr HostPart kParts[] = {
    {"event", &vornlab::OutlookHost::event},
    {"editor", &vornlab::OutlookHost::viewController},
    {"window controller", &vornlab::OutlookHost::windowController},
    {"window", &vornlab::OutlookHost::window},
    {"header", &vornlab::OutlookHost::headerView},
    {"bar", &vornlab::OutlookHost::barView},
};

struct Act {
  const char* name;
  bool needsMeeting;
  // Requests that it makes, and so moments at which the host may drop something.
  std::size_t requests;
  void (*perform)(RoadWorld&, EditorId);
  bool hasGuest = false;
};

constexpr Act kActs[] = {
    {"add", false, 4, [](RoadWorld& world, EditorId editor) { world.clickAdd(editor); }},
    {"save", true, 3, [](RoadWorld& world, EditorId editor) { world.saveAndClose(editor); }},
    {"send", true, 3, [](RoadWorld& world, EditorId editor) { world.send(editor); }, true},
    {"cancel", true, 1, [](RoadWorld& world, EditorId editor) { world.clickCancel(editor); }},
    {"settings", true, 1,
     [](RoadWorld& world, EditorId editor) {
       world.host.clickBar(editor, "onClickChangeSettings:");
       world.settle();
     }},
};

// The editor as the act finds it, with something typed.
EditorId openFor(const Act& act, RoadWorld& world) {
  EditorId editor = world.openEditor("one");
  if (!act.needsMeeting) return editor;
  world.clickAdd(editor);
  act.hasGuest ? world.send(editor) : world.saveAndClose(editor);
  editor = world.openEditor("one");
  world.host.typeSubject(editor, "Review, renamed");
  return editor;
}

// True when a fresh appointment can still be given a meeting.
bool goesOn(RoadWorld& world) {
  const EditorId editor = world.openEditor("two");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  return !world.record("two")["meetingKey"].text().empty();
}

class HostDisappears : public testing::TestWithParam<Act> {};

TEST_P(HostDisappears, AndTheNextAppointmentGoesItsWay) {
  const Act& act = GetParam();
  for (const HostPart& part : kParts) {
    for (std::size_t moment = 0; moment <= act.requests; ++moment) {
      SCOPED_TRACE(std::string(act.name) + " without its " + part.name + " at request " + std::to_string(moment));
      RoadWorld world(twoAppointments(act.hasGuest));
      const EditorId editor = openFor(act, world);
      const HostObject dropped = (world.host.*part.of)(editor);
      ASSERT_TRUE(dropped);
      bool isDropped = false;
      const auto drop = [&] {
        isDropped = true;
        world.runtime.destroy(dropped);
      };
      if (moment == 0) {
        drop();
      } else {
        world.client->setIncident(moment, [&] {
          drop();
          return true;
        });
      }
      act.perform(world, editor);
      EXPECT_TRUE(isDropped);
      EXPECT_TRUE(goesOn(world));
      // A progress sheet whose window has gone ends with its own time.
      world.settle(60);
      EXPECT_FALSE(world.showsProgress());
    }
  }
}

// The window's end comes between any request and its reply, which then belongs to nobody.
TEST_P(HostDisappears, AWindowThatIsClosedMeanwhileStoresNothing) {
  const Act& act = GetParam();
  for (std::size_t moment = 1; moment <= act.requests; ++moment) {
    SCOPED_TRACE(std::string(act.name) + " closed at request " + std::to_string(moment));
    RoadWorld world(twoAppointments(act.hasGuest));
    const EditorId editor = openFor(act, world);
    const std::string before = world.calendarText();
    world.client->setIncident(moment, [&] {
      world.host.closeWithoutSaving(editor);
      return true;
    });
    act.perform(world, editor);
    world.settle();
    EXPECT_FALSE(world.host.isOpen(editor));
    EXPECT_EQ(world.calendarText(), before);
    EXPECT_FALSE(world.showsProgress());
    EXPECT_TRUE(goesOn(world));
  }
}

INSTANTIATE_TEST_SUITE_P(Acts, HostDisappears, testing::ValuesIn(kActs),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace vorn
