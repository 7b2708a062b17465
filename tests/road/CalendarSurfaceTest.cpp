// What a person does to meetings on the calendar itself, with no editor open.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/surface/vnCommandItemMgr.h"
#include "tests/road/world/RoadWorld.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kStart = 1795424400;  // 2026-11-23 09:00 UTC
constexpr double kHour = 3600;

// One appointment with a meeting of 90 minutes, and one without a meeting.
std::string twoAppointments() {
  const std::string frame = calendarWith("");
  std::string ninetyMinutes = calendarWith("SUMMARY:Review\r\nLOCATION:Castle\r\nDESCRIPTION:Bring figures\r\n");
  ninetyMinutes.replace(ninetyMinutes.find("T100000Z"), 8, "T103000Z");
  std::string plain = calendarWith("SUMMARY:Lunch\r\nLOCATION:Garden\r\nDESCRIPTION:Soup\r\n");
  plain.replace(plain.find("UID:one"), 7, "UID:two");
  return ninetyMinutes + plain;
}

class CalendarSurface : public testing::Test {
 protected:
  CalendarSurface() {
    world.host.openMainWindow();
    const auto editor = world.openEditor("one");
    world.clickAdd(editor);
    world.saveAndClose(editor);
    key = world.record("one")["meetingKey"].integerValue();
    stored = world.calendarText();
    world.client->forgetRequests();
  }

  std::optional<vornlab::Meeting> meeting() { return world.service.meetings().find(key); }
  void settle() { world.settle(); }

  RoadWorld world{twoAppointments()};
  std::int64_t key = 0;
  std::string stored;
};

TEST_F(CalendarSurface, AnEditShowsAtOnceAndTheServiceFollows) {
  struct Row {
    const char* name;
    std::function<bool(vornlab::OutlookHost&)> act;
    double start, seconds;
    const char* minutes;
    const char* subject;
  };
  const double later = kStart + 24 * kHour;
  const Row rows[] = {
      {"a drag keeps the length", [&](auto& host) { return host.drag("one", "", later); }, later, 5400, "90",
       "Review"},
      {"a moved edge is cut to whole minutes",
       [](auto& host) { return host.resize("one", "", kStart + 60, 29.5 * 60); }, kStart + 60, 29.5 * 60, "29",
       "Review"},
      {"a new title keeps the times", [](auto& host) { return host.rename("one", "", "Renamed"); }, kStart + 60,
       29.5 * 60, "29", "Renamed"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    world.client->forgetRequests();
    ASSERT_TRUE(row.act(world.host));
    const auto event = world.store.find("one");
    EXPECT_EQ(event->start()->seconds, row.start);
    EXPECT_EQ(event->end()->seconds, row.start + row.seconds);
    EXPECT_EQ(event->summary(), row.subject);
    settle();
    EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/4", "3/2"));
    EXPECT_EQ(static_cast<double>(meeting()->start), row.start);
    EXPECT_EQ(meeting()->minutes, row.minutes);
    EXPECT_EQ(meeting()->subject, row.subject);
    EXPECT_EQ(meeting()->number, key);
    EXPECT_TRUE(vnCalendarActionMgr::sharedInstance().getActionResult());
    // What the appointment says of its meeting stays as it is.
    EXPECT_EQ(event->location(), "Castle; " + world.record("one")["joinUrl"].text());
    EXPECT_EQ(world.record("one")["meetingKey"].integerValue(), key);
  }
  EXPECT_THAT(world.test.presenter.alerts, IsEmpty());
}

TEST_F(CalendarSurface, AnAppointmentWithoutAMeetingNeverAsks) {
  EXPECT_TRUE(world.host.drag("two", "", kStart + kHour));
  EXPECT_TRUE(world.host.resize("two", "", kStart, kHour / 2));
  EXPECT_TRUE(world.host.rename("two", "", "Supper"));
  EXPECT_EQ(world.store.find("two")->summary(), "Supper");
  EXPECT_TRUE(world.host.deleteFromCalendar("two", ""));
  settle();
  EXPECT_THAT(world.client->requestNames(), IsEmpty());
  EXPECT_EQ(world.calendarText().find("UID:two"), std::string::npos);
}

TEST_F(CalendarSurface, APlainAppointmentThatIsMovedRightAfterAMeetingIsNotTakenForIt) {
  EXPECT_TRUE(world.host.drag("one", "", kStart + kHour));
  EXPECT_TRUE(world.host.drag("two", "", kStart + 5 * kHour));
  EXPECT_TRUE(world.host.deleteFromCalendar("two", ""));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/4", "3/2"));
  EXPECT_EQ(static_cast<double>(meeting()->start), kStart + kHour);
  EXPECT_EQ(meeting()->subject, "Review");
}

TEST_F(CalendarSurface, ADragBackToWhereTheServiceKnowsItTellsNothing) {
  EXPECT_TRUE(world.host.drag("one", "", kStart));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/4"));
  EXPECT_EQ(world.calendarText(), stored);
  EXPECT_FALSE(vnMeetingMgr::sharedInstance()->isDragAndMove());
}

TEST_F(CalendarSurface, AClientThatFallsSilentLeavesTheUsersChangeAndTheNextDragCatchesUp) {
  for (const char* unanswered : {"3/10", "3/4", "3/2"}) {
    SCOPED_TRACE(unanswered);
    const double before = static_cast<double>(meeting()->start);
    world.client->setInterference([&](const vornlab::Envelope&, vornlab::Envelope reply) {
      return world.client->requestNames().back() == unanswered ? std::nullopt : std::optional(std::move(reply));
    });
    EXPECT_TRUE(world.host.drag("one", "", before + kHour));
    world.settle(61);
    EXPECT_EQ(world.store.find("one")->start()->seconds, before + kHour);
    EXPECT_FALSE(world.test.presenter.showsProgress());

    world.client->setInterference({});
    EXPECT_TRUE(world.host.drag("one", "", before + 2 * kHour));
    settle();
    EXPECT_EQ(static_cast<double>(meeting()->start), before + 2 * kHour);
  }
}

TEST_F(CalendarSurface, WithoutAClientNothingMoves) {
  world.quitClient();
  EXPECT_FALSE(world.host.drag("one", "", kStart + kHour));
  EXPECT_FALSE(world.host.resize("one", "", kStart, kHour));
  EXPECT_FALSE(world.host.rename("one", "", "Renamed"));
  EXPECT_FALSE(world.host.deleteFromCalendar("one", ""));
  EXPECT_FALSE(world.host.cancelMeeting("one", ""));
  settle();
  EXPECT_EQ(world.calendarText(), stored);
  EXPECT_TRUE(meeting());
  // A plain appointment needs no client.
  EXPECT_TRUE(world.host.drag("two", "", kStart + kHour));
}

TEST_F(CalendarSurface, ADeletedAppointmentTakesItsMeetingAlong) {
  EXPECT_TRUE(world.host.deleteFromCalendar("one", ""));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/3"));
  EXPECT_FALSE(meeting());
  EXPECT_EQ(world.calendarText().find("UID:one"), std::string::npos);

  // Nothing of the delete is left for the next appointment that is stored.
  EXPECT_TRUE(world.host.drag("two", "", kStart + kHour));
  EXPECT_EQ(world.store.find("two")->location(), "Garden");
  EXPECT_EQ(world.store.find("two")->description(), "Soup");
}

TEST_F(CalendarSurface, ADeleteThatTheServiceRefusesLeavesAMeetingWithoutAnAppointment) {
  world.client->setInterference([](const vornlab::Envelope& request, vornlab::Envelope reply) {
    if (vornlab::Service::operationOf(request) == vornlab::action::kGetByAppointment)
      reply.content = "0;Error 3001";
    return std::optional(std::move(reply));
  });
  EXPECT_TRUE(world.host.deleteFromCalendar("one", ""));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10"));
  EXPECT_TRUE(meeting());
  EXPECT_FALSE(world.store.find("one"));
  EXPECT_THAT(world.test.presenter.alerts, IsEmpty());
}

TEST_F(CalendarSurface, ADeleteOvertakenByADragOfAnotherMeetingIsGivenUp) {
  const auto editor = world.openEditor("two");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const std::int64_t other = world.record("two")["meetingKey"].integerValue();
  world.client->forgetRequests();
  EXPECT_TRUE(world.host.deleteFromCalendar("one", ""));
  EXPECT_TRUE(world.host.drag("two", "", kStart + kHour));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/10", "3/4", "3/2"));
  EXPECT_TRUE(meeting());
  EXPECT_EQ(static_cast<double>(world.service.meetings().find(other)->start), kStart + kHour);
}

TEST_F(CalendarSurface, ACancelledMeetingIsDeletedAtTheServiceToo) {
  EXPECT_TRUE(world.host.cancelMeeting("one", ""));
  settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/10", "3/3"));
  EXPECT_FALSE(meeting());
  EXPECT_FALSE(world.store.find("one"));
}

TEST_F(CalendarSurface, AnEditDuringAnOpenEditorLeavesItsWindowAlone) {
  const auto editor = world.openEditor("two");
  world.host.typeSubject(editor, "Typed");
  EXPECT_TRUE(world.host.drag("one", "", kStart + kHour));
  settle();
  EXPECT_EQ(static_cast<double>(meeting()->start), kStart + kHour);
  EXPECT_TRUE(world.host.isOpen(editor));
  EXPECT_EQ(world.host.subject(editor), "Typed");
  EXPECT_TRUE(world.offersAdd(editor));
}

TEST(CalendarSurfaceOfASeries, AnItemThatOnlyShowsTheMeetingOfItsSeriesIsLeftToTheHost) {
  RoadWorld world(calendarWith("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n"));
  world.host.openMainWindow();
  const auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const std::string item = "20261124T090000Z";
  auto stored = world.store.find("one", item);
  ASSERT_TRUE(stored);
  struct Row {
    const char* name;
    std::string record;
    std::vector<std::string> asked;
  };
  const std::string seriesRecord = *world.store.find("one")->olmUCInband();
  const Row rows[] = {{"no record", "", {}},
                      {"the record of the series", seriesRecord, {}},
                      {"a record of its own", "{\"meetingKey\":\"42\"}", {"3/10"}}};
  double start = kStart;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    stored->setOlmUCInband(row.record);
    world.client->forgetRequests();
    EXPECT_TRUE(world.host.drag("one", item, start += kHour));
    world.settle();
    EXPECT_EQ(world.client->requestNames(), row.asked);
    EXPECT_EQ(stored->start()->seconds, start);
  }
}

TEST(CalendarSurfaceWithAttendees, ACancellationFromItsEditorDeletesTheMeetingBeforeItIsSent) {
  RoadWorld world(calendarWith("SUMMARY:Board\r\nATTENDEE;CN=Ada:mailto:ada@vorn.example\r\n"));
  auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.send(editor);
  EXPECT_EQ(world.service.meetings().count(), 1);

  editor = world.host.openCancellation("one");
  world.settle();
  world.client->forgetRequests();
  world.host.send(editor);
  EXPECT_EQ(world.host.sentCount(), 1);
  EXPECT_TRUE(world.store.find("one"));
  world.settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/3"));
  EXPECT_EQ(world.service.meetings().count(), 0);
  EXPECT_EQ(world.host.sentCount(), 2);
  EXPECT_FALSE(world.store.find("one"));
  EXPECT_FALSE(world.host.isOpen(editor));
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
