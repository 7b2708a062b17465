#pragma once

// Which banners the panel shows above its options. Pure functions.

#include <string>

#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

struct NoticeFacts {
  // The user wants to see the banner no more.
  bool notShowPluginTurnoffMessage = false;
  bool notShowUserSettingMessage = false;
  // Of the account.
  bool supportFeatureEnablePaidUserForCN = false;
  bool isPaidUser = false;
  bool isShowUseWebSettingTipView = false;
  // Of the meeting: it stands at the service already; the panel shows the personal meeting.
  bool isForUpdateVornMeeting = false;
  bool isForPMI = false;
};

struct Notices {
  bool pluginTurnoff = false;
  bool epidemicTip = false;
  bool userSettingTip = false;

  bool operator==(const Notices&) const = default;
};

// The banners that are shown; a banner that is not meant is hidden.
Notices noticesFor(const NoticeFacts& facts);

// A sentence with one part that can be clicked, and a link behind it.
struct LinkedMessage {
  std::string before;
  // "" when the sentence does not hold the part.
  std::string link{};
  std::string after{};
  std::string secondLink{};

  bool operator==(const LinkedMessage&) const = default;
};

// The end of plug-ins of this kind: the year leads to what the host's vendor says, the second link to the add-in
// that takes this one's place.
LinkedMessage pluginTurnoffMessage(const TextSource& texts);

}  // namespace vorn::panel_rules
