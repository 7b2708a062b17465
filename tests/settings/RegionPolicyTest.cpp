// The regions that may join: the option, its window, and what of it reaches the record.

#include "settings/rules/RegionPolicy.h"
#include "tests/settings/TokenFieldFixture.h"
#include "util/LocalText.h"
#include "util/Text.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRegionsField = "allowDenyRCTextField";
constexpr const char* kRegionList = "allowDenyRCSearchListWindow";
constexpr const char* kWindow = "allowDenyRCWindow";

TEST(RegionRules, TheTextBesideTheSwitchIsCutAndTheLinkGoesWithIt) {
  const auto texts = [](std::string_view key, std::initializer_list<std::string_view>) {
    return key == "Edit" ? std::string(key) : std::string(key).substr(22, 5) + ":";
  };
  const std::string fits(32, 'x');
  const struct {
    std::int64_t type;
    std::vector<std::string> names;
    bool isLocked;
    RegionSummary summary;
  } rows[] = {
      {0, {"A", "B"}, false, {{"OnlyA:A, B"}, "Edit", true}},
      {1, {"A"}, false, {{"Block:A"}, "Edit", true}},
      {7, {fits}, true, {{"Block:" + fits}, "View_:", false}},
      {0, {fits + "y"}, true, {{"OnlyA:" + fits.substr(3) + "...", "OnlyA:" + fits + "y"}, "View_:", true}},
      {0, {fits + "y"}, false, {{"OnlyA:" + fits.substr(3) + "...", "OnlyA:" + fits + "y"}, "Edit", true}},
  };
  for (const auto& row : rows) {
    const RegionSummary summary = regionSummary(row.type, row.names, row.isLocked, texts);
    EXPECT_EQ(summary.text.text, row.summary.text.text);
    EXPECT_EQ(summary.text.toolTip, row.summary.text.toolTip);
    EXPECT_EQ(summary.link, row.summary.link);
    EXPECT_EQ(summary.isLinkShown, row.summary.isLinkShown);
  }
}

const RegionTable kRegionNames({"DE", "NE", "", "NG", "AT", "X1", "X2"}, [](const std::string& code) {
  const std::pair<const char*, const char*> names[] = {{"DE", "Germany"},    {"NE", "Niger"}, {"NG", "nigeria"},
                                                       {"AT", "Österreich"}, {"X1", "Twin"},  {"X2", "Twin"}};
  for (const auto& [known, name] : names) {
    if (code == known) return std::string(name);
  }
  return code;
});

TEST(RegionRules, WhatTheFieldMeansAndWhenItMayBeSaved) {
  const auto region = [](const std::string& code) {
    return TokenPiece{.chip = chipOf(VNAllowDenyRCCell{code, code})};
  };
  const auto words = [](const std::string& text) { return TokenPiece{.text = text}; };
  const struct {
    std::vector<TokenPiece> pieces;
    std::vector<std::string> codes;
    bool maySave;
    std::size_t caret = SIZE_MAX;
  } rows[] = {
      {{}, {}, false},
      {{region("DE"), region("FR"), region("DE")}, {"DE", "FR"}, true},
      {{region("DE"), words(" Germany ")}, {"DE"}, true},
      {{words("Twin"), region("DE")}, {"X1", "DE"}, true},
      {{region("DE"), words("germany")}, {"DE"}, false},
      {{region("DE"), words("Ger")}, {"DE"}, false},
      {{region("DE"), words("Ger")}, {"DE"}, false, 0},
      {{words("Ger"), region("DE")}, {"DE"}, false},
      {{words("Niger;"), region("DE")}, {"NE", "DE"}, true},
      {{region("DE"), words("Niger;")}, {"DE", "NE"}, false},
  };
  for (const auto& row : rows) {
    TokenText tokens;
    tokens.replace({}, row.pieces);
    tokens.select({row.caret, 0});
    SCOPED_TRACE(tokens.inWords());
    EXPECT_EQ(addedRegionCodes(tokens, kRegionNames), row.codes);
    EXPECT_EQ(maySaveRegions(tokens, kRegionNames), row.maySave);
  }
}

TEST(RegionRules, OffersWhatBeginsWithTheWord) {
  const auto lower = [](const std::string& text) { return caseFolded(text); };
  const TextOrder german("de");
  const auto key = [&](const std::string& name) { return german.key(name); };
  const struct {
    const char* word;
    std::vector<std::string> added;
    std::vector<std::string> codes;
  } rows[] = {{"NI", {}, {"NE", "NG"}},
              {"nigeri", {}, {"NG"}},
              {"NI", {"NE"}, {"NG"}},
              {"many", {}, {}},
              {"öst", {}, {"AT"}},
              {"twin", {"X1"}, {"X2"}},
              {"", {"DE", "X2"}, {"NE", "NG", "AT", "X1"}}};
  for (const auto& row : rows) {
    std::vector<std::string> codes;
    for (const VNAllowDenyRCCell& region : offeredRegions(kRegionNames, row.added, row.word, lower, key))
      codes.push_back(region.rcCode);
    EXPECT_EQ(codes, row.codes) << row.word;
  }
}

class RegionPolicyTest : public TokenFieldTest {
 protected:
  void openFor(bool isOn, bool isLocked, const std::vector<std::string>& codes = {}, std::int64_t type = 0,
               const std::vector<std::string>& all = {"DE", "HK", "NE", "NG", "US"}) {
    Account account = isOn ? accountWith(UserOption3::isEnableAllowDenyJoinMeetingRegion) : Account();
    if (isLocked) account.MergeFrom(accountWith(UserOption4::isLockAllowDenyJoinMeetingRegion));
    const auto list = [](const std::vector<std::string>& texts) {
      return Value(Value::Array(texts.begin(), texts.end()));
    };
    const Value policy =
        Value::dictionaryFromPairs({{vn_Setting_RegionType, type}, {vn_Setting_RegionCodes, list(codes)}});
    const Value regions = Value::dictionaryFromPairs({{vn_Setting_RegionPolicy, policy},
                                                      {vn_Setting_TotalRegionCodes, list(all)},
                                                      {vn_Setting_DefaultRegionCode, "US"}});
    knowAccount(account, {{vn_Setting_JoinMeetingRegionSetting, regions}, {vn_Profile_PasswordRulesOption, 1}});
    open();
  }
  std::vector<std::string> codesOfRecord() {
    std::vector<std::string> codes;
    const Value list = settings()[vn_Setting_RegionCodes];
    for (const Value& each : list.items()) codes.push_back(each.text());
    return codes;
  }
  bool isOnInRecord() { return settings()[vn_Setting_EnableAllowDenyJoinMeetingRegion].boolValue(); }
  void chooseRegion(const std::string& word) {
    keyIn(kRegionsField, word);
    press(kRegionsField, Key::newLine);
    waitForChips();
  }
};

TEST_F(RegionPolicyTest, EachOfTheTwoListsIsKeptWhileTheOtherIsShown) {
  openFor(true, false, {"DE"}, 1);
  EXPECT_EQ(control("allowDenyText").text, "Blocked: Germany");
  click("allowDenyEditButton");
  waitForChips();
  EXPECT_TRUE(control("allowDenyRCBlockButton").on && !control("allowDenyRCAllowButton").on);
  EXPECT_EQ(control("allowDenyRCLockedLabel").reason, "the regions can be changed");
  keyIn(kRegionsField, "US");
  turn("allowDenyRCAllowButton", true);
  EXPECT_FALSE(control("allowDenyRCBlockButton").on);
  EXPECT_EQ(tokens(kRegionsField), "US") << "a word that is being typed stays";
  EXPECT_FALSE(control("allowDenyRCSaveButton").enabled);
  edit(kRegionsField, [](TokenText& text) { text.select({0, SIZE_MAX}), text.type(""); });
  chooseRegion("niger");
  turn("allowDenyRCBlockButton", true);
  waitForChips();
  EXPECT_EQ(tokens(kRegionsField), "[Germany]");
  turn("allowDenyRCAllowButton", true);
  EXPECT_EQ(click("allowDenyRCSaveButton"), Use::disabled) << "the chips are on their way";
  waitForChips();
  EXPECT_EQ(tokens(kRegionsField), "[Niger]");
  EXPECT_EQ(click("allowDenyRCSaveButton"), Use::done);
  EXPECT_EQ(settings()[vn_Setting_RegionType], Value(0));
  EXPECT_THAT(codesOfRecord(), ElementsAre("NE"));

  for (const char* other : {"allowDenyRCBlockButton", "allowDenyRCAllowButton"}) {
    click("allowDenyEditButton");
    waitForChips();
    turn(other, true);
    waitForChips();
    EXPECT_EQ(tokens(kRegionsField), "") << "the other list is that of an earlier opening";
    chooseRegion("germany");
    EXPECT_EQ(click("allowDenyRCSaveButton"), Use::done);
  }
}

TEST_F(RegionPolicyTest, AListIsSearchedByTheBeginningOfANameAndASeparatorChoosesNothing) {
  openFor(true, false, {"DE", "NG"});
  click("allowDenyEditButton");
  waitForChips();
  EXPECT_TRUE(control("allowDenyRCAllowButton").on && !control("allowDenyRCBlockButton").on);
  keyIn(kRegionsField, "nI");
  EXPECT_THAT(rows(kRegionList), ElementsAre("Niger")) << "the other one is in the text";
  edit(kRegionsField, [](TokenText& text) { text.select({2, SIZE_MAX}), text.type("Niger"); });
  EXPECT_THAT(rows(kRegionList), IsEmpty()) << "the text has it already";
  EXPECT_TRUE(control("allowDenyRCSaveButton").enabled);
  keyIn(kRegionsField, ";");
  waitForChips();
  EXPECT_EQ(tokens(kRegionsField), "[Germany][Nigeria]Niger;");
  EXPECT_FALSE(control("allowDenyRCSaveButton").enabled);
  press(kRegionsField, Key::deleteBackward);
  EXPECT_EQ(click("allowDenyRCSaveButton"), Use::done);
  EXPECT_THAT(codesOfRecord(), ElementsAre("DE", "NG", "NE"));
}

TEST_F(RegionPolicyTest, ALockedPolicyIsReadAndNothingElse) {
  openFor(true, true, {"DE", "US", "NE", "NG", "HK"});
  EXPECT_EQ(turn("allowDenyButton", false), Use::disabled);
  EXPECT_EQ(control("allowDenyEditButton").text, "View");
  click("allowDenyEditButton");
  for (const char* key :
       {kRegionsField, "allowDenyRCAllowButton", "allowDenyRCBlockButton", "allowDenyRCCancelButton"}) {
    EXPECT_TRUE(control(key).hidden) << key;
  }
  EXPECT_EQ(control(kWindow).text, "Allowed Regions");
  EXPECT_EQ(control("allowDenyRCLockedLabel").text, "Germany, United States, Niger, Nigeria, Hong Kong SAR China");
  EXPECT_EQ(control("allowDenyRCSaveButton").text, "OK");
  EXPECT_EQ(click("allowDenyRCSaveButton"), Use::done);
  EXPECT_TRUE(control(kWindow).hidden);
  EXPECT_EQ(codesOfRecord().size(), 5u);
}

TEST_F(RegionPolicyTest, TenThousandRegionsAreOfferedChosenAndTold) {
  constexpr std::size_t kMany = 10'000;
  std::vector<std::string> all;
  for (std::size_t i = 0; i < 2 * kMany; ++i) all.push_back("R" + std::to_string(20'000 + i));
  const std::vector<std::string> first(all.begin(), all.begin() + kMany);
  openFor(true, false, first, 0, all);
  EXPECT_EQ(control("allowDenyText").text.find("R20000, R20001, "), std::string("Allowed: ").size());
  EXPECT_TRUE(control("allowDenyText").toolTip.ends_with(", R29998, R29999"));
  click("allowDenyEditButton");
  waitForChips();
  EXPECT_EQ(control(kRegionsField).tokens.chips().size(), kMany);
  keyIn(kRegionsField, "r");
  const std::vector<std::string> offered = rows(kRegionList);
  ASSERT_EQ(offered.size(), kMany);
  EXPECT_TRUE(offered.front() == "R30000" && offered.back() == "R39999") << "the others are in the text";
  edit(kRegionsField, [](TokenText& text) { text.paste("39999"); });
  EXPECT_THAT(rows(kRegionList), ElementsAre("R39999"));
  press(kRegionsField, Key::newLine);
  waitForChips();
  EXPECT_EQ(click("allowDenyRCSaveButton"), Use::done);
  EXPECT_EQ(codesOfRecord().size(), kMany + 1);
  EXPECT_TRUE(control("allowDenyText").toolTip.ends_with(", R29999, R39999"));
}

TEST_F(RegionPolicyTest, WhatIsSavedInOnePanelReachesNoOther) {
  openFor(true, false, {"DE"});
  const FakeWindow other(test);
  const std::string otherId = openOn(other);
  click("allowDenyEditButton");
  waitForChips();
  keyIn(kRegionsField, "hong");
  EXPECT_EQ(choose(std::string(kRegionList) + "Rows", 0), Use::done);
  waitForChips();
  turn("requiredMeetingPswButton", true);
  type("passwordTextField", "1");
  EXPECT_FALSE(control("passwordRuleWindow").hidden);
  click("allowDenyRCSaveButton");
  EXPECT_TRUE(control("passwordRuleWindow").hidden) << "what stands beside the sheet goes with a save";
  EXPECT_THAT(codesOfRecord(), ElementsAre("DE", "HK"));
  const Value others = panels.getSchSettingWindowInArray(otherId)->getVnSettingsData()[vn_Setting_RegionCodes];
  EXPECT_EQ(others, Value(Value::Array{"DE"}));
}

}  // namespace
}  // namespace vorn
