#pragma once

// The keys of the site configuration file and of the user defaults. The literals are stored data.

#include <string_view>

namespace vorn {

inline constexpr std::string_view vn_LocalProfile_CachedRoomMeetingIds = "cachedRoomMeetingIds";
inline constexpr std::string_view vn_LocalProfile_TrashCanLink = "trashCanLink";
inline constexpr std::string_view vn_LocalProfile_VornDomain = "vornDomain";
inline constexpr std::string_view vn_LocalProfile_VornClientVersion = "vornClientVersion";
inline constexpr std::string_view vn_LocalProfile_EnablePAC = "enablePAC";
inline constexpr std::string_view vn_LocalProfile_NotShowPluginTurnoffMessage = "notShowPlugniTurnoffMessage";
inline constexpr std::string_view vn_LocalProfile_NotShowUserSettingMessage = "notShowUserSettingMessage";
inline constexpr std::string_view vn_LocalProfile_DoNotShowPMIDisableMessage = "DoNotShowPMIDisableMsg";
inline constexpr std::string_view vn_LocalProfile_EncryptionTip_NotShownAgain = "DoNotShowEncryptionTip";
inline constexpr std::string_view vn_LocalProfile_SecurityTip_NotShownAgain_WR = "NewSecurityTip.NotShownAgain.WR";
inline constexpr std::string_view vn_NotStrongerPasscode = "NotStrongerPasscode";
inline constexpr std::string_view vn_SecurityNotSeleteOne = "SecurityNotSeleteOne";
inline constexpr std::string_view vn_Delete_DoNotRemind = "DoNotRemind";

}  // namespace vorn
