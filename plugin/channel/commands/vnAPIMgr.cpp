#include "channel/commands/vnAPIMgr.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/vnAPICommitMeeting.h"
#include "channel/commands/vnAPIDeleteMeeting.h"
#include "channel/commands/vnAPIGetMeeting.h"
#include "channel/commands/vnAPIGetMeetingByApptUUID.h"
#include "channel/commands/vnAPIGetPAC.h"
#include "channel/commands/vnAPIGetScheduleForList.h"
#include "channel/commands/vnAPIGetUserProfile.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAPIStartMeeting.h"
#include "channel/store/vnMeetingCommon.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "platform/Registry.h"

namespace vorn {

vnAPIMgr::vnAPIMgr()
    : m_apiScheduleMeeting(std::make_shared<vnAPICommitMeeting>()),
      m_apiUpdateMeeting(std::make_shared<vnAPICommitMeeting>()),
      m_apiGetMeeting(std::make_shared<vnAPIGetMeeting>()),
      m_apiGetUserProfile(std::make_shared<vnAPIGetUserProfile>()),
      m_apiDeleteMeeting(std::make_shared<vnAPIDeleteMeeting>()),
      m_apiGetMeetingByApptUUID(std::make_shared<vnAPIGetMeetingByApptUUID>()),
      m_apiGetPAC(std::make_shared<vnAPIGetPAC>()),
      m_apiGetScheduleForList(std::make_shared<vnAPIGetScheduleForList>()),
      m_self(std::make_shared<vnAPIMgr*>(this)) {
  initIPCChannel();
}

vnAPIMgr::~vnAPIMgr() { cleanup(); }

void vnAPIMgr::initIPCChannel() {
  const Platform& platform = Registry::platform();
  if (!vnIPCChannel::canUseIPC_Notification()) {
    m_socketReplies = platform.notificationCenter->observe(
        NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN,
        [this](const NotificationCenter::Notification& reply) { onMessageResponse(reply.userInfo); });
  } else if (platform.distributedNotifications) {
    vnIPCChannel::traceNotifications();
    m_distributedReplies = platform.distributedNotifications->observe(
        kIPCNotifyVornClientToOutlookPlugin, [this](const Value& userInfo) { onMessageResponse(userInfo); });
  }
}

template <typename Act>
void vnAPIMgr::forEachCommand(Act act) {
  forEachCommandOfTheService(*this, act);
  act(m_apiGetUserProfile);
  act(m_apiGetMeetingByApptUUID);
  act(m_apiGetPAC);
  act(m_apiGetScheduleForList);
}

template <typename Manager, typename Act>
void vnAPIMgr::forEachCommandOfTheService(Manager& manager, Act act) {
  act(manager.m_apiScheduleMeeting);
  act(manager.m_apiUpdateMeeting);
  act(manager.m_apiGetMeeting);
  act(manager.m_apiDeleteMeeting);
}

void vnAPIMgr::setMeetingMgrInstance(MeetingCommandOwner* meetingMgr) {
  m_pMeetingMgr = meetingMgr;
  forEachCommand([&](const auto& command) {
    if (command) command->setMeetingMgr(meetingMgr);
  });
}

void vnAPIMgr::cleanup() {
  // A handler that is at work keeps its command, which must not find the manager any more.
  setMeetingMgrInstance(nullptr);
  forEachCommand([](auto& command) { command.reset(); });
}

int vnAPIMgr::startMeeting(bool video) { return vnAPIStartMeeting::sharedInstance().doAction(video); }

int vnAPIMgr::scheduleMeeting(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiScheduleMeeting;
  if (!command) return 0;
  command->setData(data);
  command->setMsgParamAction(InnerOperation::kSchedule);
  return command->doAction(parentWindow);
}

int vnAPIMgr::updateMeeting(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiUpdateMeeting;
  if (!command) return 0;
  const Value& showsSheet = data[vn_API_Call_Para_ShowCommunicationDlg];
  command->setData(data);
  command->setMsgParamAction(InnerOperation::kUpdate);
  command->setShowCommunicationDlg(showsSheet.isAbsent() || showsSheet.boolValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::deleteMeeting(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiDeleteMeeting;
  if (!command) return 0;
  command->setData(data[vn_MeetingKey].stringValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::getUserProfile(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiGetUserProfile;
  if (!command) return 0;
  command->setShowCommunicationDlg(data[vn_API_Call_Para_ShowCommunicationDlg].boolValue());
  command->setSilentAPIError(data[vn_API_Call_Para_SilentAPIError].boolValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::getMeeting(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiGetMeeting;
  if (!command) return 0;
  command->setShowCommunicationDlg(data[vn_API_Call_Para_ShowCommunicationDlg].boolValue());
  command->setData(data[vn_MeetingKey].stringValue(),
                   data[vn_Setting][vn_Setting_SelectInvitationLanguage].stringValue());
  command->setForPMI(data[vn_API_Call_Para_ForPMI].boolValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::getPAC(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiGetPAC;
  if (!command) return 0;
  command->setShowCommunicationDlg(data[vn_API_Call_Para_ShowCommunicationDlg].boolValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::getMeetingByApptUUID(const HostObject& parentWindow, const Value& data) {
  const auto command = m_apiGetMeetingByApptUUID;
  if (!command) return 0;
  command->setShowCommunicationDlg(data[vn_API_Call_Para_ShowCommunicationDlg].boolValue());
  command->setData(data[vn_ApptInfo_OlApptUUID].stringValue());
  return command->doAction(parentWindow);
}

int vnAPIMgr::getNewMeetingDefault(const HostObject& parentWindow) {
  const auto command = m_apiGetMeeting;
  if (!command) return 0;
  command->setShowCommunicationDlg(false);
  command->setData("new", "");
  return command->doAction(parentWindow);
}

int vnAPIMgr::getScheduleForList(const HostObject& parentWindow) {
  const auto command = m_apiGetScheduleForList;
  if (!command) return 0;
  command->setShowCommunicationDlg(false);
  return command->doAction(parentWindow);
}

namespace {

// After cleanup() there is no command, and nothing is waited for.
template <typename Command>
bool waits(const std::shared_ptr<Command>& command) {
  return command && command->isWaiting();
}

template <typename Command>
bool mayBeAnswered(const std::shared_ptr<Command>& command) {
  return command && command->mayBeAnswered();
}

template <typename Command>
void letGo(const std::shared_ptr<Command>& command) {
  if (command) command->letGo();
}

}  // namespace

void vnAPIMgr::letGoOfMeeting() { letGo(m_apiGetMeeting); }

void vnAPIMgr::letGoOfUpdate() { letGo(m_apiUpdateMeeting); }

void vnAPIMgr::letGoOfDelete() { letGo(m_apiDeleteMeeting); }

bool vnAPIMgr::isWaitingForMeeting() const { return waits(m_apiGetMeeting); }

bool vnAPIMgr::isWaitingForMeetingByApptUUID() const { return waits(m_apiGetMeetingByApptUUID); }

bool vnAPIMgr::isWaitingForDelete() const { return waits(m_apiDeleteMeeting); }

bool vnAPIMgr::isWaitingForUserProfile() const { return waits(m_apiGetUserProfile); }

bool vnAPIMgr::isWaitingForTheService() const {
  bool isWaiting = false;
  forEachCommandOfTheService(*this, [&](const auto& command) { isWaiting = isWaiting || waits(command); });
  return isWaiting;
}

bool vnAPIMgr::mayAnswerCommit() const {
  return mayBeAnswered(m_apiScheduleMeeting) || mayBeAnswered(m_apiUpdateMeeting);
}

bool vnAPIMgr::mayAnswerFetch() const {
  return mayBeAnswered(m_apiGetMeeting) || mayBeAnswered(m_apiGetUserProfile);
}

void vnAPIMgr::letGoOfTheService() {
  forEachCommandOfTheService(*this, [](const auto& command) { letGo(command); });
}

bool vnAPIMgr::isWaitingForScheduleForList() const { return waits(m_apiGetScheduleForList); }

void vnAPIMgr::showNoMeetingLicenseWindow(const HostObject& parentWindow) {
  if (m_pMeetingMgr) m_pMeetingMgr->showNoMeetingLicenseWindow(parentWindow);
}

void vnAPIMgr::sendResponseToMeetingMgr(const HostObject& parentWindow, std::uint64_t command, const Value& data) {
  if (!m_pMeetingMgr) return;
  Value response = Value::dictionary();
  response.set(keyVnAPIResponse, data);
  response.set(keyApptWindowID, vnMeetingCommon::getApptWindowIDByWindow(parentWindow));
  m_pMeetingMgr->onExcuteCommandFinished(command, response);
}

void vnAPIMgr::onMessageResponse(const Value& userInfo) { handleMessageRespose(userInfo); }

void vnAPIMgr::handleMessageRespose(const Value& userInfo) {
  const Value envelope = userInfo;
  const std::weak_ptr<vnAPIMgr*> self = m_self;
  const auto result = readReply(vnIPCChannel::actionOfEnvelope(envelope), envelope[VN_IPC_CONTENT].text());
  // What a command tells the user may run the loop, in which the window may close and end this object.
  if (!result || self.expired()) return;
  // The last thing done here: the manager's answer to a reply may be the end of this object, too.
  sendResponseToMeetingMgr(result->parentWindow, result->command, result->data);
}

std::optional<CommandResult> vnAPIMgr::readReply(int action, const std::string& content) {
  // Each takes a hold on its command, which has to outlast a cleanup().
  const auto commit = [&](std::shared_ptr<vnAPICommitMeeting> command) {
    return command ? command->onVornFeedback(action, content) : std::nullopt;
  };
  const auto read = [&](auto command) { return command ? command->onVornFeedback(content) : std::nullopt; };
  switch (action) {
    case InnerOperation::kSchedule: return commit(m_apiScheduleMeeting);
    case InnerOperation::kUpdate: return commit(m_apiUpdateMeeting);
    case InnerOperation::kDelete: return read(m_apiDeleteMeeting);
    case InnerOperation::kGetMeeting: return read(m_apiGetMeeting);
    case RequestAction::kGetUserProfile: return read(m_apiGetUserProfile);
    case RequestAction::kGetPAC: return read(m_apiGetPAC);
    case InnerOperation::kGetMeetingByApptUUID: return read(m_apiGetMeetingByApptUUID);
    case RequestAction::kGetScheduleForList: return read(m_apiGetScheduleForList);
    default: return std::nullopt;
  }
}

}  // namespace vorn
