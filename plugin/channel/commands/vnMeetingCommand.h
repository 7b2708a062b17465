#pragma once

#include <cstdint>

namespace vorn {

// The numbers of the commands to a meeting manager, and of the replies that it hears of: one table for both. It is
// a contract between the hooks, the managers and the commands. 7, 8, 13 and 16 exist only as replies; 14 is used
// by nothing.
enum vnMeetingCommand : std::uint64_t {
  VnCmdAdd = 1,
  VnCmdChangeSettings = 2,
  VnCmdCancel = 3,
  VnCmdSchedule = 4,
  VnCmdUpdate = 5,
  VnCmdDelete = 6,
  VnCmdGetMeeting = 7,
  VnCmdGetUserProfile = 8,
  VnCmdStartWithVideo = 9,
  VnCmdStartWithoutVideo = 10,
  VnCmdAddPACAccount1 = 11,
  VnCmdAddPACAccount2 = 12,
  VnCmdGetPAC = 13,
  VnCmdGetMeetingByApptUUID = 15,
  VnCmdGetScheduleForList = 16,
};

}  // namespace vorn
