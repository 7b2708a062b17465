#include "workflow/CommitRefusal.h"

#include "channel/commands/ErrorCodes.h"
#include "channel/commands/vnAPIBase.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/store/NoticeFlags.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/People.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "workflow/MeetingWindow.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnAutoRemoveVornMeetingMessage.h"
#include "workflow/vnCommitWarning.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// What the panel would say of a refused commit; "" for a code that it has no words for.
std::string refusalMessage(int errorCode) {
  switch (errorCode) {
    case ErrorCode::kPasscodeUnfit: return localizedString("LN_Schedule_PasswordDoNotMeetRequirements_136704");
    case ErrorCode::kPasscodeTooWeak: return localizedString("LN_Schedule_Password_EnterStronger_162671");
    case ErrorCode::kSecurityOptionMissing: return localizedString("LN_Schedule_Security_SelectErrorTip_166836");
    case ErrorCode::kTrackingFieldMissing: return localizedString("LN_Schedule_TrackingField_Missing");
    default: return "";
  }
}

void setSecurityOptionErrorInfo(std::string_view key, bool value) { SiteFlag(key).set(value); }

}  // namespace

bool CommitRefusal::checkScheduleForEmailValidity() {
  vnGetMeetingHelper& meeting = *m_manager.getMeetingHelper();
  const std::string email = meeting.getScheduleForEmail().value_or("");
  if (email.empty()) return true;
  // Until the profile has come nobody knows one's own id either, and a meeting that names only its host's id looks
  // like somebody else's even if it is one's own.
  const bool namesAnEmail = meeting.getMeetingInfo()[vn_Setting][vn_Setting_ScheduleFor].isPresent();
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.hasUserProfile() && !namesAnEmail) return true;
  // Another window's end may just have cleared the profile, which takes nobody off the account's list.
  return personWithEmail(profile.bossesInfo(), email).isPresent();
}

void CommitRefusal::changeUIWithScheduleForEmainError(const HostObject& parentWindow) {
  if (const auto bar = MeetingWindow::ofHostWindow(parentWindow).bar()) bar->onUIChanged(VnUINotMeeting);
}

void CommitRefusal::showWarningNotAllowScheduleForOthers(const MeetingWindow& window) {
  vnAutoRemoveVornMeetingMessage& warning = vnAutoRemoveVornMeetingMessage::sharedInstance();
  warning.setEditorViewCtrl(window.editor());
  warning.showMessage(window.parentWindow());
}

// -- Errors of a commit that the panel shows ---------------------------------------------------------------------

void CommitRefusal::showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) {
  MeetingWindow window = MeetingWindow::ofHostWindow(parentWindow);
  SettingsPanels* panels = settingsPanels();
  if (!panels || !window.id() || !panels->tellsOfRefusal(errorCode)) {
    // Nobody would read and clear what the panel is told through the site configuration, and without a word the
    // user would not know why nothing happens.
    const std::string message = refusalMessage(errorCode);
    if (!message.empty()) vnAPIBase::popupWarnWithErrorMsg(parentWindow, message);
    return;
  }
  if (errorCode == ErrorCode::kPasscodeTooWeak) setSecurityOptionErrorInfo(vn_NotStrongerPasscode, true);
  if (errorCode == ErrorCode::kSecurityOptionMissing) setSecurityOptionErrorInfo(vn_SecurityNotSeleteOne, true);
  if (const auto panel = openSettingsPanel(window.id())) panel->commitRefused();
  // A new meeting whose template was lost goes out as an update. Refused, it is none of the service's yet, and to
  // change it would mean to fetch it first.
  if (m_manager.getMeetingAction() == VnCmdChangeSettings && !m_manager.isForUpdateVornMeeting()) {
    m_manager.setMeetingAction(VnCmdAdd);
  }
  m_manager.settingsFlow().showSettingsWindow(window, m_manager.getVornMeetingData(window));
}

void CommitRefusal::resetMeetingItemWhenUpdateError(const HostObject& parentWindow) {
  if (!m_manager.isForUpdateVornMeeting()) return;
  const auto panel = openSettingsPanel(vnMeetingCommon::getApptWindowIDByWindow(parentWindow));
  if (panel) panel->resetMeetingItemWhenUpdateError();
  m_manager.settingsFlow().commitRefused();
}

Value CommitRefusal::getSiteMeetingInfo(const OptionalText& windowId) {
  const auto panel = openSettingsPanel(windowId);
  return panel ? panel->getSiteMeetingInfo() : Value();
}

void CommitRefusal::onInvokeScheduleAlternateHostError(const Value& userInfo) {
  const Value& emails = userInfo["emails"];
  if (emails.items().empty()) return;
  if (const auto panel = openSettingsPanel(userInfo[keyApptWindowID].optionalText())) {
    panel->filterInvalidAlternateHosts(emails);
  }
}

void CommitRefusal::onInvokeCommitChooseAnotherTemplate(const Value& userInfo) {
  const HostObject parentWindow = userInfo["parentWindow"].object();
  // Every manager hears of it, and the data are one window's: another manager would take over its meeting.
  if (vnMeetingMgrMonitor::getMeetingMgrByOlWindow(parentWindow).get() != &m_manager) return;
  if (userInfo["chooseAnotherTemplate"].boolValue()) {
    showSettingsWindowWithCommitError(parentWindow, 0);
    return;
  }
  Value data = userInfo["meetingData"];
  Value settings = data[vn_Setting];
  if (settings[vn_Setting_MeetingTemplate].isPresent()) {
    settings.set(vn_Setting_MeetingTemplate,
                 Value::dictionaryFromPairs({{vn_Setting_MeetingTemplate_TemplateId, ""},
                                             {vn_Setting_MeetingTemplate_TemplateName, ""},
                                             {vn_Setting_MeetingTemplate_TemplateType, 0}}));
    data.set(vn_Setting, settings);
  }
  // An update, whichever command was under way.
  m_manager.apiMgr()->updateMeeting(parentWindow, data);
}

void CommitRefusal::showCommitWarning(const HostObject& parentWindow, const Value& meetingData) {
  vnCommitWarning& warning = vnCommitWarning::sharedInstance();
  warning.setData(meetingData);
  warning.showCommitWarning(parentWindow);
}

}  // namespace vorn
