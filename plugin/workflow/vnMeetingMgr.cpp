#include "workflow/vnMeetingMgr.h"

#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAlertHelper.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "invitation/vnBodyHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/TraceStep.h"
#include "util/vnMd5Utils.h"
#include "workflow/vnActionAdditionViewMonitor.h"
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
      m_apiMgr(std::make_unique<vnAPIMgr>()),
      m_getMeetingHelper(std::make_unique<vnGetMeetingHelper>()),
      m_scheduleErrorMsg(std::make_unique<vnScheduleErrorMessage>()) {
  m_emailBodyMgr->setMeetingMgrInstance(this);
  m_apiMgr->setMeetingMgrInstance(this);
}

vnMeetingMgr::~vnMeetingMgr() {
  if (RunLoop* loop = Registry::platform().runLoop) loop->cancelPrevious(this);
  freeAllObjects();
}

void vnMeetingMgr::freeAllObjects() {
  m_meetingDataMgr.reset();
  m_emailBodyMgr.reset();
  m_apiMgr.reset();
  m_getMeetingHelper.reset();
  m_scheduleErrorMsg.reset();
}

void vnMeetingMgr::observeNotifications() {
  NotificationCenter* center = Registry::platform().notificationCenter;
  if (!center) return;
  const auto observe = [&](std::string_view name, void (vnMeetingMgr::*handler)(const Value&),
                           const void* object = nullptr) {
    m_subscriptions.push_back(center->observe(
        name, [this, handler](const NotificationCenter::Notification& note) { (this->*handler)(note.userInfo); },
        object));
  };
  observe(notify_SettingCommit, &vnMeetingMgr::onInvokeSettingCommit);
  observe(notify_ScheduleErrorMessage_Commit, &vnMeetingMgr::onInvokeScheduleErrorMessageCommit,
          m_scheduleErrorMsg.get());
  observe(notify_Schedule_AlternateHostError, &vnMeetingMgr::onInvokeScheduleAlternateHostError);
  observe(notify_Commit_ChooseAnotherTemplate, &vnMeetingMgr::onInvokeCommitChooseAnotherTemplate);
}

void vnMeetingMgr::cleanup() {
  m_subscriptions.clear();
  Registry::platform().runLoop->cancelPrevious(this);
  clearAllSavedData();
  if (const auto bar = ownBar()) {
    vnApptDataForSaveRecord::sharedInstance().cleanupOLWordMailEditor(bar->olWordMailEditor());
    vnApptDataForSaveRecord::sharedInstance().cleanup(bar.get());
  }
  m_bOpenFromVornClient = false;
  m_meetingDataMgr->cleanup();
  m_apiMgr->cleanup();
  m_getMeetingHelper->cleanup();
  m_scheduleErrorMsg->cleanup();
  m_updatedMeetingDataOnCalendar = Value();
}

void vnMeetingMgr::clearAllSavedData() {
  m_bIsDragAndMove = false;
  m_bIsForceUpdate = true;
  m_firstInvitationIsDue = false;
  m_meetingDataMgr->clearSavedMeetingData();
  m_getMeetingHelper->setMeetingData(Value::dictionaryFromPairs({{vn_MeetingKey, ""}}), false);
  // The profile is the whole process's: clearing it for one window makes every other window fetch it again.
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
  switch (command) {
    case VnCmdAdd: setState(VnStateAdding); return addVornMeeting(bar);
    case VnCmdChangeSettings: setState(VnStateChanging); return changeSettings(bar);
    case VnCmdCancel: return cancelVornMeeting(bar);
    case VnCmdAddPACAccount1:
    case VnCmdAddPACAccount2:
      // Nobody answers for personal audio conferences yet.
      setState(VnStatePAC);
      return 0;
    default: return 0;
  }
}

int vnMeetingMgr::sendVnMeetingCommand(std::uint64_t command, const HostObject& editor) {
  m_vnMeetingAction = command;
  traceCommand(command);
  switch (command) {
    case VnCmdSchedule:
    case VnCmdUpdate: setState(VnStateCommitting); return scheduleUpdateVornMeeting(editor, command);
    case VnCmdDelete: return deleteVornMeeting(editor);
    case VnCmdStartWithVideo:
    case VnCmdStartWithoutVideo: return m_apiMgr->startMeeting(command == VnCmdStartWithVideo);
    case VnCmdGetMeetingByApptUUID:
      setState(VnStateLoadByApptUUID);
      getMeetingByApptUUID(editor);
      return 0;
    default: return 0;
  }
}

int vnMeetingMgr::sendVnMeetingCommand(std::uint64_t command, const Value& meetingData) {
  const HostObject ownerWindow = meetingData[keyEventOwnerWindow].object();
  setIsDragAndMove(meetingData[keyDragAndMoveOnCalendar].boolValue());
  HostObject parentWindow = ownerWindow;
  if (const auto bar = barOfReply(meetingData)) {
    parentWindow = vnMeetingCommon::getPluginParentWindow(bar.get());
    if (isDragAndMove()) bar->setOLUIAction(VnApptActionCalendarEdit);
  }
  m_meetingDataMgr->setSavedApptInfo(meetingData[vn_Outlook_ApptInfo]);
  m_meetingDataMgr->setMeetingKey(meetingData[vn_MeetingKey].optionalText());

  int refused = 0;
  if (command == VnCmdDelete) {
    // The owner window and not the parent: a delete on the calendar is answered to the calendar.
    refused = m_apiMgr->deleteMeeting(ownerWindow, meetingData);
  } else if (command == VnCmdUpdate) {
    setState(VnStateCommitting);
    refused = m_apiMgr->getMeeting(parentWindow, meetingData);
  }
  return refused != 0 ? 1 : 0;
}

int vnMeetingMgr::onExcuteCommandFinished(std::uint64_t command, const Value& data) {
  // A handler may end the window's last hold on this manager.
  const auto keepAlive = shared_from_this();
  traceStep("finished", [&] {
    return Value::dictionaryFromPairs({{"number", command}, {"name", nameOfMeetingCommand(command)}});
  });
  switch (command) {
    case VnCmdAdd:
    case VnCmdCancel: onAddCancelVornMeetingFinished(command, data); break;
    case VnCmdChangeSettings: onChangeSettingFinished(data); break;
    case VnCmdSchedule:
    case VnCmdUpdate:
      setState(VnStateCommitted);
      onSchdulerActionFinished(command, data);
      break;
    case VnCmdDelete: onDeleteActionFinished(data); break;
    case VnCmdGetMeeting: onGetMeetingActionFinished(data); break;
    case VnCmdGetUserProfile: onGetUserProfileActionFinished(data); break;
    case VnCmdGetMeetingByApptUUID: onGetMeetingByApptUUIDActionFinished(data); break;
    case VnCmdGetScheduleForList: onGetScheduleForListFinished(data); break;
    default: break;
  }
  return 0;
}

std::shared_ptr<MeetingBar> vnMeetingMgr::ownBar() { return vnMeetingMgrMonitor::getVnViewByMeetingMgr(this); }

std::shared_ptr<MeetingBar> vnMeetingMgr::barOfReply(const Value& data) {
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByApptWindowID(
      data[keyApptWindowID].optionalText());
}

bool vnMeetingMgr::checkIfShowNoMeetingLicenseWindow(const HostObject& parentWindow) {
  if (!vnUserProfileHelper::sharedInstance().isNoMeetingLicenseUser()) return false;
  m_apiMgr->showNoMeetingLicenseWindow(parentWindow);
  return true;
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

Value vnMeetingMgr::getVornMeetingData(const HostObject& editor) {
  Value data = m_meetingDataMgr->getVnSchMeetingData(editor);
  const auto bar = vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
  if (!bar) return data;
  data.set(keyApptWindowID, bar->getAppointmentWindowID());
  data.set(keyEventOwnerWindow, bar->editorViewWindow());
  return data;
}

bool vnMeetingMgr::isMeetingChanged(const Value& meetingData, const Value& oldMeetingInfo) {
  return vnMeetingDataMgr::isMeetingChanged(meetingData, oldMeetingInfo);
}

// -- For the commands and the body engine ------------------------------------------------------------------------

OptionalText vnMeetingMgr::meetingKey() { return m_meetingDataMgr->meetingKey(); }

void vnMeetingMgr::setMeetingKey(const OptionalText& key) { m_meetingDataMgr->setMeetingKey(key); }

OptionalText vnMeetingMgr::scheduleForEmail() { return m_meetingDataMgr->scheduleForEmail(); }

void vnMeetingMgr::setScheduleForEmail(const OptionalText& email) { m_meetingDataMgr->setScheduleForEmail(email); }

std::string vnMeetingMgr::getDisplayNameWithOnbehalfEmail(const std::string& email) {
  return vnOnbehalfData::sharedInstance().getDisplayNameWithOnbehalfEmail(email);
}

void vnMeetingMgr::showNoMeetingLicenseWindow(const HostObject& parentWindow) {
  const std::string message = localizedString("NoMeetingLicense");
  traceStep("alert", [&] { return Value::dictionaryFromPairs({{"message", message}}); });
  vnAlertHelper::sharedInstance().showAlertMessage(parentWindow, message);
}

bool vnMeetingMgr::putInvitationAtTheTop() { return m_meetingDataMgr->putInvitationAtTheTop(); }

OptionalText vnMeetingMgr::encodeMailBody() { return m_meetingDataMgr->encodeMailBody(); }

OptionalText vnMeetingMgr::getMailBodyWithVornContentFor1520(const OptionalText& sourceBody,
                                                             const OptionalText& vnEmailBody, bool isHTMLBody) {
  return m_emailBodyMgr->getMailBodyContentWithVorn(sourceBody, vnEmailBody, isHTMLBody);
}

}  // namespace vorn
