#pragma once

#include <string>
#include <vector>

#include "lab/shell/watch/WatchEvents.h"

namespace vornlab {

// The events of a laboratory as plain lines, for a pipe or a terminal that cannot redraw: each step, and each
// change of a window or a sheet.
class WatchLines {
 public:
  // The lines for one more event.
  std::vector<std::string> take(const WatchEvent& event);

 private:
  std::vector<std::string> linesOf(const WatchLaboratory& laboratory);
  std::vector<std::string> linesOf(const WatchWorld& world);
  std::vector<std::string> linesOf(const WatchState& state);
  std::vector<std::string> linesOf(const WatchStep& step);
  std::vector<std::string> linesOf(const WatchNotice& notice);
  std::vector<std::string> linesOf(const WatchWorldEnd& end);
  std::vector<std::string> linesOf(const WatchEnd& end);

  WatchState m_state;
};

}  // namespace vornlab
