#pragma once

#include <cstdint>

// The numbers of the meeting workflow. They are a contract between the hooks, the managers and the commands, and
// the same table serves requests and replies.

namespace vorn {

// Commands to a manager and reply numbers from its commands. 7, 8, 13 and 16 exist only as replies; 14 is used by
// nothing.
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

// Why a manager waits for its next reply.
enum vnMeetingStateValue : std::uint64_t {
  VnStateIdle = 0,
  VnStateAdding = 1,
  VnStateChanging = 2,
  VnStateCommitting = 3,
  VnStateCommitted = 4,
  VnStatePAC = 5,
  VnStatePMIForSettings = 6,
  VnStatePMIForSchedule = 7,
  VnStatePMIForUpdate = 8,
  VnStateLoadByApptUUID = 9,
  VnStateUpdateOnCalendar = 10,
};

// The host's operation that has to be finished when the asynchronous work is over. 0 is none.
enum vnApptAction : int {
  VnApptActionSave = 1,
  VnApptActionSaveAndClose = 2,
  VnApptActionSend = 3,
  VnApptActionSaveAndCloseReturnError = 4,
  VnApptActionCalendarEdit = 5,
  VnApptActionAutoUpdate = 6,
};

// What the action bar shows.
enum vnUIStatus : int {
  VnUIHidden = 1,
  VnUINotMeeting = 2,
  VnUIMeeting = 3,
};

// What a save has to do.
enum vnMeetingDataStatus : int {
  VnDataNone = 1,
  VnDataAdded = 2,
  VnDataChanged = 3,
  VnDataDeleted = 4,
};

// What a hook does with the host's call. Any other value is an error code that the user has seen already.
enum vnHandleResult : int {
  VnHandleBlocked = 0,
  VnHandlePassOn = 2,
  VnHandleError = 3,
};

// The names for people who look over the system's shoulder; "" for a number without one.
const char* nameOfMeetingCommand(std::uint64_t command);
const char* nameOfMeetingState(std::uint64_t state);

}  // namespace vorn
