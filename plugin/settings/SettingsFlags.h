#pragma once

#include "platform/Registry.h"

namespace vorn {

// What all open panels share. Main thread only.
struct SettingsFlags {
  static SettingsFlags& shared() { return Registry::shared<SettingsFlags>(); }

  // Continue was pressed with additional data centres wanted and none chosen. Every panel that shows its data
  // centres tells of it, until one of them is loaded.
  bool isCheckedScheduleButton = false;
};

}  // namespace vorn
