#include "channel/commands/vnAPIGetMeetingByApptUUID.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/MeetingReply.h"
#include "channel/commands/vnMeetingCommand.h"

namespace vorn {

int vnAPIGetMeetingByApptUUID::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  sendRequest(RequestAction::kCarrier, getAPIData());
  return 0;
}

std::string vnAPIGetMeetingByApptUUID::getAPIData() {
  return std::to_string(InnerOperation::kGetMeetingByApptUUID) + ";" + m_olUUID;
}

std::optional<CommandResult> vnAPIGetMeetingByApptUUID::onVornFeedback(const std::string& content) {
  if (content.empty() || isDropped()) return std::nullopt;
  const auto window = takeSuccess(VnCmdGetMeetingByApptUUID, content);
  if (!window) return std::nullopt;
  const auto reply = MeetingReply::read(content);
  if (!reply) return std::nullopt;
  reply->feed(m_owner->getMeetingHelper(), true, false);
  return CommandResult{*window, VnCmdGetMeetingByApptUUID, reply->meeting};
}

}  // namespace vorn
