#pragma once

#include "platform/Registry.h"

namespace vorn {

// What all open panels share: a flag that one of them sets is seen by every other, until one of them loads anew.
// Main thread only.
struct SettingsFlags {
  static SettingsFlags& sharedInstance() { return Registry::shared<SettingsFlags>(); }

  // Continue was refused for want of a data centre; the next pass shows why.
  bool isCheckedScheduleButton = false;
  // The same for a template.
  bool isCheckedScheduleButtonForTemplate = false;
};

}  // namespace vorn
