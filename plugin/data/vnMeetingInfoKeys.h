#pragma once

#include <string_view>

// Keys of the meeting-information dictionary beyond those of the appointment and of the settings.

namespace vorn {

inline constexpr std::string_view vn_API_Para_InviteHtmlEmail = "invitehtmlemail";

}  // namespace vorn
