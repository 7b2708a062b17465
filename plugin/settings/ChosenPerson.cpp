#include "settings/ChosenPerson.h"

#include "data/vnUserProfileHelper.h"

namespace vorn {

std::string chosenPerson(const ControlSet& controls) {
  const Control* popup = controls.find("scheduleForPopup");
  if (!controls.isShown("scheduleForBox") || !popup || popup->index <= 0) return "";
  return vnUserProfileHelper::sharedInstance().getScheduleForEmailWithIndex(popup->index - 1);
}

}  // namespace vorn
