// Which banners the panel shows, and what they say.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/NotAgainFlags.h"
#include "settings/rules/NoticeRules.h"
#include "tests/support/TestPlatform.h"

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

TEST(NotAgainFlagsTest, EachIsKeptInItsOwnStoreBesideWhatStandsThere) {
  enum Store { site, profile, defaults };
  struct Row {
    const char* literal;
    Store store;
    std::function<bool()> isSet;
    std::function<void(bool)> set;
  };
  const auto flag = [](const char* literal, Store store, auto make) {
    return Row{literal, store, [=] { return make().isSet(); }, [=](bool on) { make().set(on); }};
  };
  const auto tip = [](const char* literal, std::string_view key) {
    return Row{literal, site, [=] { return not_again::doNotShowTipView(key); },
               [=](bool on) { not_again::setDoNotShowTipView(key, on); }};
  };
  const Row rows[] = {
      flag("notShowPlugniTurnoffMessage", site, not_again::pluginTurnoff),
      flag("notShowUserSettingMessage", site, not_again::userSettingTip),
      flag("DoNotShowPMIDisableMsg", site, not_again::disabledPMI),
      tip("NewSecurityTip.NotShownAgain.WR", vn_LocalProfile_SecurityTip_NotShownAgain_WR),
      tip("DoNotShowEncryptionTip", vn_LocalProfile_EncryptionTip_NotShownAgain),
      flag("notShowUpgradeMessageAgain", profile, [] { return not_again::accountLimitation("me"); }),
      flag("DoNotRemind", defaults, not_again::deletedMeeting),
  };
  for (const auto& row : rows) {
    TestPlatform world;
    const JsonTextFile files[] = {JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()),
                                  JsonTextFile(vnCommon::getVnUserProfilePath("me"))};
    EXPECT_FALSE(row.isSet()) << row.literal << ", without any file";
    const Value before = Value::dictionaryFromPairs({{"kept", "as it is"}});
    for (const JsonTextFile& file : files) file.write(before);
    world.userDefaults.stored = before;

    const auto storesAre = [&](const Value& written) {
      EXPECT_EQ(files[0].read(), row.store == site ? written : before) << row.literal;
      EXPECT_EQ(files[1].read(), row.store == profile ? written : before) << row.literal;
      EXPECT_EQ(world.userDefaults.stored, row.store == defaults ? written : before) << row.literal;
      EXPECT_EQ(world.userDefaults.synchronized > 0, row.store == defaults) << row.literal;
    };
    row.set(true);
    storesAre(Value::dictionaryFromPairs({{"kept", "as it is"}, {row.literal, true}}));
    EXPECT_TRUE(row.isSet()) << row.literal;
    row.set(false);
    storesAre(Value::dictionaryFromPairs({{"kept", "as it is"}, {row.literal, false}}));
    EXPECT_FALSE(row.isSet()) << row.literal;
  }
}

TEST(NotAgainFlagsTest, WithoutAUserNothingIsKept) {
  const TestPlatform world;
  not_again::accountLimitation({}).set(true);
  EXPECT_FALSE(not_again::accountLimitation({}).isSet());
  EXPECT_FALSE(std::filesystem::exists(vnCommon::getDocumentOutlookPluginRootPath()));
}

}  // namespace
}  // namespace vorn::panel_rules
