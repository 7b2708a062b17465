#include "workflow/vnCommitWarning.h"

#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/TracedAlert.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

vnCommitWarning& vnCommitWarning::sharedInstance() { return Registry::shared<vnCommitWarning>(); }

std::string vnCommitWarning::getWarningMessage() const {
  const Value& chosen = m_meetingData[vn_Setting][vn_Setting_MeetingTemplate];
  if (chosen[vn_Setting_MeetingTemplate_TemplateId].stringValue().empty()) return "";
  return chosen[vn_Setting_MeetingTemplate_TemplateName].text();
}

void vnCommitWarning::showCommitWarning(const HostObject& parentWindow) const {
  Presenter::Alert alert;
  alert.message = formatText(localizedString("LN_Schedule_Template_Notavailable_220900"), {getWarningMessage()});
  alert.buttons = {localizedString("LN_Schedule_Template_ChooseAnotherTemplate_220900"),
                   localizedString("LN_Schedule_Template_NotUseTemplate_220900")};
  alert.icon = Presenter::kWarningIcon;
  // The notice keeps its data: another window's commit may be stopped before this one's answer comes.
  showTracedAlert(parentWindow, alert, [parentWindow, data = m_meetingData](const Presenter::Answer& answer) {
    // The answer may come after the end of this system.
    NotificationCenter* center = Registry::platform().notificationCenter;
    if (!center) return;
    center->post(notify_Commit_ChooseAnotherTemplate, nullptr,
                 Value::dictionaryFromPairs({{"parentWindow", parentWindow},
                                             {"chooseAnotherTemplate", answer.button == 0},
                                             {"meetingData", data}}));
  });
}

}  // namespace vorn
