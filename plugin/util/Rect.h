#pragma once

namespace vorn {

// A rectangle of the screen, in points.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const Rect&) const = default;
};

}  // namespace vorn
