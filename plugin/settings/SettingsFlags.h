#pragma once

#include "platform/Registry.h"

namespace vorn {

// What all open panels share. Main thread only.
//
// Other findings that are shared by design are read only within the step that makes them, so they stay with it:
// whether the hosts' field is being arranged, whether chosen countries were lost, how many data centres were
// offered, which line warns of a lost sign-in choice, and which of the two policies of regions was shown.
struct SettingsFlags {
  static SettingsFlags& shared() { return Registry::shared<SettingsFlags>(); }

  // The list of sign-in choices that was made last holds one that the account no longer offers.
  bool isIncludeDeletedAuthDomain = false;
  // Continue has found that the chosen template is gone; true only while the template's box tells of it.
  bool isCheckedScheduleButtonForTemplate = false;
  // The entry of the last template's popup that was loaded or used.
  int theLastTemplateSclectIndex = 0;
  // Continue was pressed with additional data centres wanted and none chosen. Every panel that shows its data
  // centres tells of it, until one of them is loaded.
  bool isCheckedScheduleButton = false;
};

}  // namespace vorn
