#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

namespace vornlab {

// The clock on the wall of a time zone. Local seconds count from the zone's own midnight of the first day of 1970,
// so each of its days has 86,400 of them, also one on which the clock is changed.
class LocalClock {
 public:
  static constexpr double kDay = 86400;

  // Seconds east of UTC at a time in seconds since 1970.
  using Shift = std::function<double(double seconds)>;
  explicit LocalClock(Shift shift) : m_shift(std::move(shift)) {}

  double local(double seconds) const { return seconds + m_shift(seconds); }
  // A time that the clock leaves out is taken as the one an hour later, and of two the same the later is taken.
  double seconds(double local) const;
  // The day on which the week of that time begins, which is a Monday, counted from the first day of 1970.
  long monday(double seconds) const;

 private:
  Shift m_shift;
};

// An appointment in the calendar, or one date of a series.
struct WeekItem {
  std::size_t index = 0;
  // Seconds since 1970.
  double start = 0;
  double end = 0;
  bool isAllDay = false;
  // Of whole days: the first one and the one behind the last, counted from the first day of 1970.
  long firstDay = 0;
  long endDay = 0;
  // One of a series that has no event of its own, so that nothing can be stored for it alone.
  bool isRepeated = false;
};

// What is drawn of one on one day; of whole days, on all of them.
struct WeekPiece {
  WeekItem item;
  // Of the week, from 0.
  int day = 0;
  int days = 1;
  // Local seconds from midnight.
  double top = 0;
  double bottom = 0;
  // Its place among those that it shares the time with: beside each other, and whole days below each other.
  int column = 0;
  int columns = 1;
};

// The pieces of a week that begins on that day, for items in any order. A piece that is shorter than `least` local
// seconds takes as much room as that, on its own day. Time n log n in their number.
std::vector<WeekPiece> arrangeWeek(const std::vector<WeekItem>& items, const LocalClock& clock, long firstDay,
                                   double least);

// On each day of the week, how many whole-day pieces have no place among so many lines.
std::array<int, 7> hiddenWholeDays(const std::vector<WeekPiece>& pieces, int lines);

}  // namespace vornlab
