#pragma once

#include "platform/Registry.h"

namespace vorn {

// What all open panels of the process share. Main thread only.
struct SettingsFlags {
  // The field of alternate hosts is to be given the height that its hosts need.
  bool isRearrangeAlternateHost = false;
  // The list of regions that was edited last is the one of those that are allowed.
  bool isTheLastAllowChecked = false;

  static SettingsFlags& shared() { return Registry::shared<SettingsFlags>(); }
};

}  // namespace vorn
