#include "lab/desktop/WeekPlan.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <set>
#include <utility>

namespace vornlab {

namespace {

constexpr long kDaysOfWeek = 7;

// Gives each piece of one day a column in which it lies over nobody, and all that hang together as many columns.
// They are sorted by their top.
void giveColumns(std::vector<WeekPiece*>& pieces) {
  using Taken = std::pair<double, int>;
  std::priority_queue<Taken, std::vector<Taken>, std::greater<>> taken;
  std::set<int> left;
  std::size_t begin = 0;
  int columns = 0;
  const auto endGroup = [&](std::size_t end) {
    for (; begin < end; ++begin) pieces[begin]->columns = columns;
    columns = 0;
    left.clear();
  };
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    WeekPiece& piece = *pieces[i];
    for (; !taken.empty() && taken.top().first <= piece.top; taken.pop()) left.insert(taken.top().second);
    if (taken.empty()) endGroup(i);
    piece.column = left.empty() ? columns++ : left.extract(left.begin()).value();
    taken.emplace(piece.bottom, piece.column);
  }
  endGroup(pieces.size());
}

}  // namespace

double LocalClock::seconds(double local) const {
  const double near = local - m_shift(local);
  return local - m_shift(near);
}

long LocalClock::monday(double seconds) const {
  const long day = static_cast<long>(std::floor(local(seconds) / kDay));
  // The first day of 1970 was a Thursday.
  constexpr long thursday = 3;
  return day - ((day + thursday) % kDaysOfWeek + kDaysOfWeek) % kDaysOfWeek;
}

std::vector<WeekPiece> arrangeWeek(const std::vector<WeekItem>& items, const LocalClock& clock, long firstDay,
                                   double least) {
  std::vector<WeekPiece> pieces;
  for (const WeekItem& item : items) {
    WeekPiece piece;
    piece.item = item;
    if (item.isAllDay) {
      const long from = std::max(item.firstDay - firstDay, 0L);
      const long to = std::min(item.endDay - firstDay, kDaysOfWeek);
      if (from >= to) continue;
      piece.day = static_cast<int>(from);
      piece.days = static_cast<int>(to - from);
      piece.top = static_cast<double>(from);
      piece.bottom = static_cast<double>(to);
      pieces.push_back(piece);
      continue;
    }
    const double start = clock.local(item.start) - static_cast<double>(firstDay) * LocalClock::kDay;
    // In the hour that a clock has twice, something may end before it begins.
    const double end = std::max(clock.local(item.end) - static_cast<double>(firstDay) * LocalClock::kDay, start);
    const long first = static_cast<long>(std::floor(start / LocalClock::kDay));
    const long last = std::min(static_cast<long>(std::ceil(end / LocalClock::kDay)), kDaysOfWeek);
    for (long day = std::max(first, 0L); day < std::max(last, std::min(first + 1, kDaysOfWeek)); ++day) {
      const double midnight = static_cast<double>(day) * LocalClock::kDay;
      piece.day = static_cast<int>(day);
      piece.top = std::max(start - midnight, 0.0);
      piece.bottom = std::max(std::min(end - midnight, LocalClock::kDay), piece.top + least);
      // Late in the evening the room that a short piece needs is above midnight.
      const double below = std::max(piece.bottom - LocalClock::kDay, 0.0);
      piece.top -= below;
      piece.bottom -= below;
      pieces.push_back(piece);
    }
  }
  std::stable_sort(pieces.begin(), pieces.end(),
                   [](const WeekPiece& one, const WeekPiece& other) { return one.top < other.top; });
  std::vector<std::vector<WeekPiece*>> days(kDaysOfWeek + 1);
  for (WeekPiece& piece : pieces) days[piece.item.isAllDay ? kDaysOfWeek : piece.day].push_back(&piece);
  for (std::vector<WeekPiece*>& day : days) giveColumns(day);
  return pieces;
}

std::array<int, 7> hiddenWholeDays(const std::vector<WeekPiece>& pieces, int lines) {
  std::array<int, 7> hidden{};
  for (const WeekPiece& piece : pieces) {
    if (!piece.item.isAllDay || piece.column < lines) continue;
    for (int day = piece.day; day < piece.day + piece.days; ++day) ++hidden.at(static_cast<std::size_t>(day));
  }
  return hidden;
}

}  // namespace vornlab
