#include "workflow/SettingsFlow.h"

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/vnCommon.h"
#include "data/NotAgainFlags.h"
#include "data/vnGetPACHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnOnbehalfData.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

bool isSettingCommitOK(const Value& data) {
  return data[keyVNUserOperator].text() == keyVNSettingCommit && data[keyButtonClickIsOK].boolValue();
}

}  // namespace

// -- Add ---------------------------------------------------------------------------------------------------------

int SettingsFlow::addVornMeeting(MeetingWindow& window) {
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    // No data, hence no progress window. The reply goes on from here because the state says so.
    return m_manager.apiMgr()->getUserProfile(window.parentWindow(), Value());
  }
  prepareOpenSettings(window);
  return 0;
}

void SettingsFlow::prepareOpenSettings(MeetingWindow& window) {
  if (m_manager.checkIfShowNoMeetingLicenseWindow(window.parentWindow())) return;
  const Value data = m_manager.getVornMeetingData(window);
  if (notShowSetting()) {
    m_manager.onExcuteCommandFinished(VnCmdAdd, data);
  } else {
    showSettingsWindow(window, data);
  }
}

void SettingsFlow::showSettingsWindow(MeetingWindow& window, const Value& meetingData) {
  SettingsPanels* panels = settingsPanels();
  const OptionalText windowId = window.id();
  if (!panels || !windowId) return;
  panels->addSchSettingWindowToArray(*windowId, meetingData, window.parentWindow());
  panels->showSchSettingWindow(*windowId);
}

bool SettingsFlow::notShowSetting() { return not_again::settingsPanel(vnCommon::getUID()).isSet(); }

void SettingsFlow::onAddCancelVornMeetingFinished(std::uint64_t command, const Value& data) {
  MeetingWindow window = MeetingWindow::ofReply(data);
  if (command == VnCmdCancel) {
    m_manager.sendVnMeetingCommand(VnCmdDelete, window.editor());
    return;
  }
  if (!isSettingCommitOK(data)) {
    // The panel was dismissed, unless the user never sees it.
    if (!notShowSetting()) return;
    if (data[vn_Setting][vn_Setting_IsPMI].boolValue()) {
      getPMIMeetingInfo(window, VnStatePMIForSchedule);
      return;
    }
  }
  m_manager.sendVnMeetingCommand(VnCmdSchedule, window.editor());
}

void SettingsFlow::onInvokeSettingCommit(const Value& userInfo) {
  const OptionalText ownId = m_manager.ownWindow().id();
  if (!ownId || userInfo[keyApptWindowID].text() != *ownId) return;

  // What was fetched for the panel comes too late now. It would be taken for the answer to what is sent next,
  // which may be waited for in the same way, and the appointment would get another meeting's record.
  if (m_manager.state() == VnStatePMIForSettings) m_manager.apiMgr()->letGoOfMeeting();
  const bool isOK = userInfo[keyButtonClickIsOK].boolValue();
  if (isOK && !m_choicesBeforeCommit) m_choicesBeforeCommit = m_manager.meetingDataMgr()->panelChoices();
  if (!isOK && !isCommitOnItsWay()) commitRefused();
  const Value settings = m_manager.meetingDataMgr()->getVnSettingsData(ownId);
  if (const Value& include = settings[vn_Setting_ForceIncludeJoinurlInLocation]; include.isPresent()) {
    m_manager.meetingDataMgr()->setForceIncludeJoinUrlInLocation(include.boolValue());
  }
  if (const Value& top = settings[vn_Setting_PutTheInvitationAtTheTop]; top.isPresent()) {
    m_manager.meetingDataMgr()->setPutInvitationAtTheTop(top.boolValue());
  }
  if (const Value& language = settings[vn_Setting_SelectInvitationLanguage]; !language.text().empty()) {
    m_manager.meetingDataMgr()->setSelectInvitationLanguage(language.text());
  }
  // A dismissed panel on a meeting that was never stored runs the cancel route.
  if (!isOK && !m_manager.isForUpdateVornMeeting()) m_manager.setMeetingAction(VnCmdCancel);
  m_manager.onExcuteCommandFinished(m_manager.getMeetingAction(), userInfo);
}

// As the panel goes back, or the next save would write what it shows no more.
void SettingsFlow::commitRefused() {
  if (m_choicesBeforeCommit) m_manager.meetingDataMgr()->setPanelChoices(*m_choicesBeforeCommit);
  commitStands();
}

void SettingsFlow::commitStands() { m_choicesBeforeCommit.reset(); }

bool SettingsFlow::isCommitOnItsWay() const {
  const vnAPIMgr& client = *m_manager.apiMgr();
  // What the panel itself fetches is for no commit.
  return client.mayAnswerCommit() || (m_manager.state() != VnStatePMIForSettings && client.mayAnswerFetch());
}

bool SettingsFlow::isEnableRecurrence(MeetingWindow& window) {
  return m_manager.getVornMeetingData(window)[vn_Outlook_ApptInfo][vn_ApptInfo_Recurrence].boolValue();
}

// -- Change ------------------------------------------------------------------------------------------------------

int SettingsFlow::changeSettings(MeetingWindow& window) {
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    return m_manager.apiMgr()->getUserProfile(
        window.parentWindow(), Value::dictionaryFromPairs({{vn_API_Call_Para_ShowCommunicationDlg, true}}));
  }
  executeGetMeetingForChangeSetting(window);
  return 0;
}

void SettingsFlow::executeGetMeetingForChangeSetting(MeetingWindow& window) {
  if (m_manager.checkIfShowNoMeetingLicenseWindow(window.parentWindow())) return;
  Value data = m_manager.getVornMeetingData(window);
  if (m_manager.getMeetingHelper()->NeedRequestGetMeeting()) {
    data.set(vn_API_Call_Para_ShowCommunicationDlg, true);
    m_manager.apiMgr()->getMeeting(window.parentWindow(), data);
  } else {
    showSettingsWindow(window, data);
  }
}

void SettingsFlow::onChangeSettingFinished(const Value& data) {
  if (!isSettingCommitOK(data)) return;
  const MeetingWindow window = MeetingWindow::ofReply(data);
  if (window.bar() && !window.bar()->editorProxy()) {
    // A meeting that was found by its UUID only after the window had opened: without a hold on the editor, what
    // was chosen would go nowhere.
    window.bar()->attachToEditor();
    if (isEmpty(m_manager.meetingDataMgr()->encodeMailBody())) m_manager.writeBack().setHoldsOnlyUsersWords();
  }
  m_manager.sendVnMeetingCommand(VnCmdUpdate, window.editor());
}

// -- Cancel ------------------------------------------------------------------------------------------------------

int SettingsFlow::cancelVornMeeting(MeetingWindow& window) {
  if (m_manager.checkIfShowNoMeetingLicenseWindow(window.parentWindow())) return 0;
  return m_manager.onExcuteCommandFinished(VnCmdCancel, m_manager.getVornMeetingData(window));
}

// -- The personal meeting ID -------------------------------------------------------------------------------------

void SettingsFlow::getPMIMeetingInfo(MeetingWindow& window, std::uint64_t state) {
  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.knowsAccount()) return;
  m_manager.setState(state);
  OptionalText meetingId = profile.roomMeetingID();
  std::string scheduleFor = getScheduldForEmailFromUI(window);
  if (scheduleFor.empty() && state == VnStatePMIForUpdate && !openSettingsPanel(window.id())) {
    // Neither a panel nor the window says whose meeting it is when it is changed later, or on the calendar. The
    // meeting does, as long as the fetch has not replaced it; with the user's own settings it would become theirs.
    scheduleFor = m_manager.getMeetingHelper()->getMeetingSettings()[vn_Setting_ScheduleFor].text();
  }
  if (!scheduleFor.empty() && profile.supportPMIForOnbehalf(scheduleFor)) {
    meetingId = profile.pmiMeetingIDWithScheduleForEmail(scheduleFor);
  }
  Value request = Value::dictionary();
  request.set(vn_Setting_MeetingKey, meetingId);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, true);
  request.set(vn_API_Call_Para_ForPMI, true);
  m_manager.apiMgr()->getMeeting(window.parentWindow(), request);
}

std::string SettingsFlow::getScheduldForEmailFromUI(MeetingWindow& window) {
  const OptionalText windowId = window.id();
  if (const auto panel = openSettingsPanel(windowId)) return panel->getScheduldForEmailFromUI();
  vnOnbehalfData& onbehalf = vnOnbehalfData::sharedInstance();
  return onbehalf.isCurrentScheduleVornForOther(windowId) ? onbehalf.onbehalfEmail(windowId) : std::string();
}

// -- The account's profile ---------------------------------------------------------------------------------------

void SettingsFlow::prepareUserProfile(MeetingWindow& window, bool /*fromClientSchedule*/) {
  if (vnUserProfileHelper::sharedInstance().hasUserProfile()) return;
  // Silent: a client that is not ready must not alert a user who merely opened an appointment.
  m_manager.apiMgr()->getUserProfile(window.parentWindow(),
                                     Value::dictionaryFromPairs({{vn_API_Call_Para_SilentAPIError, true}}));
}

void SettingsFlow::onGetUserProfileActionFinished(const Value& data) {
  MeetingWindow window = MeetingWindow::ofReply(data);
  const std::uint64_t waitedIn = m_manager.state();

  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const bool personalAudioIsReady = vnGetPACHelper::sharedInstance().hasPACInfo() && !profile.isAccountChanged();
  if (!personalAudioIsReady) {
    profile.setIsAccountChanged(false);
    m_manager.apiMgr()->getPAC(
        window.parentWindow(),
        Value::dictionaryFromPairs({{vn_API_Call_Para_ShowCommunicationDlg, waitedIn == VnStatePAC}}));
  }

  switch (waitedIn) {
    case VnStateAdding:
      // A reply that brings no profile tells neither whether the user wants the panel nor what the account
      // protects a meeting with. The next click asks again.
      if (profile.hasUserProfile()) prepareOpenSettings(window);
      break;
    case VnStateChanging: executeGetMeetingForChangeSetting(window); break;
    case VnStatePAC:
      if (personalAudioIsReady) m_manager.pacMeetingMgr()->schedulePACMeeting(window);
      break;
    case VnStatePMIForUpdate: getPMIMeetingInfo(window, VnStatePMIForUpdate); break;
    default: break;
  }
}

// -- Scheduling for somebody else --------------------------------------------------------------------------------

int SettingsFlow::getScheduleForList(MeetingWindow& window) {
  return m_manager.apiMgr()->getScheduleForList(window.parentWindow());
}

void SettingsFlow::onGetScheduleForListFinished(const Value& data) {
  if (m_manager.isForUpdateVornMeeting()) return;
  if (const auto panel = openSettingsPanel(data[keyApptWindowID].optionalText())) {
    panel->setScheduleForListInfo(true);
  }
}

}  // namespace vorn
