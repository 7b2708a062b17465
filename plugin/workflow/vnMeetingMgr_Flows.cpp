// Adding a meeting to an appointment, taking it off again, and the settings of an existing one: everything that
// starts with a click, before any save.

#include "channel/commands/ErrorCodes.h"
#include "channel/commands/vnAPIBase.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnGetPACHelper.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "platform/Localization.h"
#include "util/Text.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnCommitWarning.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnOnbehalfData.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

HostObject parentWindowOf(const std::shared_ptr<MeetingBar>& bar) {
  return vnMeetingCommon::getPluginParentWindow(bar.get());
}

HostObject editorOf(const std::shared_ptr<MeetingBar>& bar) {
  return bar ? bar->editorViewController() : HostObject();
}

OptionalText windowIdOf(const std::shared_ptr<MeetingBar>& bar) {
  return bar ? bar->getAppointmentWindowID() : std::nullopt;
}

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

}  // namespace

// -- Add ---------------------------------------------------------------------------------------------------------

int vnMeetingMgr::addVornMeeting(const std::shared_ptr<MeetingBar>& bar) {
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    // No data, hence no progress window. The reply goes on from here because the state says so.
    return m_apiMgr->getUserProfile(parentWindowOf(bar), Value());
  }
  prepareOpenSettings(bar);
  return 0;
}

void vnMeetingMgr::prepareOpenSettings(const std::shared_ptr<MeetingBar>& bar) {
  if (checkIfShowNoMeetingLicenseWindow(parentWindowOf(bar))) return;
  const Value data = getVornMeetingData(editorOf(bar));
  if (notShowSetting()) {
    onExcuteCommandFinished(VnCmdAdd, data);
  } else {
    showSettingsWindow(bar, data);
  }
}

void vnMeetingMgr::showSettingsWindow(const std::shared_ptr<MeetingBar>& bar, const Value& meetingData) {
  SettingsPanels* panels = settingsPanels();
  const OptionalText windowId = windowIdOf(bar);
  if (!panels || !windowId) return;
  panels->addSchSettingWindowToArray(*windowId, meetingData, parentWindowOf(bar));
  panels->showSchSettingWindow(*windowId);
}

bool vnMeetingMgr::notShowSetting() {
  const JsonTextFile savedProfile(vnCommon::getVnUserProfilePath(vnCommon::getUID()));
  return savedProfile.read()[vn_Setting_NotShowMeAgain].boolValue();
}

void vnMeetingMgr::onAddCancelVornMeetingFinished(std::uint64_t command, const Value& data) {
  const auto bar = barOfReply(data);
  if (command == VnCmdCancel) {
    sendVnMeetingCommand(VnCmdDelete, editorOf(bar));
    return;
  }
  if (!isSettingCommitOK(data)) {
    // The panel was dismissed, unless the user never sees it.
    if (!notShowSetting()) return;
    if (data[vn_Setting][vn_Setting_IsPMI].boolValue()) {
      getPMIMeetingInfo(bar, VnStatePMIForSchedule);
      return;
    }
  }
  sendVnMeetingCommand(VnCmdSchedule, editorOf(bar));
}

bool vnMeetingMgr::isSettingCommitOK(const Value& data) {
  return data[keyVNUserOperator].text() == keyVNSettingCommit && data[keyButtonClickIsOK].boolValue();
}

void vnMeetingMgr::onInvokeSettingCommit(const Value& userInfo) {
  const OptionalText ownId = windowIdOf(ownBar());
  if (!ownId || userInfo[keyApptWindowID].text() != *ownId) return;

  const Value settings = m_meetingDataMgr->getVnSettingsData(ownId);
  if (const Value& include = settings[vn_Setting_ForceIncludeJoinurlInLocation]; include.isPresent()) {
    m_meetingDataMgr->setForceIncludeJoinUrlInLocation(include.boolValue());
  }
  if (const Value& top = settings[vn_Setting_PutTheInvitationAtTheTop]; top.isPresent()) {
    m_meetingDataMgr->setPutInvitationAtTheTop(top.boolValue());
  }
  if (const Value& language = settings[vn_Setting_SelectInvitationLanguage]; !language.text().empty()) {
    m_meetingDataMgr->setSelectInvitationLanguage(language.text());
  }
  // A dismissed panel on a meeting that was never stored runs the cancel route.
  if (!userInfo[keyButtonClickIsOK].boolValue() && !isForUpdateVornMeeting()) setMeetingAction(VnCmdCancel);
  onExcuteCommandFinished(getMeetingAction(), userInfo);
}

// -- Change ------------------------------------------------------------------------------------------------------

int vnMeetingMgr::changeSettings(const std::shared_ptr<MeetingBar>& bar) {
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    return m_apiMgr->getUserProfile(parentWindowOf(bar),
                                    Value::dictionaryFromPairs({{vn_API_Call_Para_ShowCommunicationDlg, true}}));
  }
  executeGetMeetingForChangeSetting(bar);
  return 0;
}

void vnMeetingMgr::executeGetMeetingForChangeSetting(const std::shared_ptr<MeetingBar>& bar) {
  if (checkIfShowNoMeetingLicenseWindow(parentWindowOf(bar))) return;
  Value data = getVornMeetingData(editorOf(bar));
  if (m_getMeetingHelper->NeedRequestGetMeeting()) {
    data.set(vn_API_Call_Para_ShowCommunicationDlg, true);
    m_apiMgr->getMeeting(parentWindowOf(bar), data);
  } else {
    showSettingsWindow(bar, data);
  }
}

void vnMeetingMgr::onChangeSettingFinished(const Value& data) {
  if (isSettingCommitOK(data)) sendVnMeetingCommand(VnCmdUpdate, editorOf(barOfReply(data)));
}

// -- Cancel ------------------------------------------------------------------------------------------------------

int vnMeetingMgr::cancelVornMeeting(const std::shared_ptr<MeetingBar>& bar) {
  if (checkIfShowNoMeetingLicenseWindow(parentWindowOf(bar))) return 0;
  return onExcuteCommandFinished(VnCmdCancel, getVornMeetingData(editorOf(bar)));
}

// -- The personal meeting ID -------------------------------------------------------------------------------------

void vnMeetingMgr::getPMIMeetingInfo(const std::shared_ptr<MeetingBar>& bar, std::uint64_t state) {
  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.hasUserProfile()) return;
  setState(state);
  OptionalText meetingId = profile.roomMeetingID();
  const std::string scheduleFor = getScheduldForEmailFromUI(bar);
  if (!scheduleFor.empty() && profile.supportPMIForOnbehalf(scheduleFor)) {
    meetingId = profile.pmiMeetingIDWithScheduleForEmail(scheduleFor);
  }
  Value request = Value::dictionary();
  request.set(vn_Setting_MeetingKey, meetingId);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, true);
  request.set(vn_API_Call_Para_ForPMI, true);
  m_apiMgr->getMeeting(parentWindowOf(bar), request);
}

std::string vnMeetingMgr::getScheduldForEmailFromUI(const std::shared_ptr<MeetingBar>& bar) {
  const OptionalText windowId = windowIdOf(bar);
  if (SettingsPanel* panel = openSettingsPanel(windowId)) return panel->getScheduldForEmailFromUI();
  vnOnbehalfData& onbehalf = vnOnbehalfData::sharedInstance();
  return onbehalf.isCurrentScheduleVornForOther(windowId) ? onbehalf.onbehalfEmail(windowId) : std::string();
}

// -- The account's profile ---------------------------------------------------------------------------------------

void vnMeetingMgr::prepareUserProfile(const std::shared_ptr<MeetingBar>& bar, bool /*fromClientSchedule*/) {
  if (vnUserProfileHelper::sharedInstance().hasUserProfile()) return;
  // Silent: a client that is not ready must not alert a user who merely opened an appointment.
  m_apiMgr->getUserProfile(parentWindowOf(bar),
                           Value::dictionaryFromPairs({{vn_API_Call_Para_SilentAPIError, true}}));
}

void vnMeetingMgr::onGetUserProfileActionFinished(const Value& data) {
  const auto bar = barOfReply(data);
  const std::uint64_t waitedIn = state();

  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const bool personalAudioIsReady = vnGetPACHelper::sharedInstance().hasPACInfo() && !profile.isAccountChanged();
  if (!personalAudioIsReady) {
    profile.setIsAccountChanged(false);
    m_apiMgr->getPAC(parentWindowOf(bar), Value::dictionaryFromPairs(
                                              {{vn_API_Call_Para_ShowCommunicationDlg, waitedIn == VnStatePAC}}));
  }

  switch (waitedIn) {
    case VnStateAdding: prepareOpenSettings(bar); break;
    case VnStateChanging: executeGetMeetingForChangeSetting(bar); break;
    case VnStatePMIForUpdate: getPMIMeetingInfo(bar, VnStatePMIForUpdate); break;
    default: break;
  }
}

// -- Scheduling for somebody else --------------------------------------------------------------------------------

int vnMeetingMgr::getScheduleForList(const std::shared_ptr<MeetingBar>& bar) {
  return m_apiMgr->getScheduleForList(parentWindowOf(bar));
}

void vnMeetingMgr::onGetScheduleForListFinished(const Value& data) {
  if (isForUpdateVornMeeting()) return;
  if (SettingsPanel* panel = openSettingsPanel(data[keyApptWindowID].optionalText())) {
    panel->setScheduleForListInfo(true);
  }
}

bool vnMeetingMgr::checkScheduleForEmailValidity() {
  const std::string email = m_getMeetingHelper->getScheduleForEmail().value_or("");
  if (email.empty()) return true;
  // Until the profile has come nobody knows one's own id either, and a meeting that names only its host's id looks
  // like somebody else's even if it is one's own.
  const bool namesAnEmail = m_getMeetingHelper->getMeetingInfo()[vn_Setting][vn_Setting_ScheduleFor].isPresent();
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.hasUserProfile() && !namesAnEmail) return true;
  // Another window's end may just have cleared the profile, which takes nobody off the account's list.
  const Value bosses = profile.hasUserProfile() ? profile.bossesInfo() : profile.lastKnownBosses();
  for (const Value& boss : bosses.items()) {
    if (equalIgnoringCase(boss["email"].text(), email)) return true;
  }
  return false;
}

void vnMeetingMgr::changeUIWithScheduleForEmainError(const HostObject& parentWindow) {
  const auto bar = vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(parentWindow);
  if (bar) bar->onUIChanged(VnUINotMeeting);
}

// -- Errors of a commit that the panel shows ---------------------------------------------------------------------

void vnMeetingMgr::showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) {
  const auto bar = vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(parentWindow);
  if (!settingsPanels() || !windowIdOf(bar)) {
    // Nobody would read and clear what the panel is told through the site configuration, and without a word the
    // user would not know why nothing happens.
    const std::string message = refusalMessage(errorCode);
    if (!message.empty()) vnAPIBase::popupWarnWithErrorMsg(parentWindow, message);
    return;
  }
  if (errorCode == ErrorCode::kPasscodeTooWeak) setSecurityOptionErrorInfo(vn_NotStrongerPasscode, true);
  if (errorCode == ErrorCode::kSecurityOptionMissing) setSecurityOptionErrorInfo(vn_SecurityNotSeleteOne, true);
  showSettingsWindow(bar, getVornMeetingData(editorOf(bar)));
}

void vnMeetingMgr::setSecurityOptionErrorInfo(std::string_view key, bool value) {
  JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).setKey(key, value);
}

void vnMeetingMgr::resetMeetingItemWhenUpdateError(const HostObject& parentWindow) {
  if (!isForUpdateVornMeeting()) return;
  SettingsPanel* panel = openSettingsPanel(vnMeetingCommon::getApptWindowIDByWindow(parentWindow));
  if (panel) panel->resetMeetingItemWhenUpdateError();
}

Value vnMeetingMgr::getSiteMeetingInfo(const OptionalText& windowId) {
  SettingsPanel* panel = openSettingsPanel(windowId);
  return panel ? panel->getSiteMeetingInfo() : Value();
}

void vnMeetingMgr::onInvokeScheduleAlternateHostError(const Value& userInfo) {
  const Value& emails = userInfo["emails"];
  if (emails.items().empty()) return;
  if (SettingsPanel* panel = openSettingsPanel(userInfo[keyApptWindowID].optionalText())) {
    panel->filterInvalidAlternateHosts(emails);
  }
}

void vnMeetingMgr::onInvokeCommitChooseAnotherTemplate(const Value& userInfo) {
  const HostObject parentWindow = userInfo["parentWindow"].object();
  // Every manager hears of it, and the data are one window's: another manager would take over its meeting.
  if (vnMeetingMgrMonitor::getMeetingMgrByOlWindow(parentWindow).get() != this) return;
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
  m_apiMgr->updateMeeting(parentWindow, data);
}

void vnMeetingMgr::showCommitWarning(const HostObject& parentWindow, const Value& meetingData) {
  vnCommitWarning& warning = vnCommitWarning::sharedInstance();
  warning.setData(meetingData);
  warning.showCommitWarning(parentWindow);
}

bool vnMeetingMgr::isEnableRecurrence(const HostObject& editor) {
  return getVornMeetingData(editor)[vn_Outlook_ApptInfo][vn_ApptInfo_Recurrence].boolValue();
}

}  // namespace vorn
