#include "channel/commands/vnAPIStartMeeting.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/ErrorCodes.h"
#include "channel/transport/vnIPCChannel.h"
#include "platform/Registry.h"
#include "util/vnOLUtils.h"

namespace vorn {

vnAPIStartMeeting& vnAPIStartMeeting::sharedInstance() { return Registry::shared<vnAPIStartMeeting>(); }

int vnAPIStartMeeting::doAction(bool video) {
  if (const int code = refusalCode(HostObject()); code != 0) return code;
  const Value request = Value::dictionaryFromPairs(
      {{"from", "macOutlookPlugin"}, {"launchtype", video ? "groupVideo" : "groupShare"}});
  vnIPCChannel::sendIPCMessageToVornClient(RequestAction::kStartMeeting, vnOLUtils::toJSONString(request));
  return 0;
}

void vnAPIStartMeeting::onVornFeedback(const std::string& content) {
  if (content == "0;Error VornClientNotSignIn") popupErrorMsg(HostObject(), ErrorCode::kNotSignedIn);
}

}  // namespace vorn
