#include "channel/commands/MeetingResponse.h"

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/vnMeetingCommon.h"

namespace vorn {

void respondToMeetingMgr(MeetingCommandOwner* meetingMgr, const HostObject& parentWindow, std::uint64_t command,
                         const Value& data) {
  if (!meetingMgr) return;
  Value response = Value::dictionary();
  response.set(keyVnAPIResponse, data);
  response.set(keyApptWindowID, vnMeetingCommon::getApptWindowIDByWindow(parentWindow));
  meetingMgr->onExcuteCommandFinished(command, response);
}

}  // namespace vorn
