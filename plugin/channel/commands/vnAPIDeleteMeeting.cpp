#include "channel/commands/vnAPIDeleteMeeting.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/VNDeletedMeetingWindowController.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/NotAgainFlags.h"
#include "host/proxies/vnApptInfoKeys.h"

namespace vorn {

int vnAPIDeleteMeeting::doAction(const HostObject& parentWindow) {
  if (checkMeetingNumberValidity(m_meetingKey)) return 0;
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  sendRequest(RequestAction::kCarrier, getAPIData());
  return 0;
}

std::string vnAPIDeleteMeeting::getAPIData() {
  std::string content = std::to_string(InnerOperation::kDelete) + ";" + m_meetingKey;
  if (vnClientFeatureMgr::sharedInstance().isVornClientSupportSourceForDelete()) {
    content.append(";").append(kRequestSource);
  }
  return content;
}

std::optional<CommandResult> vnAPIDeleteMeeting::onVornFeedback(const std::string& content) {
  if (isDropped()) return std::nullopt;
  const auto window = takeReply(VnCmdDelete, content);
  if (!window) return std::nullopt;
  if (errorCode() != 0) {
    m_owner->clearAllSavedData();
    popupErrorMsg(*window, errorCode());
    return std::nullopt;
  }
  // Made before the sheet, in which another request may be refused and leave its error here.
  CommandResult result{
      *window, VnCmdDelete,
      Value::dictionaryFromPairs(
          {{vn_MeetingKey, content}, {vn_API_Para_InvitationEmail, ""}, {keyVNResult, getAPIResult()}})};
  if (!doNotRemindShowDeleteUI() && vnClientFeatureMgr::sharedInstance().isVornClientSupport464Tasks()) {
    VNDeletedMeetingWindowController::showSheet(*window);
  }
  return result;
}

bool vnAPIDeleteMeeting::doNotRemindShowDeleteUI() { return not_again::deletedMeeting().isSet(); }

}  // namespace vorn
