#include "workflow/SaveRoad.h"

#include "channel/commands/vnAPIKeys.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

void notifyActionResultToCalActionMgr(const Value& response) {
  vnCalendarActionMgr::sharedInstance().setActionResultData(response);
}

void showPersonalMeeting(const OptionalText& windowId, const Value& meetingInfo) {
  const auto panel = openSettingsPanel(windowId);
  if (!panel) return;
  vnGetScheduleForListHelper::sharedInstance().setPMIInfoWithScheduleFor(meetingInfo);
  panel->setPMIMeetingInfo(meetingInfo);
  settingsPanels()->refreshSettingWindow(*windowId, true);
}

}  // namespace

// -- Schedule and update -----------------------------------------------------------------------------------------

int SaveRoad::scheduleUpdateVornMeeting(MeetingWindow& window, std::uint64_t command) {
  const Value data = m_manager.getVornMeetingData(window);
  if (m_manager.checkIfShowNoMeetingLicenseWindow(window.parentWindow())) return VnHandleBlocked;
  // There will be nothing to update, and the end of the delete performs this save. One that is refused is told of,
  // and leaves the appointment open.
  if (command == VnCmdUpdate && m_manager.apiMgr()->isWaitingForDelete()) return VnHandleBlocked;
  if (command == VnCmdSchedule) {
    m_manager.apiMgr()->scheduleMeeting(window.parentWindow(), data);
  } else if (m_manager.getMeetingHelper()->NeedRequestGetMeeting()) {
    // The comparison runs against fresh data, when the reply is there.
    m_manager.apiMgr()->getMeeting(window.parentWindow(), data);
  } else {
    commitUpdateMeeting(window, data);
  }
  return VnHandleBlocked;
}

void SaveRoad::onInvokeScheduleErrorMessageCommit(const Value& userInfo) {
  if (!userInfo[keyButtonClickIsOK].boolValue()) return;
  // The save that was stopped is not repeated here: the end of this command performs it.
  const MeetingWindow window = MeetingWindow::ofReply(userInfo);
  if (window.bar()) m_manager.sendVnMeetingCommand(VnCmdUpdate, window.editor());
}

void SaveRoad::commitUpdateMeeting(MeetingWindow& window, const Value& meetingData) {
  // Of a meeting that is being deleted there is nothing to tell, and the end of the delete performs this save.
  if (window.bar() && m_manager.apiMgr()->isWaitingForDelete()) return;
  // Without a window the end of another edit may have emptied what was saved of this one, and of an appointment of
  // which nothing is known the service must not be told.
  const bool mayCommit =
      window.bar() ? !window.bar()->blockDeleteVornMeeting() : meetingData[vn_Outlook_ApptInfo].count() > 0;
  if (mayCommit) {
    const Value info = m_manager.getMeetingHelper()->getMeetingInfo();
    if (vnMeetingDataMgr::isMeetingChanged(meetingData, info)) {
      if (meetingData[vn_Setting][vn_Setting_IsPMI].boolValue()) {
        updatePMIMeeting(window, meetingData);
      } else {
        sendUpdate(window, meetingData);
      }
      return;
    }
    // The service has nothing to learn. What the user sees may still have to be written.
    const vnMeetingDataMgr& choices = *m_manager.meetingDataMgr();
    if (window.proxy().isOutlookAppointmentItemChanged() || m_manager.isForceUpdate() ||
        m_manager.writeBack().isDue() || choices.isForceIncludeJoinurlInLocationChanged() ||
        choices.isSelectInvitationLanguageChanged()) {
      m_manager.setIsForceUpdate(false);
      m_manager.writeBack().updateMailBodyForSchedule(window);
      m_manager.writeBack().updateVnKeyInfoToAppointment(window, info, true);
    }
    if (window.bar()) commitStands(window);
  }
  m_manager.calendarEdits().endEdit();
  m_manager.finish().scheduleCloseOLAppointment(window.editor());
}

// What was committed is no longer what a later refusal takes back.
void SaveRoad::commitStands(const MeetingWindow& window) {
  m_manager.settingsFlow().commitStands();
  if (const auto panel = openSettingsPanel(window.id())) panel->commitStands();
}

void SaveRoad::sendUpdate(MeetingWindow& window, const Value& meetingData) {
  // While the personal meeting was fetched, the user may have cancelled this one.
  if (window.bar() && m_manager.apiMgr()->isWaitingForDelete()) return;
  m_manager.calendarEdits().endEdit();
  m_manager.apiMgr()->updateMeeting(window.parentWindow(), meetingData);
}

void SaveRoad::updatePMIMeeting(MeetingWindow& window, const Value& /*meetingData*/) {
  if (vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    m_manager.settingsFlow().getPMIMeetingInfo(window, VnStatePMIForUpdate);
  } else {
    m_manager.setState(VnStatePMIForUpdate);
    m_manager.apiMgr()->getUserProfile(window.parentWindow(), Value());
  }
}

void SaveRoad::onSchdulerActionFinished(std::uint64_t command, const Value& data) {
  // A new meeting whose template was lost goes out as an update, and has no invitation in the body either.
  const bool isNew = command == VnCmdSchedule || !m_manager.isForUpdateVornMeeting();
  if (isNew) m_manager.writeBack().startWithoutInvitation();
  MeetingWindow window = MeetingWindow::ofReply(data);
  const auto& bar = window.bar();
  const Value& response = data[keyVnAPIResponse];
  if (bar) {
    bar->setActionResultData(response);
    bar->onUIChanged(VnUIMeeting);
  }
  notifyActionResultToCalActionMgr(response);
  if (!bar) {
    m_manager.finish().scheduleCloseOLAppointment({});
    return;
  }
  commitStands(window);
  m_manager.writeBack().commitIsAccepted();
  vnApptDataForSaveRecord::sharedInstance().of(bar).setNeedClearLocation(false);
  if (const auto panel = openSettingsPanel(data[keyApptWindowID].optionalText())) {
    const Value hosts = panel->getVnSettingsData()[vn_Setting_AlternateHosts];
    if (AlternateHostHistory* history = alternateHostHistory()) history->addToInputAlternateHostHistory(hosts);
  }
  m_manager.meetingDataMgr()->setMeetingKey(response[vn_MeetingKey].optionalText());
  // What was added to an item of a series is the item's own, which is otherwise seen only when its window opens.
  if (isNew && window.proxy().isOccurrenceOrException()) {
    m_manager.meetingDataMgr()->setOccurrenceIsSingleVornMeeting(true);
  }
  // The invitation comes with the meeting, and the meeting is fetched anew. Should that fail, the next save must
  // not compare with what stood before this one, which is then no better than a meeting found by its UUID.
  m_manager.getMeetingHelper()->setIsForGetMeetingByUUID(true);
  m_manager.apiMgr()->getMeeting(window.parentWindow(), m_manager.getVornMeetingData(window));
}

void SaveRoad::onGetMeetingActionFinished(const Value& data) {
  const std::uint64_t waitedIn = m_manager.state();
  // A reply without a readable meeting is like one that was cut short: nothing is known, so nothing is compared,
  // told or written, and the appointment stays open as it is. Only the add with the personal meeting ID needs
  // nothing of it and goes on.
  if (!m_manager.getMeetingHelper()->hasMeetingInfo() && waitedIn != VnStatePMIForSchedule) return;
  MeetingWindow window = MeetingWindow::ofReply(data);
  const bool isOfMeeting = waitedIn == VnStateChanging || waitedIn == VnStateCommitting ||
                           waitedIn == VnStateCommitted || waitedIn == VnStatePMIForUpdate;
  if (isOfMeeting && window.bar() && !m_manager.isForUpdateVornMeeting()) {
    // The meeting was cancelled before this came. Compared or written, it would come back, and settings of it that
    // are shown and committed would end the cancel once more.
    m_manager.getMeetingHelper()->forgetMeeting();
    return;
  }
  const Value info = m_manager.getMeetingHelper()->getMeetingInfo();

  switch (waitedIn) {
    case VnStateChanging:
      m_manager.settingsFlow().showSettingsWindow(window, meetingDataOfReply(window, info));
      break;
    case VnStateCommitting: commitUpdateMeeting(window, meetingDataOfReply(window, info)); break;
    case VnStateCommitted: writeCommittedMeeting(window, info); break;
    case VnStatePMIForSettings: showPersonalMeeting(window.id(), info); break;
    case VnStatePMIForSchedule: m_manager.sendVnMeetingCommand(VnCmdSchedule, window.editor()); break;
    case VnStatePMIForUpdate: sendUpdate(window, meetingDataOfReply(window, info)); break;
    default: break;
  }
}

Value SaveRoad::meetingDataOfReply(MeetingWindow& window, const Value& meetingInfo) {
  if (window.bar()) return m_manager.getVornMeetingData(window);
  // The delete of an item may have been saved after the edit that is under way.
  const Value& edit = m_manager.calendarEdits().editUnderWay();
  const vnMeetingDataMgr& saved = *m_manager.meetingDataMgr();
  Value data = Value::dictionary();
  data.set(vn_Outlook_ApptInfo, edit.isPresent() ? edit[vn_Outlook_ApptInfo] : saved.getSavedApptInfo());
  data.set(vn_Setting, meetingInfo[vn_Setting]);
  data.set(vn_MeetingKey, edit.isPresent() ? edit[vn_MeetingKey] : Value(saved.meetingKey()));
  return data;
}

void SaveRoad::writeCommittedMeeting(MeetingWindow& window, const Value& meetingInfo) {
  if (const auto panel = openSettingsPanel(window.id())) {
    vnGetScheduleForListHelper::sharedInstance().refreshPMIInfoWithScheduleFor(meetingInfo);
    panel->updatePasswordAfterCommit(meetingInfo[vn_Setting][vn_Setting_MeetingPassword].optionalText());
  }
  m_manager.writeBack().updateMailBodyForSchedule(window);
  m_manager.writeBack().updateVnKeyInfoToAppointment(window, meetingInfo, true);
  m_manager.setState(VnStateIdle);
  m_manager.finish().scheduleCloseOLAppointment(window.editor());
}

// -- Delete ------------------------------------------------------------------------------------------------------

int SaveRoad::deleteVornMeeting(MeetingWindow& window) {
  const Value data = m_manager.getVornMeetingData(window);
  if (m_manager.checkIfShowNoMeetingLicenseWindow(window.parentWindow())) return VnHandleBlocked;
  if (window.bar() && window.bar()->blockDeleteVornMeeting()) return VnHandleBlocked;
  return m_manager.apiMgr()->deleteMeeting(window.parentWindow(), data);
}

void SaveRoad::onDeleteActionFinished(const Value& data) {
  MeetingWindow window = MeetingWindow::ofReply(data);
  const Value& response = data[keyVnAPIResponse];
  if (const auto& bar = window.bar()) {
    bar->setActionResultData(response);
    bar->onUIChanged(VnUINotMeeting);
    // The answer to an update that went out before would bring the meeting back, and a meeting that is added next
    // would start from what a fetch brings, passcode and all.
    m_manager.apiMgr()->letGoOfUpdate();
    m_manager.apiMgr()->letGoOfMeeting();
  }
  notifyActionResultToCalActionMgr(response);
  m_manager.writeBack().updateVnMeetingInfoToAppointmentForDelete(window, response);
  m_manager.clearAllSavedData();
  m_manager.finish().scheduleCloseOLAppointment(window.editor());
}

}  // namespace vorn
