#pragma once

// Where the user's wish not to see a notice again is kept, notice by notice.

#include <string_view>

#include "channel/store/NoticeFlags.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "data/vnSettingKeys.h"

namespace vorn::not_again {

inline SiteFlag pluginTurnoff() { return SiteFlag(vn_LocalProfile_NotShowPluginTurnoffMessage); }
inline SiteFlag userSettingTip() { return SiteFlag(vn_LocalProfile_NotShowUserSettingMessage); }
inline SiteFlag disabledPMI() { return SiteFlag(vn_LocalProfile_DoNotShowPMIDisableMessage); }
// The tips of the security section and of encryption, by their keys.
inline bool doNotShowTipView(std::string_view key) { return SiteFlag(key).isSet(); }
inline void setDoNotShowTipView(std::string_view key, bool notAgain) { SiteFlag(key).set(notAgain); }
// Of the user whose plan asks for the notice.
inline SavedProfileFlag accountLimitation(const OptionalText& userId) {
  return SavedProfileFlag(vn_Setting_NotShowUpgradeMessageAgain, userId);
}
// The settings panel itself, of a new meeting.
inline SavedProfileFlag settingsPanel(const OptionalText& userId) {
  return SavedProfileFlag(vn_Setting_NotShowMeAgain, userId);
}
inline DefaultsFlag deletedMeeting() { return DefaultsFlag(vn_Delete_DoNotRemind); }

}  // namespace vorn::not_again
