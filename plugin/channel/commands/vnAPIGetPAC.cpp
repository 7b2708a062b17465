#include "channel/commands/vnAPIGetPAC.h"

#include "channel/commands/ClientRequests.h"
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

void vnAPIGetPAC::onVornFeedback(const std::string& content) {
  const auto window = takeReply(ReplyNumber::kGetPAC, content);
  if (!window) return;
  if (errorCode() != 0) return popupErrorMsg(*window, errorCode());
  vnGetPACHelper::sharedInstance().setPACInfo(content);
  sendResponseToMeetingMgr(*window, ReplyNumber::kGetPAC, Value());
}

}  // namespace vorn
