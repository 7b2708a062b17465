#include "channel/commands/vnAPIGetScheduleForList.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/commands/vnMeetingCommand.h"
#include "data/vnGetScheduleForListHelper.h"

namespace vorn {

int vnAPIGetScheduleForList::doAction(const HostObject& parentWindow) {
  return sendBareRequest(parentWindow, RequestAction::kGetScheduleForList);
}

std::optional<CommandResult> vnAPIGetScheduleForList::onVornFeedback(const std::string& content) {
  const auto window = takeSuccess(VnCmdGetScheduleForList, content);
  if (!window) return std::nullopt;
  const Value list = dictionaryFromJSON(content);
  vnGetScheduleForListHelper::sharedInstance().setData(dictionaryOrEmpty(list));
  return CommandResult{*window, VnCmdGetScheduleForList, list};
}

}  // namespace vorn
