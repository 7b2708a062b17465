#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnECRecurrence.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "tests/proxies/FakeOwners.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

constexpr double kNoonUTC = 1'772'366'400;  // 2026-03-01 12:00:00

Value recordWithKey(const std::string& key) { return "{\"meetingKey\": \"" + key + "\"}"; }

class Event : public testing::Test {
 protected:
  HostObject event(std::initializer_list<std::pair<std::string, Value>> answers) {
    return host.object("ECCalendarEvent", answers);
  }
  HostObject date(double seconds, const std::string& zone) {
    return host.object("OLCalendarDate",
                       {{"dateUTC", seconds}, {"timeZone", host.object("NSTimeZone", {{"name", zone}})}});
  }

  TestPlatform world;
  FakeHost host{world.classRuntime};
  FakeOwners owners;
};

TEST_F(Event, WhatTheUserHasTypedOrClearedWinsOverWhatIsStored) {
  vnECCalendarEvent proxy(event({{"summary", "stored"}, {"location", "room"}, {"body", "old"}}));
  EXPECT_EQ(proxy.getOneMergedItem("summary"), Value("stored"));
  proxy.setUnCommitedChanges(Value::Dictionary{{"content.summary", "typed"}, {"content.body", "new"}});
  EXPECT_EQ(proxy.getOneMergedItem("summary"), Value("typed"));
  EXPECT_EQ(proxy.getEmailBody(), Value("new"));
  EXPECT_EQ(proxy.location(), "room");
  EXPECT_EQ(proxy.summary(), "stored");
  proxy.setUnCommitedChanges(Value::Dictionary{{"content.summary", nullptr}, {"content.location", nullptr}});
  EXPECT_EQ(proxy.getOneMergedItem("summary"), Value(""));
  EXPECT_TRUE(proxy.getOneMergedItem("location").isNull());
}

TEST_F(Event, TheKeyComesFromTheRecordThenTheManagerThenTheText) {
  struct {
    const char* why;
    Value inband, capabilities;
    const char* managerKey;
    Value calendarText;
    bool isOccurrence;
    const char* expected;
  } const cases[] = {
      {"the record first", recordWithKey("1"), recordWithKey("2"), "3", "ics", false, "1"},
      {"the older place when the newer has no record", "{\"x\": 1}", recordWithKey("2"), "3", "ics", false, "2"},
      {"the older place when the newer is no text", nullptr, recordWithKey("2"), "3", "ics", false, "2"},
      {"the manager without a record", Value(), Value(), "3", "ics", false, "3"},
      {"the manager when the record is no JSON", "}{", "", "3", "ics", false, "3"},
      {"the manager when the record is a bare number", "17", "17", "3", "ics", false, "3"},
      {"the text at last", Value(), Value(), "", "ics", false, "number in ics"},
      {"nothing", Value(), Value(), "", Value(), false, ""},
      {"an occurrence's own record", recordWithKey("1"), Value(), "3", "ics", true, "1"},
      {"no manager and no text for an occurrence", Value(), Value(), "3", "ics", true, ""},
  };
  for (const auto& c : cases) {
    const HostObject item = event({{"olmUCInband", c.inband},
                                   {"olmUCCapabilities", c.capabilities},
                                   {"iCalendarRepresentation", c.calendarText},
                                   {"isOccurrence", c.isOccurrence}});
    owners.keys[item] = c.managerKey;
    EXPECT_EQ(vnECCalendarEvent(item).getVnMeetingKey(), c.expected) << c.why;
  }
}

TEST_F(Event, AnItemOfASeriesIsSupportedUnlessItSharesTheMeetingOfTheSeries) {
  struct {
    const char* why;
    bool isOwner;
    const char* kind;
    const char *ownKey, *seriesKey;
    bool supported, single;
  } const cases[] = {
      {"somebody else's appointment", false, "none", "", "", false, false},
      {"a single appointment", true, "none", "1", "", true, true},
      {"no meeting at all", true, "isOccurrence", "", "", true, false},
      {"only the series has one", true, "isOccurrence", "", "9", true, false},
      {"only the occurrence has one", true, "isOccurrence", "1", "", true, true},
      {"both have the same", true, "isOccurrence", "9", "9", false, false},
      {"each has its own", true, "isOccurrence", "1", "9", true, true},
      {"an exception with the series' meeting", true, "isModifiedException", "9", "9", false, false},
      {"an exception with its own", true, "isModifiedException", "1", "9", true, true},
  };
  for (const auto& c : cases) {
    const HostObject series = event({{"olmUCInband", *c.seriesKey ? recordWithKey(c.seriesKey) : Value()}});
    const HostObject item = event({{"isOwner", c.isOwner},
                                   {c.kind, true},
                                   {"olmUCInband", *c.ownKey ? recordWithKey(c.ownKey) : Value()},
                                   {"seriesMasterRecord", series}});
    const vnECCalendarEvent proxy(item);
    EXPECT_EQ(proxy.isSupportVorn(), c.supported) << c.why;
    EXPECT_EQ(proxy.occurrenceIsSingleVornMeeting(), c.single) << c.why;
  }
  EXPECT_FALSE(vnECCalendarEvent(event({{"olmUCInband", recordWithKey("1")}, {"seriesMasterRecord", Value()}}))
                   .occurrenceIsSingleVornMeeting());
}

TEST_F(Event, ThePlainFormHoldsWhatWasTypedAndTheMinutesCutOff) {
  const HostObject start = date(kNoonUTC, "Europe/Berlin");
  const HostObject end = date(kNoonUTC + 89, "Europe/Berlin");
  host.set(end, "timeIntervalSinceDate:", 89.0);
  const HostObject room =
      host.object("ECAttendee", {{"name", "Room 1"}, {"emailAddress", "r@x.org"}, {"attendeeType", 2}});
  const HostObject nameless = host.object("ECAttendee", {{"emailAddress", "n@x.org"}});
  vnECCalendarEvent proxy(event({{"summary", "stored"},
                                 {"location", ""},
                                 {"body", "<p>Hi</p>"},
                                 {"startTime", start},
                                 {"endTime", end},
                                 {"olmUCInband", recordWithKey("1")},
                                 {"UUID", "U-1"},
                                 {"attendeeList", Value(Value::Array{room, nameless})}}));
  proxy.setUnCommitedChanges(Value::Dictionary{{"content.summary", "typed"}});

  const Value data = proxy.getVnMeetingData();
  const std::pair<std::string_view, Value> plain[] = {{vn_ApptInfo_Subject, "typed"},
                                                      {vn_ApptInfo_Location, ""},
                                                      {vn_ApptInfo_Body, "<p>Hi</p>"},
                                                      {vn_ApptInfo_Duration, "1"},
                                                      {vn_ApptInfo_VnOIProperty, recordWithKey("1")},
                                                      {vn_ApptInfo_OlApptUUID, "U-1"}};
  for (const auto& [key, value] : plain) EXPECT_EQ(data[key], value) << key;
  EXPECT_EQ(data[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime], Value("2026-03-01 12:00:00"));
  EXPECT_EQ(data[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_LocalTime], Value("2026-03-01 13:00:00"));
  EXPECT_EQ(data[vn_ApptInfo_EndTime][vn_ApptInfo_CalDate_UTCTime], Value("2026-03-01 12:01:29"));
  const Value& attendees = data[vn_ApptInfo_Attendees];
  ASSERT_EQ(attendees.count(), 2u);
  EXPECT_EQ(attendees.at(0), Value(Value::Dictionary{{"name", "Room 1"}, {"email", "r@x.org"}, {"type", "2"}}));
  EXPECT_EQ(attendees.at(1).count(), 0u);
  host.set(end, "timeIntervalSinceDate:", std::nan(""));
  EXPECT_EQ(proxy.getVnMeetingData()[vn_ApptInfo_Duration], Value("0")) << "of what is no time";
}

TEST_F(Event, OnlyTheMasterOfASeriesIsRecurringAndAnItemOfItHasNoUUID) {
  const HostObject pattern = host.object("ECRecurrence");
  const std::tuple<const char*, Value, const char*, bool, bool> cases[] = {
      {"a single appointment", Value(), "none", false, true},
      {"a cleared recurrence", nullptr, "none", false, true},
      {"the master", pattern, "none", true, true},
      {"an occurrence", pattern, "isOccurrence", false, false},
      {"an exception", pattern, "isModifiedException", false, false},
  };
  for (const auto& [why, recurrence, kind, recurring, hasUUID] : cases) {
    const Value data =
        vnECCalendarEvent(event({{"recurrence", recurrence}, {kind, true}, {"UUID", "U"}})).getVnMeetingData();
    EXPECT_EQ(data[vn_ApptInfo_Recurrence], Value(recurring)) << why;
    EXPECT_EQ(data.contains(vn_ApptInfo_OlApptUUID), hasUUID) << why;
    EXPECT_FALSE(data.contains(vn_ApptInfo_Attendees)) << why;
  }
}

TEST_F(Event, TheUUIDIsTheItemsThenTheTextsThenTheUUIDString) {
  EXPECT_EQ(vnECCalendarEvent(event({{"UUID", "U"}, {"iCalendarRepresentation", "ics"}})).UUID(), "U");
  EXPECT_EQ(vnECCalendarEvent(event({{"iCalendarRepresentation", "ics"}, {"UUIDString", "S"}})).UUID(),
            "uuid in ics");
  EXPECT_EQ(vnECCalendarEvent(event({{"UUIDString", "S"}})).UUID(), "S");
  EXPECT_EQ(vnECCalendarEvent(event({})).UUID(), std::nullopt);
}

// Nobody asks it.
TEST_F(Event, TellsWhetherAnItemOfTheRecordChanged) {
  const vnECCalendarEvent proxy(event({{"summary", "s"}, {"location", "l"}}));
  Value data = proxy.getVnMeetingData();
  EXPECT_FALSE(proxy.isVnMeetingItemChanged(data));
  data.set(vn_ApptInfo_Location, "l ");
  EXPECT_TRUE(proxy.isVnMeetingItemChanged(data));
}

TEST_F(Event, TheAccountAnswersThroughTheEvent) {
  const HostObject from = host.object("ECAddress", {{"emailAddress", "from@x.org"}});
  const HostObject account = host.object("ECAccount", {{"emailAddress", "me@x.org"},
                                                       {"fromAddress", from},
                                                       {"serviceOutlookAccountType", 2},
                                                       {"shouldDisableCalendarHTMLBodyForAccount", true}});
  const vnECCalendarEvent proxy(event({{"account", account}, {"isOwner", true}}));
  EXPECT_EQ(proxy.emailAddress(), "me@x.org");
  EXPECT_EQ(proxy.curFromAddress(), "from@x.org");
  EXPECT_TRUE(proxy.isGoogleCalendar());
  EXPECT_TRUE(proxy.shouldDisableCalendarHTMLBody());
  EXPECT_TRUE(proxy.isValidHostAppointment());

  const vnECCalendarEvent without(event({{"account", Value()}, {"isOwner", true}}));
  EXPECT_EQ(without.emailAddress(), std::nullopt);
  EXPECT_EQ(without.curFromAddress(), std::nullopt);
  EXPECT_TRUE(without.accountNotReady());
  EXPECT_FALSE(without.isValidHostAppointment());
  EXPECT_FALSE(without.isGoogleCalendar());
}

TEST_F(Event, ACalendarDateTellsItsInstantInUTCAndOnItsOwnClock) {
  const HostObject instant = host.object("NSDate", {{"timeIntervalSince1970", kNoonUTC}});
  const HostObject zone = host.object("NSTimeZone", {{"name", "Asia/Kolkata"}});
  const HostObject newer = host.object("OlxCalendarDate", {{"dateUTC", instant}, {"timeZone", zone}});
  const Value entry = vnOLCalendarDate(newer).getVnMeetingData();
  EXPECT_EQ(entry[vn_ApptInfo_CalDate_UTCTime], Value("2026-03-01 12:00:00"));
  EXPECT_EQ(entry[vn_ApptInfo_CalDate_LocalTime], Value("2026-03-01 17:30:00"));
  EXPECT_EQ(entry[vn_ApptInfo_Timezone].object(), zone);
  EXPECT_EQ(vnOLCalendarDate(host.object("Other", {{"dateUTC", kNoonUTC}})).getVnMeetingData().count(), 0u);
  EXPECT_EQ(vnOLCalendarDate::GenerateVnCalendarDate("u", std::nullopt, "UTC"),
            Value(Value::Dictionary{{"UTCTime", "u"}}))
      << "it ends at the first missing value";
}

TEST_F(Event, ARecurrenceWithoutACountRecordsNone) {
  const HostObject start = date(kNoonUTC, "UTC");
  for (const int endType : {0, 1}) {
    const HostObject recurrence = host.object(
        "ECRecurrence", {{"endType", endType}, {"occurrenceCount", 7}, {"startDate", start}, {"endDate", start}});
    const Value data = vnECRecurrence(recurrence).getVnMeetingData();
    const Value& info = data[vn_ApptInfo_RecurrenceInfo];
    EXPECT_EQ(info[vn_ApptInfo_Recurrence_EndDateType], Value(endType));
    EXPECT_EQ(info[vn_ApptInfo_Recurrence_Occurrences], endType == 0 ? Value() : Value(7));
    EXPECT_EQ(info[vn_ApptInfo_Recurrence_DatePatternStart].count(), 3u);
  }
  EXPECT_EQ(vnECRecurrence(HostObject()).getVnMeetingData(), Value::dictionary());
}

}  // namespace
}  // namespace vorn
