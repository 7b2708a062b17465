#pragma once

// The keys of the meeting-information dictionary, which carries one meeting through the workflow: the appointment
// in its plain form, the settings, and what the service adds.

#include <string_view>

namespace vorn {

inline constexpr std::string_view vn_Outlook_ApptInfo = "apptInfo";  // dictionary
inline constexpr std::string_view vn_Setting = "setting";            // dictionary
inline constexpr std::string_view vn_MeetingKey = "meetingKey";
inline constexpr std::string_view vn_Meeting_JoinUrl = "joinUrl";
// The invitation as plain text, which the appointment's plain form has under the same key, and as HTML.
inline constexpr std::string_view vn_ApptInfo_Body = "emailBody";
inline constexpr std::string_view vn_API_Para_InviteHtmlEmail = "invitehtmlemail";

}  // namespace vorn
