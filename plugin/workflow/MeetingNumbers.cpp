#include "workflow/MeetingNumbers.h"

namespace vorn {

const char* nameOfMeetingCommand(std::uint64_t command) {
  switch (command) {
    case VnCmdAdd: return "VnCmdAdd";
    case VnCmdChangeSettings: return "VnCmdChangeSettings";
    case VnCmdCancel: return "VnCmdCancel";
    case VnCmdSchedule: return "VnCmdSchedule";
    case VnCmdUpdate: return "VnCmdUpdate";
    case VnCmdDelete: return "VnCmdDelete";
    case VnCmdGetMeeting: return "VnCmdGetMeeting";
    case VnCmdGetUserProfile: return "VnCmdGetUserProfile";
    case VnCmdStartWithVideo: return "VnCmdStartWithVideo";
    case VnCmdStartWithoutVideo: return "VnCmdStartWithoutVideo";
    case VnCmdAddPACAccount1: return "VnCmdAddPACAccount1";
    case VnCmdAddPACAccount2: return "VnCmdAddPACAccount2";
    case VnCmdGetPAC: return "VnCmdGetPAC";
    case VnCmdGetMeetingByApptUUID: return "VnCmdGetMeetingByApptUUID";
    case VnCmdGetScheduleForList: return "VnCmdGetScheduleForList";
    default: return "";
  }
}

const char* nameOfMeetingState(std::uint64_t state) {
  switch (state) {
    case VnStateIdle: return "VnStateIdle";
    case VnStateAdding: return "VnStateAdding";
    case VnStateChanging: return "VnStateChanging";
    case VnStateCommitting: return "VnStateCommitting";
    case VnStateCommitted: return "VnStateCommitted";
    case VnStatePAC: return "VnStatePAC";
    case VnStatePMIForSettings: return "VnStatePMIForSettings";
    case VnStatePMIForSchedule: return "VnStatePMIForSchedule";
    case VnStatePMIForUpdate: return "VnStatePMIForUpdate";
    case VnStateLoadByApptUUID: return "VnStateLoadByApptUUID";
    case VnStateUpdateOnCalendar: return "VnStateUpdateOnCalendar";
    default: return "";
  }
}

}  // namespace vorn
