#include "channel/commands/vnAPIGetScheduleForList.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/transport/vnIPCChannel.h"
#include "data/vnGetScheduleForListHelper.h"

namespace vorn {

int vnAPIGetScheduleForList::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kGetScheduleForList,
                                           std::to_string(RequestAction::kGetScheduleForList));
  return 0;
}

void vnAPIGetScheduleForList::onVornFeedback(const std::string& content) {
  const auto window = takeReply(ReplyNumber::kGetScheduleForList, content);
  if (!window) return;
  if (errorCode() != 0) return popupErrorMsg(*window, errorCode());
  const Value list = dictionaryFromJSON(content);
  vnGetScheduleForListHelper::sharedInstance().setData(dictionaryOrEmpty(list));
  sendResponseToMeetingMgr(*window, ReplyNumber::kGetScheduleForList, list);
}

}  // namespace vorn
