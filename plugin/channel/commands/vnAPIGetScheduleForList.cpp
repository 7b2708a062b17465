#include "channel/commands/vnAPIGetScheduleForList.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/transport/vnIPCChannel.h"
#include "data/vnGetScheduleForListHelper.h"

namespace vorn {

int vnAPIGetScheduleForList::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kGetScheduleForList,
                                           std::to_string(RequestAction::kGetScheduleForList));
  return 0;
}

std::optional<CommandResult> vnAPIGetScheduleForList::onVornFeedback(const std::string& content) {
  const auto window = takeSuccess(VnCmdGetScheduleForList, content);
  if (!window) return std::nullopt;
  const Value list = dictionaryFromJSON(content);
  vnGetScheduleForListHelper::sharedInstance().setData(dictionaryOrEmpty(list));
  return CommandResult{*window, VnCmdGetScheduleForList, list};
}

}  // namespace vorn
