// Times at the edges of zones and of the calendar, and dates of the host that are none.

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "invitation/TimeUtils.h"
#include "invitation/vnTime.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();

TEST(TimeEdges, LocalTimesAroundAChangeOfTheClock) {
  const struct {
    const char *zone, *local, *utc;
  } rows[] = {
      // A time that is skipped counts with the offset before, one that comes twice as the earlier.
      {"Europe/Berlin", "2026-03-29 01:59:59", "2026-03-29 00:59:59"},
      {"Europe/Berlin", "2026-03-29 02:30:00", "2026-03-29 01:30:00"},
      {"Europe/Berlin", "2026-03-29 03:00:00", "2026-03-29 01:00:00"},
      {"Europe/Berlin", "2026-10-25 01:59:59", "2026-10-24 23:59:59"},
      {"Europe/Berlin", "2026-10-25 02:30:00", "2026-10-25 00:30:00"},
      {"Europe/Berlin", "2026-10-25 03:00:00", "2026-10-25 02:00:00"},
      {"America/New_York", "2026-03-08 02:30:00", "2026-03-08 07:30:00"},
      {"America/New_York", "2026-11-01 01:30:00", "2026-11-01 05:30:00"},
      {"Australia/Lord_Howe", "2026-10-04 02:15:00", "2026-10-03 15:45:00"},
      {"Australia/Lord_Howe", "2026-04-05 01:45:00", "2026-04-04 14:45:00"},
      {"Pacific/Apia", "2011-12-30 12:00:00", "2011-12-30 22:00:00"},
      {"Pacific/Kiritimati", "2026-01-01 00:00:00", "2025-12-31 10:00:00"},
      {"Etc/GMT+12", "2026-01-01 00:00:00", "2026-01-01 12:00:00"},
      {"Asia/Kathmandu", "2026-01-01 05:45:00", "2026-01-01 00:00:00"},
      {"W. Europe Standard Time", "2026-07-01 12:00:00", "2026-07-01 10:00:00"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TimeUtils::localToGMT(row.local, row.zone), row.utc) << row.zone << " " << row.local;
    EXPECT_EQ(TimeUtils::stringToTimestampWithTimezone(row.local, row.zone),
              TimeUtils::stringToTimestamp(row.utc));
  }
}

TEST(TimeEdges, ZonesThatNobodyKnowsGiveNoTime) {
  for (const char* zone : {"", " ", "Nowhere/Zone", "europe/nowhere", "Customized Time Zone", "Z\xC3\xBCrich",
                           "\xFF", "Europe/Berlin;Europe/Paris", "(UTC+01:00) Amsterdam, Berlin"}) {
    EXPECT_EQ(TimeUtils::localToGMT("2026-01-01 00:00:00", zone), std::nullopt) << zone;
    EXPECT_EQ(TimeUtils::stringToTimestampWithTimezone("2026-01-01 00:00:00", zone), "0") << zone;
  }
  EXPECT_EQ(TimeUtils::localToGMT("2026-01-01 00:00:00", std::string(1'000'000, 'Z')), std::nullopt);
  EXPECT_EQ(TimeUtils::localToGMT("2026-01-01 00:00:00", std::nullopt), std::nullopt);
  EXPECT_EQ(TimeUtils::localToGMTWithTM(std::numeric_limits<std::time_t>::max(), "UTC"), -1);
  EXPECT_EQ(TimeUtils::stringToTimestamp(std::nullopt), "0");
}

TEST(TimeEdges, TheFirstAndTheLastYear) {
  // The calendar of today reaches back to the first year, without the days that were left out in 1582.
  const std::pair<const char*, const char*> rows[] = {
      {"0001-01-01 00:00:00", "-62135596800"},
      {"1582-10-04 00:00:00", "-12220243200"},
      {"1582-10-15 00:00:00", "-12219292800"},
      {"1969-12-31 23:59:59", "-1"},
      {"2000-02-29 00:00:00", "951782400"},
      {"2038-01-19 03:14:08", "2147483648"},
      {"9999-12-31 23:59:59", "253402300799"},
      {"2023-11-14 22:13:20", "1700000000"},
      {"2026-00-10 00:00:00", "0"},
      {"2026-01-01 23:59:60", "0"},
      {"10000-01-01 00:00:00", "0"},
  };
  for (const auto& [text, timestamp] : rows) EXPECT_EQ(TimeUtils::stringToTimestamp(text), timestamp) << text;
  // What leaves the years 1 to 9999 on its way has no text.
  EXPECT_EQ(TimeUtils::localToGMT("9999-12-31 23:59:59", "America/New_York"), std::nullopt);
  EXPECT_EQ(TimeUtils::localToGMT("0001-01-01 00:00:00", "Asia/Tokyo"), std::nullopt);
  for (const double date : {kNotANumber, kEndless, -kEndless, 1e300, -1e300}) {
    TimeUtils::dateToTimestamp(date);
  }
  EXPECT_EQ(TimeUtils::dateToTimestamp(kNotANumber), 0);
  EXPECT_EQ(TimeUtils::dateToTimestamp(-1.9), -1);
  EXPECT_EQ(TimeUtils::timestampToDate(5), 5.0);
}

TEST(TimeEdges, StampsOfAnyTime) {
  TestPlatform world;
  world.surroundings.time = 86399.9;
  EXPECT_EQ(vnTime::getCurrentTime(), "19700101T235959Z");
  EXPECT_EQ(vnTime::getStringFromTime(nullptr), "");
  EXPECT_EQ(vnTime::getTimeFromStr(std::nullopt), 0);
  const auto stampOf = [](std::time_t time) { return vnTime::getStringFromTime(&time); };
  EXPECT_EQ(stampOf(0), "19700101T000000Z");
  EXPECT_EQ(stampOf(-1), "");
  EXPECT_EQ(stampOf(-2), "19691231T235958Z");
  EXPECT_EQ(stampOf(253402300799), "99991231T235959Z");
  EXPECT_EQ(stampOf(253402300800), "100000101T000000Z");
  EXPECT_EQ(stampOf(std::numeric_limits<std::time_t>::max()), "");
  EXPECT_EQ(stampOf(std::numeric_limits<std::time_t>::min()), "");
  const std::pair<std::string, std::int64_t> rows[] = {
      {"20260102T030405Z", 20260102030405},
      {"garbage", 0},
      {"TZTZ1Z", 1},
      {" 12", 12},
      {"-5Z", -5},
      {"20260102T03:04", 2026010203},
      {"99999999999999999999", std::numeric_limits<std::int64_t>::max()},
      {"-99999999999999999999", std::numeric_limits<std::int64_t>::min()},
      {std::string(1'000'000, '9'), std::numeric_limits<std::int64_t>::max()},
      {std::string("1\0002", 3), 1},
  };
  for (const auto& [text, number] : rows) EXPECT_EQ(vnTime::getTimeFromStr(text), number) << text.substr(0, 30);
  world.platform().surroundings = nullptr;
  world.reinstall();
  EXPECT_EQ(vnTime::getCurrentTime(), "") << "nobody tells the time";
}

// -- Dates of the host -------------------------------------------------------------------------------------------

class HostDates : public testing::Test {
 protected:
  TestPlatform world;
  FakeHost host{world.classRuntime};
};

TEST_F(HostDates, AnEntryEndsAtTheFirstThingThatCannotBeSaid) {
  const struct {
    Value seconds, zone;
    OptionalText utc, local;
  } rows[] = {
      {1'774'747'800, "Europe/Berlin", "2026-03-29 01:30:00", "2026-03-29 03:30:00"},
      {1'792'888'200, "Europe/Berlin", "2026-10-25 00:30:00", "2026-10-25 02:30:00"},
      {1'792'891'800, "Europe/Berlin", "2026-10-25 01:30:00", "2026-10-25 02:30:00"},
      {-0.5, "UTC", "1969-12-31 23:59:59", "1969-12-31 23:59:59"},
      {59.999, "UTC", "1970-01-01 00:00:59", "1970-01-01 00:00:59"},
      {0, "Customized Time Zone", "1970-01-01 00:00:00", "1970-01-01 00:00:00"},
      {0, "", "1970-01-01 00:00:00", std::nullopt},
      {0, Value(), "1970-01-01 00:00:00", std::nullopt},
      {0, 7, "1970-01-01 00:00:00", std::nullopt},
      {-62'135'596'800.0, "UTC", "0001-01-01 00:00:00", "0001-01-01 00:00:00"},
      {-62'135'596'800.0, "America/New_York", "0001-01-01 00:00:00", "0001-01-01 00:00:00"},
      {253'402'300'799.0, "Asia/Tokyo", "9999-12-31 23:59:59", "9999-12-31 23:59:59"},
      {253'402'300'800.0, "UTC", std::nullopt, std::nullopt},
      {1e300, "UTC", std::nullopt, std::nullopt},
      {kNotANumber, "UTC", std::nullopt, std::nullopt},
      {-kEndless, "UTC", std::nullopt, std::nullopt},
      {"1970", "UTC", std::nullopt, std::nullopt},
      {Value(), "UTC", std::nullopt, std::nullopt},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.seconds.realValue());
    const vnOLCalendarDate proxy(
        host.object("OLCalendarDate", {{"dateUTC", row.seconds}, {"timeZone", row.zone}}));
    EXPECT_EQ(proxy.UTCTime(), row.utc);
    EXPECT_EQ(proxy.LocalTime(), row.local);
    EXPECT_EQ(proxy.getVnMeetingData().count(), row.local ? 3u : row.utc ? 1u : 0u);
  }
  EXPECT_EQ(vnOLCalendarDate(HostObject()).getVnMeetingData().count(), 0u);
}

TEST_F(HostDates, AZoneWithANameOfTheHostsOwnHasTheHostsTimeAndOutlivesItsDate) {
  const HostObject zone = host.object("NSTimeZone", {{"name", "(UTC+01:00) Amsterdam, Berlin, Bern, Rome"}});
  const HostObject date = host.object("OLCalendarDate", {{"dateUTC", 1'774'747'800},
                                                         {"timeZone", zone},
                                                         {"yearOfCommonEra", 2026},
                                                         {"monthOfYear", 3},
                                                         {"dayOfMonth", 29},
                                                         {"hourOfDay", 3},
                                                         {"minuteOfHour", 30}});
  const Value entry = vnOLCalendarDate(date).getVnMeetingData();
  EXPECT_EQ(entry[vn_ApptInfo_CalDate_LocalTime], Value("2026-03-29 03:30:00"));
  world.classRuntime.destroy(date);
  world.classRuntime.destroy(zone);
  EXPECT_EQ(timeZoneName(entry[vn_ApptInfo_Timezone]), "(UTC+01:00) Amsterdam, Berlin, Bern, Rome");
}

TEST_F(HostDates, MinutesAreCutTowardZeroAndToTheHostsNumber) {
  const std::pair<Value, const char*> rows[] = {{89, "1"},
                                                {-89, "-1"},
                                                {59.999, "0"},
                                                {1e300, "2147483647"},
                                                {-1e300, "-2147483648"},
                                                {Value(), "0"},
                                                {kNotANumber, "0"},
                                                {kEndless, "2147483647"},
                                                {"90", "1"}};
  for (const auto& [seconds, minutes] : rows) {
    const HostObject end = host.object("OLCalendarDate", {{"timeIntervalSinceDate:", seconds}});
    EXPECT_EQ(vnECCalendarEvent(host.object("ECCalendarEvent", {{"endTime", end}})).getVnDuration(), minutes)
        << seconds.realValue();
  }
}

}  // namespace
}  // namespace vorn
