#include "settings/rules/MeetingIdRules.h"

namespace vorn::panel_rules {

bool isNewUserWithoutPMI(const OptionalText& personalId) {
  return !personalId || personalId->empty() || *personalId == "0";
}

bool needShowPMIDisableMessage(const DisabledPMIFacts& facts) {
  if (!facts.isDisabled) return false;
  return facts.isUpdate ? facts.usePMI : !isNewUserWithoutPMI(facts.personalId);
}

DisabledPMIMessage disabledPMIMessage(const DisabledPMIFacts& facts, const TextSource& texts) {
  DisabledPMIMessage message{.canBeClosed = facts.isForMyself};
  if (!needShowPMIDisableMessage(facts)) return message;
  message.isShown = !facts.isForMyself || !facts.doNotShowDisablePMIMessage;
  const std::string key = facts.isUpdate ? "LN_Update_DisablePMI_Message" : "LN_Schedule_DisablePMI_Message";
  if (facts.isForMyself) {
    message.text = texts(key + "_153612", {});
  } else {
    const std::string whose = facts.name.ends_with('s') ? "_ScheduleForOtherWithSSuffix" : "_ScheduleForOther";
    message.text = texts(key + whose + "_153612", {facts.name});
  }
  return message;
}

std::string usePMITitle(const std::string& personalId, const TextSource& texts) {
  const std::string title = texts("LN_Schedule_MeetingID_PMI_106192", {});
  return personalId.empty() ? title : title + " " + personalId;
}

std::string oneTimeMeetingTitle(bool isUpdateOfOneTimeMeeting, const std::string& meetingKey,
                                const TextSource& texts) {
  return isUpdateOfOneTimeMeeting ? texts("LN_Schedule_MeetingID_OneTime_Edit_106192", {meetingKey})
                                  : texts("LN_Schedule_MeetingID_OneTime_106192", {});
}

}  // namespace vorn::panel_rules
