#include "channel/commands/vnAPIGetMeetingByApptUUID.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/MeetingReply.h"
#include "channel/transport/vnIPCChannel.h"

namespace vorn {

int vnAPIGetMeetingByApptUUID::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kCarrier, getAPIData());
  return 0;
}

std::string vnAPIGetMeetingByApptUUID::getAPIData() {
  return std::to_string(InnerOperation::kGetMeetingByApptUUID) + ";" + m_olUUID;
}

void vnAPIGetMeetingByApptUUID::onVornFeedback(const std::string& content) {
  if (content.empty()) return;
  const auto window = takeReply(ReplyNumber::kGetMeetingByApptUUID, content);
  if (!window) return;
  if (errorCode() != 0) return popupErrorMsg(*window, errorCode());
  const auto reply = MeetingReply::read(content);
  if (!reply) return;
  reply->feed(meetingMgr()->getMeetingHelper(), true, false);
  sendResponseToMeetingMgr(*window, ReplyNumber::kGetMeetingByApptUUID, reply->meeting);
}

}  // namespace vorn
