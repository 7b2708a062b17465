#pragma once

// The keys of the dictionaries that go to the commands and come back from them.

#include <string_view>

namespace vorn {

// Parameters of a call.
inline constexpr std::string_view vn_API_Call_Para_ShowCommunicationDlg = "showCommunicationDlg";
inline constexpr std::string_view vn_API_Call_Para_SilentAPIError = "silentAPIError";
inline constexpr std::string_view vn_API_Call_Para_ForPMI = "isForPMI";

// What goes back to the meeting manager.
inline constexpr std::string_view keyVnAPIResponse = "vnAPIResponse";
inline constexpr std::string_view keyApptWindowID = "keyApptWindowID";
inline constexpr std::string_view keyVNResult = "keyVnResult";
inline constexpr std::string_view keyVNSuccess = "Success";
inline constexpr std::string_view keyVNFail = "Fail";
inline constexpr std::string_view vn_API_Para_InvitationEmail = "invitationEmail";

// Local notifications.
// A window's request has its reply, or has waited too long for it; the window is under keyApptWindowID.
inline constexpr std::string_view notify_ClientWaitEnded = "notifyClientWaitEnded";
// The hosts that the service refused.
inline constexpr std::string_view notify_Schedule_AlternateHostError = "notifyScheduleAlternateHostError";

}  // namespace vorn
