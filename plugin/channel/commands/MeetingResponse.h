#pragma once

#include <cstdint>

#include "channel/commands/MeetingCommandOwner.h"

namespace vorn {

// Hands a result to the manager: the data under "vnAPIResponse" and the window's id under "keyApptWindowID", each
// only when it is there. Nothing without a manager, which may have ended itself when this returns.
void respondToMeetingMgr(MeetingCommandOwner* meetingMgr, const HostObject& parentWindow, std::uint64_t command,
                         const Value& data);

}  // namespace vorn
