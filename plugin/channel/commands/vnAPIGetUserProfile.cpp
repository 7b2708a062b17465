#include "channel/commands/vnAPIGetUserProfile.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ReplyFields.h"
#include "channel/transport/vnIPCChannel.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

int vnAPIGetUserProfile::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kGetUserProfile,
                                           std::to_string(RequestAction::kGetUserProfile));
  return 0;
}

void vnAPIGetUserProfile::onVornFeedback(const std::string& content) {
  const auto window = takeReply(ReplyNumber::kGetUserProfile, content);
  if (!window) return;
  if (errorCode() != 0) return popupErrorMsg(*window, errorCode());
  const Value profile = dictionaryFromJSON(content);
  vnUserProfileHelper::sharedInstance().setData(dictionaryOrEmpty(profile));
  saveUserProfileInfoToLocal();
  sendResponseToMeetingMgr(*window, ReplyNumber::kGetUserProfile, profile);
}

}  // namespace vorn
