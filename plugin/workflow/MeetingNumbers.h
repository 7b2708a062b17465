#pragma once

// The numbers of the meeting workflow. They are a contract between the hooks and the managers.

#include <cstdint>

#include "channel/commands/vnMeetingCommand.h"

namespace vorn {

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

// What a hook does with the host's call. Any other value is an error code that the user has seen already, and
// stops it. The code for a missing client is a 2 as well: the user has been told, and the host goes on.
enum vnHandleResult : int {
  VnHandleBlocked = 0,
  VnHandlePassOn = 2,
  VnHandleError = 3,
};

// What the host's two close methods give when they have closed nothing.
inline constexpr std::int64_t kNotClosed = -1;

// The names for people who look over the system's shoulder; "" for a number without one.
const char* nameOfMeetingCommand(std::uint64_t command);
const char* nameOfMeetingState(std::uint64_t state);

}  // namespace vorn
