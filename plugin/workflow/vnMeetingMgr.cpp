#include "workflow/vnMeetingMgr.h"

#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAlertHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "invitation/vnBodyHelper.h"
#include "licence/vnLicencePolicy.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "util/vnMd5Utils.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnOnbehalfData.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

struct SharedManager {
  std::shared_ptr<vnMeetingMgr> manager = vnMeetingMgr::create();
};

}  // namespace

std::shared_ptr<vnMeetingMgr> vnMeetingMgr::create() {
  auto manager = std::make_shared<vnMeetingMgr>(Key());
  manager->observeNotifications();
  return manager;
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgr::sharedInstance() { return Registry::shared<SharedManager>().manager; }

vnMeetingMgr::vnMeetingMgr(Key)
    : m_meetingDataMgr(std::make_unique<vnMeetingDataMgr>()),
      m_emailBodyMgr(std::make_unique<vnEmailBodyMgr>()),
      m_pacMeetingMgr(std::make_unique<vnPACMeetingMgr>()),
      m_apiMgr(std::make_unique<vnAPIMgr>()),
      m_getMeetingHelper(std::make_unique<vnGetMeetingHelper>()),
      m_scheduleErrorMsg(std::make_unique<vnScheduleErrorMessage>()) {
  m_emailBodyMgr->setMeetingMgrInstance(this);
  m_pacMeetingMgr->setMeetingMgr(this);
  m_apiMgr->setMeetingMgrInstance(this);
}

vnMeetingMgr::~vnMeetingMgr() { freeAllObjects(); }

void vnMeetingMgr::freeAllObjects() {
  m_meetingDataMgr.reset();
  m_emailBodyMgr.reset();
  m_pacMeetingMgr.reset();
  m_apiMgr.reset();
  m_getMeetingHelper.reset();
  m_scheduleErrorMsg.reset();
}

void vnMeetingMgr::observeNotifications() {
  NotificationCenter* center = Registry::platform().notificationCenter;
  if (!center) return;
  using UserInfo = const Value&;
  const auto observe = [&](std::string_view name, auto handler, const void* object = nullptr) {
    m_subscriptions.push_back(center->observe(
        name, [handler](const NotificationCenter::Notification& note) { handler(note.userInfo); }, object));
  };
  observe(notify_SettingCommit, [this](UserInfo info) { m_settingsFlow.onInvokeSettingCommit(info); });
  observe(
      notify_ScheduleErrorMessage_Commit,
      [this](UserInfo info) { m_saveRoad.onInvokeScheduleErrorMessageCommit(info); }, m_scheduleErrorMsg.get());
  observe(notify_Schedule_AlternateHostError,
          [](UserInfo info) { CommitRefusal::onInvokeScheduleAlternateHostError(info); });
  observe(notify_Commit_ChooseAnotherTemplate,
          [this](UserInfo info) { m_commitRefusal.onInvokeCommitChooseAnotherTemplate(info); });
}

void vnMeetingMgr::cleanup() {
  m_subscriptions.clear();
  m_finish.cancel();
  m_calendarEdits.cleanup();
  clearAllSavedData();
  if (const auto bar = vnMeetingMgrMonitor::getVnViewByMeetingMgr(this)) {
    vnApptDataForSaveRecord::sharedInstance().cleanupOLWordMailEditor(bar->olWordMailEditor());
    vnApptDataForSaveRecord::sharedInstance().cleanup(bar.get());
  }
  m_bOpenFromVornClient = false;
  m_meetingDataMgr->cleanup();
  m_apiMgr->cleanup();
  m_getMeetingHelper->cleanup();
  m_scheduleErrorMsg->cleanup();
}

void vnMeetingMgr::clearAllSavedData() {
  // What an earlier edit on the calendar has left is the newest one's by now, whose own end clears it.
  if (m_calendarEdits.editUnderWay().isPresent()) return;
  m_bIsDragAndMove = false;
  m_bIsForceUpdate = true;
  m_writeBack.startOver();
  m_settingsFlow.commitStands();
  m_meetingDataMgr->clearSavedMeetingData();
  m_getMeetingHelper->forgetMeeting();
  // The profile is the whole process's: clearing it for one window makes every other window fetch it again, which
  // meanwhile goes by the last one.
  vnUserProfileHelper::sharedInstance().clearUserProfile();
}

// -- Commands and replies ----------------------------------------------------------------------------------------

namespace {

void traceCommand(std::uint64_t command) {
  traceStep("command", [&] {
    return Value::dictionaryFromPairs({{"number", command}, {"name", nameOfMeetingCommand(command)}});
  });
}

}  // namespace

int vnMeetingMgr::sendVnMeetingCommand(std::uint64_t command, const std::shared_ptr<MeetingBar>& bar) {
  m_vnMeetingAction = command;
  traceCommand(command);
  MeetingWindow window = MeetingWindow::ofBar(bar);
  switch (command) {
    case VnCmdAdd: setState(VnStateAdding); return m_settingsFlow.addVornMeeting(window);
    case VnCmdChangeSettings: setState(VnStateChanging); return m_settingsFlow.changeSettings(window);
    case VnCmdCancel: return m_settingsFlow.cancelVornMeeting(window);
    case VnCmdAddPACAccount1:
    case VnCmdAddPACAccount2:
      setState(VnStatePAC);
      return m_pacMeetingMgr->addPACMeeting(window, command == VnCmdAddPACAccount2 ? 2 : 1);
    default: return 0;
  }
}

int vnMeetingMgr::sendVnMeetingCommand(std::uint64_t command, const HostObject& editor) {
  m_vnMeetingAction = command;
  traceCommand(command);
  MeetingWindow window = MeetingWindow::ofEditor(editor);
  switch (command) {
    case VnCmdSchedule:
    case VnCmdUpdate: setState(VnStateCommitting); return m_saveRoad.scheduleUpdateVornMeeting(window, command);
    case VnCmdDelete: return m_saveRoad.deleteVornMeeting(window);
    case VnCmdStartWithVideo:
    case VnCmdStartWithoutVideo: return m_apiMgr->startMeeting(command == VnCmdStartWithVideo);
    case VnCmdGetMeetingByApptUUID:
      setState(VnStateLoadByApptUUID);
      m_opening.getMeetingByApptUUID(window);
      return 0;
    default: return 0;
  }
}

int vnMeetingMgr::onExcuteCommandFinished(std::uint64_t command, const Value& data) {
  // A handler may end the window's last hold on this manager.
  const auto keepAlive = shared_from_this();
  traceStep("finished", [&] {
    return Value::dictionaryFromPairs({{"number", command}, {"name", nameOfMeetingCommand(command)}});
  });
  switch (command) {
    case VnCmdAdd:
    case VnCmdCancel: m_settingsFlow.onAddCancelVornMeetingFinished(command, data); break;
    case VnCmdChangeSettings: m_settingsFlow.onChangeSettingFinished(data); break;
    case VnCmdSchedule:
    case VnCmdUpdate:
      if (m_calendarEdits.editUnderWay().isAbsent()) setState(VnStateCommitted);
      m_saveRoad.onSchdulerActionFinished(command, data);
      break;
    case VnCmdDelete: m_saveRoad.onDeleteActionFinished(data); break;
    case VnCmdGetMeeting: m_saveRoad.onGetMeetingActionFinished(data); break;
    case VnCmdGetUserProfile: m_settingsFlow.onGetUserProfileActionFinished(data); break;
    case VnCmdGetPAC: m_pacMeetingMgr->onGetPACActionFinished(data); break;
    case VnCmdGetMeetingByApptUUID:
      if (state() == VnStateUpdateOnCalendar)
        m_calendarEdits.replayUpdateOnCalendar();
      else
        m_opening.onGetMeetingByApptUUIDActionFinished(data);
      break;
    case VnCmdGetScheduleForList: m_settingsFlow.onGetScheduleForListFinished(data); break;
    default: break;
  }
  return 0;
}

// -- Licence and plan --------------------------------------------------------------------------------------------

bool vnMeetingMgr::checkIfShowNoMeetingLicenseWindow(const HostObject& parentWindow) {
  if (!vnUserProfileHelper::sharedInstance().isNoMeetingLicenseUser()) return false;
  m_apiMgr->showNoMeetingLicenseWindow(parentWindow);
  return true;
}

bool vnMeetingMgr::hasScheduleError(const HostObject& editor) {
  if (!durationExceedThanMaxMins(editor) || m_scheduleErrorMsg->notShowMessageAgain()) return false;
  const MeetingWindow window = MeetingWindow::ofEditor(editor);
  m_scheduleErrorMsg->setOLApptWindowID(window.id());
  m_scheduleErrorMsg->showMessage(window.parentWindow());
  return true;
}

bool vnMeetingMgr::durationExceedThanMaxMins(const HostObject& editor) {
  vnERCalendarEventEditorViewController proxy(editor);
  const vnECCalendarEvent* event = proxy.ecCalendarEvent();
  const Value duration = event ? Value(event->getVnDuration()) : Value();
  return vnLicencePolicy::isLongerThanPlanAllows(vnUserProfileHelper::sharedInstance().userType(),
                                                 duration.integerValue());
}

// -- Small views of the working data -----------------------------------------------------------------------------

OptionalText vnMeetingMgr::getVornMeetingKey() { return m_meetingDataMgr->meetingKey(); }

std::string vnMeetingMgr::getInvitationLanguage() {
  return m_meetingDataMgr->selectInvitationLanguage().value_or("");
}

bool vnMeetingMgr::isForUpdateVornMeeting() { return m_meetingDataMgr->isVornMeeting(); }

OptionalText vnMeetingMgr::getVnDataForOLProperty() {
  return m_meetingDataMgr->getVnDataForOLProperty(m_getMeetingHelper->getMeetingInfo());
}

OptionalText vnMeetingMgr::getEncodeMail() {
  const OptionalText invitation =
      m_getMeetingHelper->supportHtmlEmail()
          ? vnBodyHelper::sharedInstance().convertHTMLToPlainText(m_getMeetingHelper->getInviteHtmlEmail())
          : m_getMeetingHelper->getInviteEmail();
  return vnMd5Utils::vnMD5Hex(invitation);
}

Value vnMeetingMgr::getVornMeetingData(MeetingWindow& window) {
  Value data = m_meetingDataMgr->getVnSchMeetingData(window);
  const auto& bar = window.bar();
  if (!bar) return data;
  data.set(keyApptWindowID, bar->getAppointmentWindowID());
  data.set(keyEventOwnerWindow, bar->editorViewWindow());
  return data;
}

Value vnMeetingMgr::getVornMeetingData(const HostObject& editor) {
  MeetingWindow window = MeetingWindow::ofEditor(editor);
  return getVornMeetingData(window);
}

MeetingWindow vnMeetingMgr::ownWindow() {
  return MeetingWindow::ofBar(vnMeetingMgrMonitor::getVnViewByMeetingMgr(this));
}

// -- For the commands and the body engine ------------------------------------------------------------------------

OptionalText vnMeetingMgr::meetingKey() { return m_meetingDataMgr->meetingKey(); }

void vnMeetingMgr::setMeetingKey(const OptionalText& key) { m_meetingDataMgr->setMeetingKey(key); }

OptionalText vnMeetingMgr::scheduleForEmail() { return m_meetingDataMgr->scheduleForEmail(); }

void vnMeetingMgr::setScheduleForEmail(const OptionalText& email) { m_meetingDataMgr->setScheduleForEmail(email); }

void vnMeetingMgr::changeUIWithScheduleForEmainError(const HostObject& parentWindow) {
  CommitRefusal::changeUIWithScheduleForEmainError(parentWindow);
}

void vnMeetingMgr::showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) {
  m_commitRefusal.showSettingsWindowWithCommitError(parentWindow, errorCode);
}

void vnMeetingMgr::resetMeetingItemWhenUpdateError(const HostObject& parentWindow) {
  m_commitRefusal.resetMeetingItemWhenUpdateError(parentWindow);
}

Value vnMeetingMgr::getSiteMeetingInfo(const OptionalText& windowId) {
  return CommitRefusal::getSiteMeetingInfo(windowId);
}

void vnMeetingMgr::showCommitWarning(const HostObject& parentWindow, const Value& meetingData) {
  CommitRefusal::showCommitWarning(parentWindow, meetingData);
}

std::string vnMeetingMgr::getDisplayNameWithOnbehalfEmail(const std::string& email) {
  return vnOnbehalfData::sharedInstance().getDisplayNameWithOnbehalfEmail(email);
}

void vnMeetingMgr::showNoMeetingLicenseWindow(const HostObject& parentWindow) {
  vnAlertHelper::sharedInstance().showAlertMessage(parentWindow, localizedString("NoMeetingLicense"));
}

bool vnMeetingMgr::putInvitationAtTheTop() { return m_meetingDataMgr->putInvitationAtTheTop(); }

OptionalText vnMeetingMgr::encodeMailBody() { return m_meetingDataMgr->encodeMailBody(); }

OptionalText vnMeetingMgr::getMailBodyWithVornContentFor1520(const OptionalText& sourceBody,
                                                             const OptionalText& vnEmailBody, bool isHTMLBody) {
  return m_emailBodyMgr->getMailBodyContentWithVorn(sourceBody, vnEmailBody, isHTMLBody);
}

}  // namespace vorn
