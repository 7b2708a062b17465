#include "channel/commands/vnAPIGetPAC.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/transport/vnIPCChannel.h"
#include "data/vnGetPACHelper.h"

namespace vorn {

int vnAPIGetPAC::doAction(const HostObject& parentWindow) {
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupportPACAndNoVideo()) return 0;
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kGetPAC, std::to_string(RequestAction::kGetPAC));
  return 0;
}

std::optional<CommandResult> vnAPIGetPAC::onVornFeedback(const std::string& content) {
  const auto window = takeSuccess(VnCmdGetPAC, content);
  if (!window) return std::nullopt;
  vnGetPACHelper::sharedInstance().setPACInfo(content);
  return CommandResult{*window, VnCmdGetPAC, Value()};
}

}  // namespace vorn
