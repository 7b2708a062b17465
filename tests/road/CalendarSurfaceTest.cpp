// What a person does to meetings on the calendar itself, with no editor open.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/surface/vnCommandItemMgr.h"
#include "tests/road/Calendars.h"

namespace vorn {
namespace {

using testing::ElementsAre;

constexpr double kHour = 3600;

class CalendarSurface : public testing::Test {
 protected:
  CalendarSurface() {
    const auto editor = world.openEditor("one");
    world.clickAdd(editor);
    world.saveAndClose(editor);
    key = world.record("one")["meetingKey"].integerValue();
    world.client->forgetRequests();
  }

  std::optional<vornlab::Meeting> meeting() { return world.service.meetings().find(key); }

  RoadWorld world{calendarOfTwo("SUMMARY:Review\r\n")};
  std::int64_t key = 0;
};

TEST_F(CalendarSurface, AClientThatFallsSilentLeavesTheUsersChangeAndTheNextDragCatchesUp) {
  for (const char* unanswered : {"10", "4", "2"}) {
    SCOPED_TRACE(unanswered);
    const double before = static_cast<double>(meeting()->start);
    world.client->setFaults("every reply to action 3 operation " + std::string(unanswered) + ": silent");
    EXPECT_TRUE(world.host.drag("one", "", before + kHour));
    world.settle(61);
    EXPECT_EQ(world.store.find("one")->start()->seconds, before + kHour);
    EXPECT_FALSE(world.showsProgress());

    world.client->setFaults("");
    EXPECT_TRUE(world.host.drag("one", "", before + 2 * kHour));
    world.settle();
    EXPECT_EQ(static_cast<double>(meeting()->start), before + 2 * kHour);
  }
}

TEST(MainWindowCommands, AScheduledMeetingOpensANewAppointmentThatHasIt) {
  RoadWorld world(calendarWith("SUMMARY:Other\r\n"));
  vnCommandItemMgr::sharedInstance().SendToolbarItemCommand(2, Value());
  world.settle();
  ASSERT_EQ(world.host.editors().size(), 1u);
  const auto scheduled = world.host.editors().front();
  EXPECT_TRUE(world.showsMeeting(scheduled));
  // Only the one appointment that was asked for.
  EXPECT_TRUE(world.offersAdd(world.openEditor("one")));
}

TEST(SeriesSwitch, ByTheMenuTheBarShowsWhatTheSeriesHas) {
  RoadWorld world(calendarWith("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n"));
  auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const std::string stored = world.calendarText();

  editor = world.openEditor("one", "20261124T090000Z");
  EXPECT_TRUE(world.offersAdd(editor));
  world.host.answerSeriesQuestion(editor, 0);
  EXPECT_TRUE(world.offersAdd(editor));
  world.host.switchToSeries(editor);
  world.settle();
  EXPECT_TRUE(world.showsMeeting(editor));
  EXPECT_EQ(world.calendarText(), stored);
}

}  // namespace
}  // namespace vorn
