// What a person does to meetings on the calendar itself and in a series, and what the host hears of each way to
// save.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "tests/road/Calendars.h"
#include "util/vStringUtils.h"

namespace vorn {
namespace {

constexpr double kHour = 3600;

void addAndStore(RoadWorld& world, const char* uid, const char* item = "") {
  const auto editor = world.openEditor(uid, item);
  world.clickAdd(editor);
  world.saveAndClose(editor);
}

class CalendarSurface : public testing::Test {
 protected:
  CalendarSurface() {
    addAndStore(world, "one");
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

// An item has no UUID to ask by, so nothing of it is parked where the answer to another edit would find it.
TEST(SeriesItem, ThatIsDeletedLeavesAnEditThatWaitsToItsOwnMeeting) {
  constexpr const char* kItem = "20261124T090000Z";
  RoadWorld world(calendarOfTwo("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n"));
  addAndStore(world, "one", kItem);
  addAndStore(world, "two");
  const std::int64_t waiting = world.record("two")["meetingKey"].integerValue();
  world.host.drag("two", "", world.store.find("two")->start()->seconds + kHour);
  world.host.deleteFromCalendar("one", kItem);
  world.settle();
  EXPECT_TRUE(world.service.meetings().find(waiting));
}

// Two items with meetings of their own are asked for by their numbers, and the first answer is not the second's.
TEST(SeriesItem, ThatIsDraggedRightBehindAnotherKeepsItsOwnSettings) {
  constexpr const char* kItems[] = {"20261124T090000Z", "20261125T090000Z"};
  RoadWorld world(calendarWith("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261125T090000Z\r\nSUMMARY:Standup\r\n"));
  std::vector<std::int64_t> keys;
  for (const char* item : kItems) {
    addAndStore(world, "one", item);
    const Value record = vStringUtils::toArrayOrNSDictionary(world.store.find("one", item)->olmUCInband());
    vornlab::Meeting made = *world.service.meetings().find(record["meetingKey"].integerValue());
    made.passcode = std::to_string(made.number % 1000000);
    world.service.meetings().put(made);
    keys.push_back(made.number);
  }
  for (const char* item : kItems) {
    world.host.drag("one", item, world.store.find("one", item)->start()->seconds + kHour);
  }
  world.settle();
  const auto second = world.service.meetings().find(keys.back());
  EXPECT_EQ(second->passcode, std::to_string(second->number % 1000000));
  EXPECT_EQ(static_cast<double>(second->start), world.store.find("one", kItems[1])->start()->seconds);
}

TEST(SeriesSwitch, ByTheMenuTheBarShowsWhatTheSeriesHas) {
  RoadWorld world(calendarWith("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                  calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n"));
  addAndStore(world, "one");
  const std::string stored = world.calendarText();

  const auto editor = world.openEditor("one", "20261124T090000Z");
  EXPECT_TRUE(world.offersAdd(editor));
  world.host.answerSeriesQuestion(editor, 0);
  EXPECT_TRUE(world.offersAdd(editor));
  world.host.switchToSeries(editor);
  world.settle();
  EXPECT_TRUE(world.showsMeeting(editor));
  EXPECT_EQ(world.calendarText(), stored);

  // From here on it is the series' window.
  world.host.typeSubject(editor, "Stand-up");
  world.saveAndClose(editor);
  EXPECT_EQ(world.service.meetings().find(world.record("one")["meetingKey"].integerValue())->subject, "Stand-up");
}

// Whatever the item has: its own meeting hears of nothing that is the series', and stays.
TEST(SeriesSwitch, ByTheAnswerToTheHostTheWindowGoesOnWithTheSeries) {
  constexpr const char* kItem = "20261124T090000Z";
  enum ItemHas { nothing, addUnderWay, ownMeeting, ownMeetingThatIsBeingSaved, meetingOfSeries };
  for (const auto& [itemHas, seriesHas] : {std::pair(nothing, true),
                                           {addUnderWay, true},
                                           {ownMeeting, true},
                                           {ownMeetingThatIsBeingSaved, true},
                                           {meetingOfSeries, true},
                                           {ownMeeting, false}}) {
    SCOPED_TRACE(testing::Message() << itemHas << seriesHas);
    RoadWorld world(calendarWith("RRULE:FREQ=DAILY;COUNT=5\r\nSUMMARY:Standup\r\n") +
                    calendarWith("RECURRENCE-ID:20261124T090000Z\r\nSUMMARY:Standup\r\n"));
    if (seriesHas) addAndStore(world, "one");
    const std::int64_t ofSeries = world.record("one")["meetingKey"].integerValue();
    const bool hasOwn = itemHas == ownMeeting || itemHas == ownMeetingThatIsBeingSaved;
    if (hasOwn) addAndStore(world, "one", kItem);
    if (itemHas == meetingOfSeries)
      world.store.find("one", kItem)->setOlmUCInband(*world.store.find("one")->olmUCInband());
    const std::int64_t count = world.service.meetings().count();
    if (seriesHas) {
      vornlab::Meeting made = *world.service.meetings().find(ofSeries);
      made.passcode = "of the series";
      world.service.meetings().put(made);
    }

    const auto editor = world.openEditor("one", kItem);
    EXPECT_EQ(world.showsMeeting(editor), hasOwn);
    EXPECT_EQ(world.offersAdd(editor), itemHas == nothing || itemHas == addUnderWay);
    // The profile, which the add begins with, is on its way.
    if (itemHas == addUnderWay) world.host.clickBar(editor, "onClickAddVornMeeting:");
    if (itemHas == ownMeetingThatIsBeingSaved) {
      world.host.typeSubject(editor, "Of the item");
      world.host.save(editor);
    }
    world.host.answerSeriesQuestion(editor, 1);
    world.settle();
    EXPECT_EQ(world.showsMeeting(editor), seriesHas);
    EXPECT_EQ(world.offersAdd(editor), !seriesHas);

    world.client->forgetRequests();
    world.host.typeSubject(editor, "Stand-up");
    world.saveAndClose(editor);
    EXPECT_EQ(world.store.find("one")->summary(), "Stand-up");
    EXPECT_EQ(world.record("one")["meetingKey"].integerValue(), ofSeries);
    EXPECT_EQ(world.service.meetings().count(), count);
    const auto meeting = world.service.meetings().find(ofSeries);
    EXPECT_EQ(meeting ? meeting->subject : "none", seriesHas ? "Stand-up" : "none");
    EXPECT_EQ(meeting ? meeting->passcode : "none", seriesHas ? "of the series" : "none");
    EXPECT_EQ(world.client->requests().empty(), !seriesHas);
  }
}

// The three answers to the host, and any other, which also stops it, for each of its four ways to save.
TEST(SaveContract, TheHostGoesOnOnlyWhenItIsToldTo) {
  enum Outcome { passOn, blocked, notice, errorCode };
  const std::tuple<const char*, Arguments, bool> hooks[] = {
      {"save:", {Value()}, false},
      {"saveAndCloseWindow:", {true}, true},
      {"sendMeetingPostValidate", {}, false},
      {"saveAndCloseWindow:andReturnError:", {true, Value()}, true},
  };
  for (const bool hasAttendees : {false, true}) {
    for (const auto& [selector, arguments, givesResult] : hooks) {
      for (const Outcome outcome : {passOn, blocked, notice, errorCode}) {
        SCOPED_TRACE(std::string(selector) + (hasAttendees ? " with attendees, " : ", ") +
                     std::to_string(outcome));
        RoadWorld world(calendarWith(std::string("SUMMARY:Review\r\n") + (hasAttendees ? kGuest : "")));
        vornlab::Account account = world.service.account();
        // Without a paid plan, an hour is too long.
        account.type = outcome == notice ? 1 : 2;
        world.service.setAccount(account);
        const auto editor = world.openEditor("one");
        if (outcome != passOn) world.clickAdd(editor);
        world.host.typeSubject(editor, "Renamed");
        if (outcome == errorCode) {
          world.runtime.send(world.host.viewController(editor), "setIsCancelMode:", {true});
          world.quitClient();
        }
        const int storedBefore = world.host.storedCount();
        const std::size_t alerts = world.presenter.alerts().size();
        const Value result = world.runtime.send(world.host.viewController(editor), selector, arguments);
        EXPECT_EQ(world.host.storedCount() - storedBefore, outcome == passOn ? 1 : 0);
        EXPECT_EQ(result.integerValue(), givesResult && outcome != passOn ? -1 : 0);
        EXPECT_EQ(world.presenter.alerts().size() > alerts, outcome == notice || outcome == errorCode);
      }
    }
  }
}

}  // namespace
}  // namespace vorn
