#include "settings/rules/NoticeRules.h"

#include <string_view>

namespace vorn::panel_rules {

namespace {

constexpr std::string_view kLinkedYear = "2021";

}  // namespace

Notices noticesFor(const NoticeFacts& facts) {
  return {.pluginTurnoff = !facts.notShowPluginTurnoffMessage,
          .epidemicTip = facts.supportFeatureEnablePaidUserForCN && !facts.isPaidUser,
          .userSettingTip = !facts.notShowUserSettingMessage && !facts.isShowUseWebSettingTipView &&
                            !facts.isForUpdateVornMeeting && !facts.isForPMI};
}

LinkedMessage pluginTurnoffMessage(const TextSource& texts) {
  const std::string message = texts("LN_Plugin_Turnoff_Message_153534", {});
  LinkedMessage result{.before = message, .secondLink = texts("LN_Plugin_Turnoff_Message_Part2_153534", {})};
  const std::size_t year = message.find(kLinkedYear);
  if (year == std::string::npos) return result;
  result.before = message.substr(0, year);
  result.link = kLinkedYear;
  result.after = message.substr(year + kLinkedYear.size());
  return result;
}

}  // namespace vorn::panel_rules
