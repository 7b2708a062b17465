#pragma once

#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "lab/host/HostOptions.h"

namespace vornlab {

class CalendarStore;

// What all classes of one stand-in host share, whatever they are made of. Main thread only.
struct HostState {
  HostOptions options;
  // The calendar that it shows, which new appointments go to; it outlives the host. Null before there is one.
  CalendarStore* store = nullptr;
  // When the next new appointment begins, in seconds since 1970, where the person has pointed at a place for it.
  std::optional<double> pointedAt;
  // How often a meeting was sent to its attendees, and a record stored.
  int sentCount = 0;
  int storedCount = 0;

  // The tabs of the ribbon that come with a pane.
  static constexpr std::uint32_t kMailTab = 0;
  static constexpr std::uint32_t kCalendarTab = 2;
  // The titles of the chunks that the host puts into the ribbon with a tab, from left to right.
  std::vector<const char*> ribbonChunks(std::uint32_t tab) const {
    if (tab != kMailTab) return {"New", "Arrange"};
    if (!options.hasAddinsChunk) return {"New", "Delete", "Respond"};
    return {"New", "Delete", "Respond", "Add-ins"};
  }

  // In seconds since 1970.
  double now() const {
    if (options.clock) return options.clock();
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
  }

  static constexpr double kHalfAnHour = 1800;
  // The start of a new appointment: the place that was pointed at, which is used up by it, or else the next full
  // or half hour.
  double takeNewStart() {
    return std::exchange(pointedAt, std::nullopt).value_or(std::ceil(now() / kHalfAnHour) * kHalfAnHour);
  }
};

}  // namespace vornlab
