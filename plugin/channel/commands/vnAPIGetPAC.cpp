#include "channel/commands/vnAPIGetPAC.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetPACHelper.h"

namespace vorn {

int vnAPIGetPAC::doAction(const HostObject& parentWindow) {
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupportPACAndNoVideo()) return 0;
  return sendBareRequest(parentWindow, RequestAction::kGetPAC);
}

std::optional<CommandResult> vnAPIGetPAC::onVornFeedback(const std::string& content) {
  const auto window = takeSuccess(VnCmdGetPAC, content);
  if (!window) return std::nullopt;
  vnGetPACHelper::sharedInstance().setPACInfo(content);
  return CommandResult{*window, VnCmdGetPAC, Value()};
}

}  // namespace vorn
