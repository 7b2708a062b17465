// Which banners the panel shows, and what they say.

#include <gtest/gtest.h>

#include "settings/rules/NoticeRules.h"

namespace vorn::panel_rules {
namespace {

TEST(NoticeRulesTest, EachBannerHasItsOwnReasons) {
  const struct {
    const char* name;
    NoticeFacts facts;
    Notices shown;
  } rows[] = {
      {"a new meeting", {}, {.pluginTurnoff = true, .userSettingTip = true}},
      {"the end of plug-ins was read", {.notShowPluginTurnoffMessage = true}, {.userSettingTip = true}},
      {"the settings' tip was read", {.notShowUserSettingMessage = true}, {.pluginTurnoff = true}},
      {"settings are taken from the web", {.isShowUseWebSettingTipView = true}, {.pluginTurnoff = true}},
      {"an update", {.isForUpdateVornMeeting = true}, {.pluginTurnoff = true}},
      {"the personal meeting", {.isForPMI = true}, {.pluginTurnoff = true}},
      {"an account without a paid plan",
       {.supportFeatureEnablePaidUserForCN = true},
       {.pluginTurnoff = true, .epidemicTip = true, .userSettingTip = true}},
      {"one with it",
       {.supportFeatureEnablePaidUserForCN = true, .isPaidUser = true},
       {.pluginTurnoff = true, .userSettingTip = true}},
  };
  for (const auto& row : rows) EXPECT_EQ(noticesFor(row.facts), row.shown) << row.name;
}

TEST(NoticeRulesTest, TheYearInTheMessageIsItsLinkWhereALanguageNamesIt) {
  const auto message = [](const char* text) {
    return pluginTurnoffMessage([text](std::string_view key, std::initializer_list<std::string_view>) {
      return key == "LN_Plugin_Turnoff_Message_153534" ? text : std::string(key);
    });
  };
  const std::string helper = "LN_Plugin_Turnoff_Message_Part2_153534";
  EXPECT_EQ(message("Until 2021 and 2021."), (LinkedMessage{"Until ", "2021", " and 2021.", helper}));
  EXPECT_EQ(message("No more."), (LinkedMessage{"No more.", "", "", helper}));
}

}  // namespace
}  // namespace vorn::panel_rules
