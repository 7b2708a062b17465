#include "channel/commands/vnAPIGetUserProfile.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/commands/vnMeetingCommand.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

int vnAPIGetUserProfile::doAction(const HostObject& parentWindow) {
  return sendBareRequest(parentWindow, RequestAction::kGetUserProfile);
}

std::optional<CommandResult> vnAPIGetUserProfile::onVornFeedback(const std::string& content) {
  const auto window = takeSuccess(VnCmdGetUserProfile, content);
  if (!window) return std::nullopt;
  const Value profile = dictionaryFromJSON(content);
  vnUserProfileHelper::sharedInstance().setData(dictionaryOrEmpty(profile));
  saveUserProfileInfoToLocal();
  return CommandResult{*window, VnCmdGetUserProfile, profile};
}

}  // namespace vorn
