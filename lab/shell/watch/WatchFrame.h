#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lab/shell/watch/WatchModel.h"

namespace vornlab {

// One picture of a laboratory for a terminal.
struct WatchFrame {
  std::size_t columns = 80;
  std::size_t rows = 24;
  bool hasColours = false;

  // At most `rows` lines of at most `columns` columns each, without line breaks, at a moment on the laboratory's
  // clock. The last steps fill what the rest leaves free. A pure function.
  std::vector<std::string> draw(const WatchModel& model, double now) const;
};

}  // namespace vornlab
