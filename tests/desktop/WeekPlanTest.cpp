// Where appointments stand in a week, also on the days on which the clock is changed.

#include "lab/desktop/WeekPlan.h"

#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vornlab {
namespace {

using testing::ElementsAre;

constexpr double kHour = 3600;
// Sunday the 31st of March 2030, 1 o'clock UTC, when Berlin goes from 1 to 2 hours east; and the 27th of October.
constexpr double kForward = 1901149200;
constexpr double kBack = 1919293200;
constexpr double kLeast = 1200;

LocalClock berlin() {
  return LocalClock([](double seconds) { return seconds >= kForward && seconds < kBack ? 2 * kHour : kHour; });
}

WeekItem item(std::size_t index, double start, double hours) {
  WeekItem made;
  made.index = index;
  made.start = start;
  made.end = start + hours * kHour;
  return made;
}

TEST(WeekPlan, ReadsTheClockOnDaysOfAnyLength) {
  const LocalClock clock = berlin();
  const struct {
    double seconds;
    double hours;
  } times[] = {{kForward - kHour, 1}, {kForward, 3}, {kBack - 2 * kHour, 1}, {kBack + kHour, 3}};
  for (const auto& each : times) {
    const double local = clock.local(each.seconds);
    EXPECT_EQ(std::fmod(local, LocalClock::kDay) / kHour, each.hours);
    EXPECT_EQ(clock.seconds(local), each.seconds);
  }
  // Half past two is left out on that night.
  const double gap = clock.local(kForward) - kHour / 2;
  EXPECT_EQ(clock.seconds(gap), kForward + kHour / 2);
  const long monday = clock.monday(kForward);
  EXPECT_EQ(clock.monday(kForward + 20 * kHour), monday);
  EXPECT_EQ(clock.monday(kForward + 21 * kHour), monday + 7);
}

TEST(WeekPlan, PutsWhatSharesATimeBesideEachOther) {
  const LocalClock clock = berlin();
  const long monday = clock.monday(kForward);
  const double nine = clock.seconds((monday * 24.0 + 9) * kHour);
  const auto pieces = arrangeWeek({item(0, nine, 2), item(1, nine + kHour, 2), item(2, nine + 2 * kHour, 0),
                                   item(3, nine + 4 * kHour, 1), item(4, nine + 12 * kHour, 10)},
                                  clock, monday, kLeast);
  std::vector<std::vector<double>> seen;
  for (const WeekPiece& each : pieces) {
    seen.push_back(
        {1.0 * each.item.index, 1.0 * each.day, each.top / kHour, 1.0 * each.column, 1.0 * each.columns});
  }
  // The last one goes on after midnight, and the third takes the place that the first has left.
  EXPECT_THAT(seen,
              ElementsAre(ElementsAre(4, 1, 0, 0, 1), ElementsAre(0, 0, 9, 0, 2), ElementsAre(1, 0, 10, 1, 2),
                          ElementsAre(2, 0, 11, 0, 2), ElementsAre(3, 0, 13, 0, 1), ElementsAre(4, 0, 21, 0, 1)));
  EXPECT_EQ(pieces[3].bottom - pieces[3].top, kLeast);
}

TEST(WeekPlan, GivesEachDayItsPieceOfWhatLastsOverMidnight) {
  const LocalClock clock = berlin();
  const long monday = clock.monday(kForward);
  const auto at = [&](double hours) { return clock.seconds((monday * 24.0 + hours) * kHour); };
  const double least = kLeast / kHour;
  const struct {
    double start;
    double hours;
    std::vector<std::vector<double>> pieces;
  } rows[] = {{23.75, 7.25, {{0, 24 - least, 24}, {1, 0, 7}}},
              {22, 2 + 1.0 / 60, {{0, 22, 24}, {1, 0, least}}},
              {22, 2, {{0, 22, 24}}},
              {24, 0, {{1, 0, least}}},
              {7 * 24 - 0.1, 8, {{6, 24 - least, 24}}},
              {-8, 0, {}}};
  for (const auto& row : rows) {
    std::vector<std::vector<double>> seen;
    for (const WeekPiece& each : arrangeWeek({item(0, at(row.start), row.hours)}, clock, monday, kLeast)) {
      seen.push_back({1.0 * each.day, each.top / kHour, each.bottom / kHour});
    }
    std::sort(seen.begin(), seen.end());
    ASSERT_EQ(seen.size(), row.pieces.size()) << row.start;
    for (std::size_t i = 0; i < seen.size(); ++i) {
      EXPECT_THAT(seen[i], testing::Pointwise(testing::DoubleNear(1e-6), row.pieces[i])) << row.start;
    }
  }
}

TEST(WeekPlan, CutsWholeDaysAtTheEdgesOfTheWeek) {
  const LocalClock clock = berlin();
  WeekItem days;
  days.isAllDay = true;
  days.firstDay = 98;
  days.endDay = 103;
  WeekItem after = days;
  after.firstDay = 102;
  after.endDay = 120;
  WeekItem elsewhere = days;
  elsewhere.firstDay = 107;
  elsewhere.endDay = 108;
  const auto pieces = arrangeWeek({days, after, elsewhere}, clock, 100, kLeast);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[0].day, 0);
  EXPECT_EQ(pieces[0].days, 3);
  EXPECT_EQ(pieces[1].day, 2);
  EXPECT_EQ(pieces[1].days, 5);
  EXPECT_EQ(pieces[1].column, 1);
  EXPECT_THAT(hiddenWholeDays(pieces, 2), ElementsAre(0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(hiddenWholeDays(pieces, 1), ElementsAre(0, 0, 1, 1, 1, 1, 1));
  EXPECT_THAT(hiddenWholeDays(pieces, 0), ElementsAre(1, 1, 2, 1, 1, 1, 1));
}

}  // namespace
}  // namespace vornlab
