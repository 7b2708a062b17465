#include "channel/commands/vnAPIGetUserProfile.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/transport/vnIPCChannel.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

int vnAPIGetUserProfile::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kGetUserProfile,
                                           std::to_string(RequestAction::kGetUserProfile));
  return 0;
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
