#include "settings/rules/MeetingIdRules.h"

namespace vorn::panel_rules {

bool isNewUserWithoutPMI(const OptionalText& personalId) {
  return !personalId || personalId->empty() || *personalId == "0";
}

bool needShowPMIDisableMessage(const DisabledPMIFacts& facts) {
  if (!facts.isDisabled) return false;
  return facts.isUpdate ? facts.usePMI : !isNewUserWithoutPMI(facts.personalId);
}

namespace {

std::string updateMessage(const DisabledPMIFacts& facts, const TextSource& texts) {
  if (facts.isForMyself) return texts("LN_Update_DisablePMI_Message_153612", {});
  return facts.name.ends_with('s')
             ? texts("LN_Update_DisablePMI_Message_ScheduleForOtherWithSSuffix_153612", {facts.name})
             : texts("LN_Update_DisablePMI_Message_ScheduleForOther_153612", {facts.name});
}

std::string scheduleMessage(const DisabledPMIFacts& facts, const TextSource& texts) {
  if (facts.isForMyself) return texts("LN_Schedule_DisablePMI_Message_153612", {});
  return facts.name.ends_with('s')
             ? texts("LN_Schedule_DisablePMI_Message_ScheduleForOtherWithSSuffix_153612", {facts.name})
             : texts("LN_Schedule_DisablePMI_Message_ScheduleForOther_153612", {facts.name});
}

}  // namespace

DisabledPMIMessage disabledPMIMessage(const DisabledPMIFacts& facts, const TextSource& texts) {
  DisabledPMIMessage message{.canBeClosed = facts.isForMyself};
  if (!needShowPMIDisableMessage(facts)) return message;
  message.isShown = !facts.isForMyself || !facts.doNotShowDisablePMIMessage;
  message.text = facts.isUpdate ? updateMessage(facts, texts) : scheduleMessage(facts, texts);
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
