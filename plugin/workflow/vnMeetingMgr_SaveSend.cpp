// A save or send of an appointment with a meeting: the service is told first, the answer is written into the
// editor, and only then does the host's own operation run. The host's call is refused in its hook and made again
// at the end, in closeOLAppointment().

#include "channel/commands/vnAPIKeys.h"
#include "channel/discovery/vnPluginBuildMgr.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "licence/vnLicencePolicy.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/RunningSave.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnOnbehalfData.h"
#include "workflow/vnSavePreparation.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// The host's own methods stand under these names once the hooks are in; sent so, they do not meet their hook
// again.
constexpr std::string_view kHostSave = "vn_ERCalendarEventEditorViewController_save";
constexpr std::string_view kHostSaveColon = "vn_ERCalendarEventEditorViewController_save:";
constexpr std::string_view kHostSaveAndCloseWindow = "vn_ERCalendarEventEditorViewController_saveAndCloseWindow:";
constexpr std::string_view kHostSaveAndCloseReturnError =
    "vn_ERCalendarEventEditorViewController_saveAndCloseWindow:andReturnError:";
constexpr std::string_view kHostSend = "vn_ERCalendarEventEditorViewController_sendMeetingPostValidate";

// What the host's two close methods give when they have closed nothing.
constexpr std::int64_t kNotClosed = -1;

std::shared_ptr<MeetingBar> barOfEditor(const HostObject& editor) {
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
}

std::int64_t appointmentMinutes(const HostObject& editor) {
  vnERCalendarEventEditorViewController proxy(editor);
  return proxy.getVnMeetingData()[vn_ApptInfo_Duration].integerValue();
}

}  // namespace

// -- Schedule and update -----------------------------------------------------------------------------------------

int vnMeetingMgr::scheduleUpdateVornMeeting(const HostObject& editor, std::uint64_t command) {
  const Value data = getVornMeetingData(editor);
  const auto bar = barOfEditor(editor);
  const HostObject parentWindow = vnMeetingCommon::getPluginParentWindow(bar.get());
  if (checkIfShowNoMeetingLicenseWindow(parentWindow)) return VnHandleBlocked;
  if (command == VnCmdSchedule) {
    m_apiMgr->scheduleMeeting(parentWindow, data);
  } else if (m_getMeetingHelper->NeedRequestGetMeeting()) {
    // The comparison runs against fresh data, when the reply is there.
    m_apiMgr->getMeeting(parentWindow, data);
  } else {
    commitUpdateMeeting(bar, data);
  }
  // Always, also when nothing turns out to be necessary: the host's operation is then redone at once.
  return VnHandleBlocked;
}

bool vnMeetingMgr::hasScheduleError(const HostObject& editor) {
  if (!durationExceedThanMaxMins(editor) || m_scheduleErrorMsg->notShowMessageAgain()) return false;
  const auto bar = barOfEditor(editor);
  m_scheduleErrorMsg->setOLApptWindowID(bar ? bar->getAppointmentWindowID() : std::nullopt);
  m_scheduleErrorMsg->showMessage(vnMeetingCommon::getPluginParentWindow(bar.get()));
  return true;
}

void vnMeetingMgr::onInvokeScheduleErrorMessageCommit(const Value& userInfo) {
  if (!userInfo[keyButtonClickIsOK].boolValue()) return;
  // The save that was stopped is not repeated here: the end of this command performs it.
  if (const auto bar = barOfReply(userInfo)) sendVnMeetingCommand(VnCmdUpdate, bar->editorViewController());
}

bool vnMeetingMgr::durationExceedThanMaxMins(const HostObject& editor) {
  return vnLicencePolicy::isLongerThanPlanAllows(vnUserProfileHelper::sharedInstance().userType(),
                                                 appointmentMinutes(editor));
}

void vnMeetingMgr::commitUpdateMeeting(const std::shared_ptr<MeetingBar>& bar, const Value& meetingData) {
  const HostObject editor = bar ? bar->editorViewController() : HostObject();
  const bool mayCommit = !bar || !bar->blockDeleteVornMeeting();
  if (mayCommit) {
    const Value info = m_getMeetingHelper->getMeetingInfo();
    if (isMeetingChanged(meetingData, info)) {
      if (meetingData[vn_Setting][vn_Setting_IsPMI].boolValue()) {
        updatePMIMeeting(bar, meetingData);
      } else {
        m_apiMgr->updateMeeting(vnMeetingCommon::getPluginParentWindow(bar.get()), meetingData);
      }
      return;
    }
    // The service has nothing to learn. What the user sees may still have to be written.
    vnERCalendarEventEditorViewController proxy(editor);
    if (proxy.isOutlookAppointmentItemChanged() || isForceUpdate() ||
        m_meetingDataMgr->isForceIncludeJoinurlInLocationChanged() ||
        m_meetingDataMgr->isSelectInvitationLanguageChanged()) {
      setIsForceUpdate(false);
      updateMailBodyForSchedule(editor);
      updateVnKeyInfoToAppointment(editor, info, true);
    }
  }
  scheduleCloseOLAppointment(editor);
}

void vnMeetingMgr::updatePMIMeeting(const std::shared_ptr<MeetingBar>& bar, const Value& /*meetingData*/) {
  if (vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    getPMIMeetingInfo(bar, VnStatePMIForUpdate);
  } else {
    setState(VnStatePMIForUpdate);
    m_apiMgr->getUserProfile(vnMeetingCommon::getPluginParentWindow(bar.get()), Value());
  }
}

void vnMeetingMgr::onSchdulerActionFinished(std::uint64_t command, const Value& data) {
  if (command == VnCmdSchedule) m_firstInvitationIsDue = true;
  const auto bar = barOfReply(data);
  const Value& response = data[keyVnAPIResponse];
  if (bar) {
    bar->setActionResultData(response);
    bar->onUIChanged(VnUIMeeting);
  }
  notifyActionResultToCalActionMgr(response);
  if (!bar) {
    scheduleCloseOLAppointment({});
    return;
  }
  vnApptDataForSaveRecord::sharedInstance().of(bar).setNeedClearLocation(false);
  if (SettingsPanel* panel = openSettingsPanel(data[keyApptWindowID].optionalText())) {
    settingsPanels()->addToInputAlternateHostHistory(panel->getVnSettingsData()[vn_Setting_AlternateHosts]);
  }
  m_meetingDataMgr->setMeetingKey(response[vn_MeetingKey].optionalText());
  // The invitation comes with the meeting, and the meeting is fetched anew.
  m_apiMgr->getMeeting(vnMeetingCommon::getPluginParentWindow(bar.get()),
                       getVornMeetingData(bar->editorViewController()));
}

void vnMeetingMgr::notifyActionResultToCalActionMgr(const Value& response) {
  vnCalendarActionMgr::sharedInstance().setActionResultData(response);
}

void vnMeetingMgr::onGetMeetingActionFinished(const Value& data) {
  // A reply without a readable meeting is like one that was cut short: nothing is known, so nothing is compared,
  // told or written, and the appointment stays open as it is. Only the add with the personal meeting ID needs
  // nothing of it and goes on.
  if (!m_getMeetingHelper->hasMeetingInfo() && state() != VnStatePMIForSchedule) return;
  const auto bar = barOfReply(data);
  const HostObject editor = bar ? bar->editorViewController() : HostObject();
  const HostObject parentWindow = vnMeetingCommon::getPluginParentWindow(bar.get());
  const Value info = m_getMeetingHelper->getMeetingInfo();
  Value meetingData;
  if (bar) {
    meetingData = getVornMeetingData(editor);
  } else {
    meetingData = Value::dictionary();
    meetingData.set(vn_Outlook_ApptInfo, m_meetingDataMgr->getSavedApptInfo());
    meetingData.set(vn_Setting, info[vn_Setting]);
    meetingData.set(vn_MeetingKey, m_meetingDataMgr->meetingKey());
  }
  const OptionalText windowId = data[keyApptWindowID].optionalText();

  switch (state()) {
    case VnStateChanging: showSettingsWindow(bar, meetingData); break;
    case VnStateCommitting: commitUpdateMeeting(bar, meetingData); break;
    case VnStateCommitted:
      if (SettingsPanel* panel = openSettingsPanel(windowId)) {
        vnGetScheduleForListHelper::sharedInstance().refreshPMIInfoWithScheduleFor(info);
        panel->updatePasswordAfterCommit(info[vn_Setting][vn_Setting_MeetingPassword].optionalText());
      }
      updateMailBodyForSchedule(editor);
      updateVnKeyInfoToAppointment(editor, info, true);
      setState(VnStateIdle);
      scheduleCloseOLAppointment(editor);
      break;
    case VnStatePMIForSettings:
      if (SettingsPanel* panel = openSettingsPanel(windowId)) {
        vnGetScheduleForListHelper::sharedInstance().setPMIInfoWithScheduleFor(info);
        panel->setPMIMeetingInfo(info);
        settingsPanels()->refreshSettingWindow(*windowId, true);
      }
      break;
    case VnStatePMIForSchedule: sendVnMeetingCommand(VnCmdSchedule, editor); break;
    case VnStatePMIForUpdate: m_apiMgr->updateMeeting(parentWindow, meetingData); break;
    default: break;
  }
}

// -- Writing back ------------------------------------------------------------------------------------------------

void vnMeetingMgr::updateMailBodyForSchedule(const HostObject& editor) {
  const bool isHTML = m_getMeetingHelper->supportHtmlEmail();
  const OptionalText invitation =
      isHTML ? m_getMeetingHelper->getInviteHtmlEmail() : m_getMeetingHelper->getInviteEmail();
  m_emailBodyMgr->updateMailBody(editor, invitation, false, isHTML);
  m_firstInvitationIsDue = false;
}

void vnMeetingMgr::updateVnKeyInfoToAppointment(const HostObject& editor, const Value& meetingInfo,
                                                bool commitFinished) {
  vnERCalendarEventEditorViewController proxy(editor);
  if (commitFinished) {
    proxy.saveVnDataToOLProperty(m_meetingDataMgr->getVnDataForOLProperty(meetingInfo));
    m_meetingDataMgr->setEncodeMailBody(getEncodeMail());
  }
  vnECCalendarEvent* event = proxy.ecCalendarEvent();
  if (!event) return;

  // An appointment without a title takes the service's topic.
  if (vnOLUtils::trimAllSpace(event->summary()).value_or("").empty()) {
    event->setSummary(meetingInfo[vn_Outlook_ApptInfo][vn_ApptInfo_Subject]);
  }

  OptionalText oldJoinUrl = m_meetingDataMgr->joinUrl();
  if (!proxy.getLocationFromUI()) {
    if (const OptionalText stored = m_meetingDataMgr->getOldJoinUrl()) oldJoinUrl = stored;
  }
  std::string userLocation = getOLUserInputLocation(editor).value_or("");
  userLocation = replacingAll(userLocation, "&from=addon", "");
  userLocation = replacingAll(userLocation, "?from=addon", "");

  m_meetingDataMgr->setJoinUrl(meetingInfo[vn_Meeting_JoinUrl].optionalText());
  const auto bar = barOfEditor(editor);
  // Without a bar there is no location of ours, and nobody to leave anything for.
  if (!bar) return;
  ApptSaveData& save = vnApptDataForSaveRecord::sharedInstance().of(bar);
  OptionalText location = getVnLocation(bar);
  if (location) save.setVnLocation(location);

  if (needUpdateLocation(editor, oldJoinUrl)) {
    if (location && !userLocation.empty()) location = userLocation + "; " + *location;
    if (location) {
      event->setLocation(*location);
      save.setOLNewLocation(location);
      proxy.updateLocationFieldFromUI(*location);
      proxy.setLocation(*location);
    }
  } else {
    save.setOLNewLocation("");
  }
  if (const OptionalText stored = m_meetingDataMgr->getOldJoinUrl()) save.setJoinURLFromProperty(stored);
}

// -- Delete ------------------------------------------------------------------------------------------------------

int vnMeetingMgr::deleteVornMeeting(const HostObject& editor) {
  const Value data = getVornMeetingData(editor);
  const auto bar = barOfEditor(editor);
  const HostObject parentWindow = vnMeetingCommon::getPluginParentWindow(bar.get());
  if (checkIfShowNoMeetingLicenseWindow(parentWindow)) return VnHandleBlocked;
  if (bar && bar->blockDeleteVornMeeting()) return VnHandleBlocked;
  return m_apiMgr->deleteMeeting(parentWindow, data);
}

void vnMeetingMgr::onDeleteActionFinished(const Value& data) {
  const auto bar = barOfReply(data);
  const HostObject editor = bar ? bar->editorViewController() : HostObject();
  const Value& response = data[keyVnAPIResponse];
  if (bar) {
    bar->setActionResultData(response);
    bar->onUIChanged(VnUINotMeeting);
  }
  notifyActionResultToCalActionMgr(response);
  updateVnMeetingInfoToAppointmentForDelete(editor, response);
  clearAllSavedData();
  scheduleCloseOLAppointment(editor);
}

void vnMeetingMgr::updateVnMeetingInfoToAppointmentForDelete(const HostObject& editor, const Value& response) {
  vnERCalendarEventEditorViewController proxy(editor);
  // A delete on the calendar has no editor to write into, and must leave nothing for the next appointment that is
  // stored.
  if (!proxy.isValidConnection()) return;
  // Where no bookmarks are found, nothing is left of a body. One that has not got its invitation yet has none, and
  // keeps what the user wrote.
  if (!m_firstInvitationIsDue) {
    m_emailBodyMgr->updateMailBody(editor, response[vn_API_Para_InvitationEmail].optionalText(), true, false);
  }
  // The empty text clears the stored record.
  proxy.saveVnDataToOLProperty("");

  vnECCalendarEvent* event = proxy.ecCalendarEvent();
  OptionalText shown = proxy.getLocationFromUI();
  if (!shown && event) shown = event->location();
  std::string location = shown.value_or("");
  for (const std::string& url : m_meetingDataMgr->usedJoinUrlsList()) {
    const std::size_t at = findText(location, url);
    if (at == std::string::npos) continue;
    // Everything behind a URL is lost here, and so is every separator that remains.
    location = replacingAll(std::string_view(location).substr(0, at), "; ", "");
  }
  if (event) event->setLocation(location);
  if (const auto bar = barOfEditor(editor)) {
    ApptSaveData& save = vnApptDataForSaveRecord::sharedInstance().of(bar);
    save.setOLNewLocation(location);
    save.setNeedClearLocation(true);
  }
  proxy.updateLocationFieldFromUI(location);
  proxy.setLocation(location);
}

// -- The host's operation, made again ----------------------------------------------------------------------------

void vnMeetingMgr::scheduleCloseOLAppointment(const HostObject& editor) {
  Registry::platform().runLoop->performAfter(0, this, "closeOLAppointment:", [weak = weak_from_this(), editor] {
    if (const auto self = weak.lock()) self->closeOLAppointment(editor);
  });
}

void vnMeetingMgr::closeOLAppointment(const HostObject& editor) {
  m_meetingDataMgr->setOldForceIncludeJoinurlInLocation(m_meetingDataMgr->forceIncludeJoinUrlInLocation());
  m_meetingDataMgr->setOldSelectInvitationLanguage(m_meetingDataMgr->selectInvitationLanguage());
  const auto bar = editor ? barOfEditor(editor) : nullptr;
  if (!bar) {
    if (isDragAndMove()) clearAllSavedData();
    return;
  }

  vnERCalendarEventEditorViewController proxy(editor);
  renewBodyToStore(proxy);
  const int action = bar->olUIAction();
  const bool uuidWasMissing = getApptUUID(editor).value_or("").empty();
  const HostObject parentWindow = vnMeetingCommon::getPluginParentWindow(bar.get());
  const Value meetingData = getVornMeetingData(editor);
  const vnECCalendarEvent event(proxy.content());
  const auto tellUUID = [&] {
    // The host's operation may have closed the window. Its editor shows no event then, but the event itself lasts
    // until the host's call has unwound, and it has just got its UUID.
    OptionalText uuid = getApptUUID(editor);
    if (!uuid) uuid = event.UUID();
    updateApptUUIDToMeeting(parentWindow, uuid, meetingData, uuidWasMissing);
  };
  // Nothing when the host's method raised. That ends the replay, as it would if nobody caught it: the window stays
  // open with what the user has typed.
  const auto replay = [&](std::string_view selector, const Arguments& arguments) -> std::optional<Value> {
    if (!proxy.isValidConnection()) return Value();
    Answer answer = Registry::platform().classRuntime->call(editor, selector, arguments);
    if (answer.raised) return std::nullopt;
    return std::move(answer.value);
  };
  const auto replayAndTellUUID = [&](std::string_view selector, const Arguments& arguments) {
    const std::optional<Value> result = replay(selector, arguments);
    if (result) tellUUID();
    return result;
  };
  const auto replayAndClose = [&](std::string_view selector, const Arguments& arguments) {
    convertMailBodyFormat(editor);
    const std::optional<Value> result = replayAndTellUUID(selector, arguments);
    // An appointment that the host could not store stays open with what the user has typed.
    if (!result || (result->isPresent() && result->integerValue() == kNotClosed)) return;
    // Asked for only now: a window that the host has closed by itself has no bar in it, and is left alone.
    const HostObject windowController = bar->editorWindowController();
    if (!windowController) return;
    Registry::platform().runLoop->performAfter(0, this, "close", [windowController] {
      Registry::platform().classRuntime->send(windowController, "close");
    });
  };

  const RunningSave ofThisWindow(bar);
  if (!proxy.attendeeList().items().empty()) {
    // With attendees only a send is made again. An appointment that was saved and not sent stays open with its
    // data written.
    if (action == VnApptActionSend) {
      convertMailBodyFormat(editor);
      replayAndTellUUID(kHostSend, {});
    }
    return;
  }
  switch (action) {
    case VnApptActionSave: replay(kHostSaveColon, {Value()}); break;
    case VnApptActionSaveAndClose: replayAndClose(kHostSaveAndCloseWindow, {true}); break;
    case VnApptActionSaveAndCloseReturnError: replayAndClose(kHostSaveAndCloseReturnError, {true, Value()}); break;
    case VnApptActionAutoUpdate: replayAndTellUUID(kHostSave, {}); break;
    default: break;
  }
}

OptionalText vnMeetingMgr::getApptUUID(const HostObject& editor) {
  vnERCalendarEventEditorViewController proxy(editor);
  const vnECCalendarEvent* event = proxy.ecCalendarEvent();
  return event ? event->UUID() : std::nullopt;
}

void vnMeetingMgr::convertMailBodyFormat(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  if (!bar || !bar->fromFieldChanged()) return;
  vnERCalendarEventEditorViewController proxy(editor);
  vnECCalendarEvent* event = proxy.ecCalendarEvent();
  proxy.convertBodyContentFormat(!(event && event->shouldDisableCalendarHTMLBody()));
}

void vnMeetingMgr::updateApptUUIDToMeeting(const HostObject& parentWindow, const OptionalText& apptUUID,
                                           const Value& meetingData, bool needUpdate) {
  const std::string& key = meetingData[vn_MeetingKey].text();
  if (!needUpdate || meetingData.count() == 0 || apptUUID.value_or("").empty() || key.empty() || key == "0")
    return;
  Value data = meetingData;
  Value apptInfo = data[vn_Outlook_ApptInfo];
  apptInfo.set(vn_ApptInfo_OlApptUUID, apptUUID);
  data.set(vn_Outlook_ApptInfo, apptInfo);
  data.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  m_apiMgr->updateMeeting(parentWindow, data);
}

// -- Whose meeting it is -----------------------------------------------------------------------------------------

bool vnMeetingMgr::checkScheduleOwnerMatched(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  if (!bar || !bar->currentIsVornMeeting() || !bar->isSupportVorn()) return true;
  vnERCalendarEventEditorViewController proxy(editor);
  if (!proxy.isValidConnection() || !needCheckOwnerMatched(editor) || !vnPluginBuildMgr::supportScheduleFor()) {
    return true;
  }
  const std::string current = proxy.currentEmailAddress().value_or("");
  const bool onBehalf = proxy.isOnBehalf();
  if (onBehalf && !current.empty() && !vnOnbehalfData::sharedInstance().hasSchedulePermission(current))
    return true;
  const std::string scheduledFor = m_meetingDataMgr->scheduleForEmail().value_or("");
  // For a meeting of somebody else no mismatch is ever found: the comparison only confirms what already stands.
  return scheduledFor.empty() ? !onBehalf : true;
}

bool vnMeetingMgr::needCheckOwnerMatched(const HostObject& editor) {
  vnERCalendarEventEditorViewController proxy(editor);
  vnECCalendarEvent* event = proxy.ecCalendarEvent();
  if (!event) return true;
  // Only a meeting that has not been stored yet is checked.
  const Value record = event->getVnOIData();
  if (!record.isText() || record.text().empty()) return true;
  return !vnOLUtils::toArrayOrNSDictionary(record.optionalText()).contains(vn_OLProperty_MeetingKey);
}

}  // namespace vorn
