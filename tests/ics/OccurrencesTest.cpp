// The dates of a series, for whoever shows a span of time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lab/ics/CalendarStore.h"

namespace vornlab {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kHour = 3600;
constexpr double kDay = 24 * kHour;
// The 18th of March 2030, 9 o'clock in Berlin, where the clock is put forward on the 31st.
constexpr double kFirst = 1900051200;

std::string seriesOf(const std::string& start, const std::string& rule, const std::string& more = "") {
  return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:s\r\nDTSTART" + start + "\r\n" + rule + "\r\n" + more +
         "END:VEVENT\r\n" + "END:VCALENDAR\r\n";
}

CalendarStore storeOf(const std::string& text) {
  CalendarStore store;
  IcsProblem problem;
  EXPECT_TRUE(store.loadText(text, problem)) << problem.message;
  return store;
}

TEST(Occurrences, AreToldByTheClockOfTheSeries) {
  const std::string berlin = ";TZID=Europe/Berlin:20300318T090000";
  const double gone = kFirst + 7 * kDay;
  const double summer = kFirst + 14 * kDay - kHour;
  const struct {
    std::string text;
    double from;
    double until;
    std::vector<double> starts;
  } cases[] = {
      {seriesOf(berlin, "RRULE:FREQ=WEEKLY;COUNT=4"), kFirst, kFirst + 15 * kDay, {kFirst, gone, summer}},
      {seriesOf(berlin, "RRULE:FREQ=WEEKLY", "EXDATE;TZID=Europe/Berlin:20300325T090000\r\n"),
       kFirst,
       kFirst + 15 * kDay,
       {kFirst, summer}},
      // The last date itself, in UTC and on the series' own clock, and the moment before it.
      {seriesOf(berlin, "RRULE:FREQ=WEEKLY;UNTIL=20300325T080000Z"), kFirst, kFirst + 99 * kDay, {kFirst, gone}},
      {seriesOf(berlin, "RRULE:FREQ=WEEKLY;UNTIL=20300325T090000"), kFirst, kFirst + 99 * kDay, {kFirst, gone}},
      {seriesOf(berlin, "RRULE:FREQ=WEEKLY;UNTIL=20300325T075959Z"), kFirst, kFirst + 99 * kDay, {kFirst}},
      {seriesOf(";TZID=America/New_York:20300318T200000", "RRULE:FREQ=DAILY;UNTIL=20300319T235959Z"),
       kFirst,
       kFirst + 99 * kDay,
       {kFirst + 16 * kHour}},
      {seriesOf(":20300318T080000Z", "RRULE:FREQ=DAILY"),
       kFirst + 1000 * kDay,
       kFirst + 1001.5 * kDay,
       {kFirst + 1000 * kDay, kFirst + 1001 * kDay}},
      {seriesOf(":20300318T080000Z", "RDATE:20300320T080000Z,20300319T080000Z"),
       kFirst,
       kFirst + 9 * kDay,
       {kFirst, kFirst + kDay, kFirst + 2 * kDay}},
      {seriesOf(";VALUE=DATE:20300318", "RRULE:FREQ=DAILY"), kFirst, kFirst + kDay, {kFirst + 16 * kHour}},
      {seriesOf(":20300318T080000Z", "RRULE:FREQ=SECONDLY"), kFirst, kFirst + kDay, {kFirst}},
      {seriesOf(":20300318T080000Z", "RRULE:nonsense"), kFirst, kFirst + kDay, {kFirst}},
      {seriesOf(":20300318T080000Z", "SUMMARY:alone"), kFirst, kFirst + kDay, {}},
  };
  for (const auto& each : cases) {
    CalendarStore store = storeOf(each.text);
    EXPECT_EQ(store.eventAt(0).startsWithin(each.from, each.until), each.starts) << each.text;
    const CalendarRecurrence told = store.eventAt(0).recurrence();
    if (told.endType != 2) continue;
    EXPECT_EQ(static_cast<std::size_t>(told.occurrenceCount), each.starts.size()) << each.text;
    EXPECT_EQ(told.lastStart ? told.lastStart->seconds : 0, each.starts.back()) << each.text;
  }
}

TEST(Occurrences, LeaveOutADateWithAnEventOfItsOwn) {
  const std::string text =
      "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:s\r\nDTSTART:20300318T080000Z\r\nRRULE:FREQ=DAILY\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nUID:s\r\nRECURRENCE-ID:20300319T080000Z\r\nDTSTART:20300319T100000Z\r\nEND:VEVENT\r\n"
      "END:VCALENDAR\r\n";
  CalendarStore store = storeOf(text);
  EXPECT_THAT(store.eventAt(0).startsWithin(kFirst, kFirst + 3 * kDay), ElementsAre(kFirst, kFirst + 2 * kDay));
  EXPECT_THAT(store.eventAt(1).startsWithin(kFirst, kFirst + 9 * kDay), IsEmpty());
}

}  // namespace
}  // namespace vornlab
