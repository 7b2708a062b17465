#pragma once

#include <string>

namespace vorn {

// A button of the bar, as far as rules go: what it looks like is the presenter's.
struct vnSettingsButton {
  bool hidden = true;
  bool enabled = true;
  // The name of an image of the bundle.
  std::string image;
  // Empty for no tooltip.
  std::string toolTip;
};

}  // namespace vorn
