#pragma once

// The record that is stored inside an appointment, as JSON text. It outlives the plug-in, so the names stay.

#include <string_view>

namespace vorn {

inline constexpr std::string_view vn_OLProperty_Root = "vnOIData";
inline constexpr std::string_view vn_OLProperty_MeetingKey = "meetingKey";
inline constexpr std::string_view vn_OLProperty_EncodeMailBody = "encodeMailBody";

}  // namespace vorn
