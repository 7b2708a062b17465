// The dial-in countries: what is left of them, how they are called and searched, and the window in which they are
// chosen.

#include <chrono>

#include "data/vnGetScheduleForListHelper.h"
#include "settings/rules/CountryRules.h"
#include "tests/settings/PanelFixture.h"
#include "tests/settings/RuleTexts.h"
#include "util/LocalText.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

Value list(const std::vector<const char*>& codes) {
  Value array = Value::array();
  for (const char* code : codes) array.append(code);
  return array;
}

std::vector<std::string> codesOf(const VNAvailableDialinCountryContent& content) {
  std::vector<std::string> codes;
  for (const auto& country : content.allCountries) {
    codes.push_back(country.selected ? country.countryCode + "*" : country.countryCode);
  }
  return codes;
}

CountryNames names(bool isTaiWanZH = false) {
  return {.nameOf = [](const std::string& code) { return code == "??" ? "" : "Land " + code; },
          .texts = textOfKey,
          .isTaiWanZH = isTaiWanZH};
}

// -- Rules -------------------------------------------------------------------------------------------------------

TEST(CountryRulesTest, SomeCountriesHaveNamesOfTheirOwn) {
  const std::tuple<const char*, bool, const char*> rows[] = {
      {"", false, ""},
      {"HK", false, "Schedule_Enable_DataCenterRegion_HK"},
      {"MO", true, "Audiooption_CountryName_Macau"},
      {"TW", false, "Audiooption_CountryName_TaiWan"},
      {"TW", true, "Audiooption_CountryName_TaiWan_WithChina"},
      {"DE", true, "Land DE"}};
  for (const auto& [code, isTaiWanZH, name] : rows) EXPECT_EQ(names(isTaiWanZH).replaceCountryName(code), name);
}

TEST(CountryRulesTest, ThePanelSaysHowManyAreChosenAndThatNoneIsAFault) {
  const std::pair<Value, const char*> rows[] = {
      {list({}), "Schedule_AllowDenyWindow_NodialinCountries"},
      {list({"DE"}), "Schedule_Selected_One_DialinCountry(Land DE)"},
      {list({"DE", "FR"}), "Schedule_Selected_Two_DialinCountry(Land DE)(Land FR)"},
      {list({"FR", "DE", "US"}), "Schedule_Selected_Morethan_Two_DialinCountry(Land FR)(2)"}};
  for (const auto& [codes, text] : rows) {
    const SelectedCountries shown = selectedCountries(codes, names());
    EXPECT_EQ(shown.text.toolTip.empty() ? shown.text.text : shown.text.toolTip, text);
    EXPECT_EQ(shown.isRed, codes.count() == 0);
  }
  CountryNames called = names();
  std::string name(55, 'n');
  called.nameOf = [&](const std::string&) { return name; };
  called.texts = [](std::string_view, std::initializer_list<std::string_view> values) {
    return std::string(*values.begin());
  };
  EXPECT_EQ(selectedCountries(list({"DE"}), called).text, (ShownText{name, ""}));
  name += "n";
  EXPECT_EQ(selectedCountries(list({"DE"}), called).text, (ShownText{std::string(52, 'n') + "...", name}));
}

TEST(CountryRulesTest, LimitsRegionsAndDataCentresTakeCountriesAway) {
  const auto center = [](const char* dc) { return Value::dictionaryFromPairs({{"dc", dc}}); };
  const Value byCenter =
      Value::Array{Value::dictionaryFromPairs({{"dcName", "EU"}, {"dcCountries", list({"DE", "FR"})}}),
                   Value::dictionaryFromPairs({{"dcName", "AP"}, {"dcCountries", list({"JP"})}})};
  const Value two = list({"US", "DE"}), three = list({"US", "DE", "JP"});
  const Value eu = Value::Array{center("EU")}, ap = Value::Array{center("AP")},
              euAndAp = Value::Array{center("EU"), center("AP")};
  const struct {
    const char* name;
    Value maximum, unchecked, selectedDcs;
    std::int64_t policy;
    std::vector<const char*> regions, chosen;
    std::vector<std::string> left;
    bool isChanged;
  } rows[] = {{"nothing in the way", two, {}, {}, 2, {"US"}, {"DE"}, {"US", "DE*"}, false},
              {"beyond the limit", two, {}, {}, 2, {}, {"JP", "DE"}, {"US", "DE*"}, true},
              {"regions allowed", two, {}, {}, 0, {"DE", "FR"}, {"DE"}, {"DE*"}, false},
              {"others are not", two, {}, {}, 0, {"DE"}, {"US"}, {"DE"}, true},
              {"regions blocked", two, {}, {}, 1, {"DE"}, {"DE"}, {"US"}, true},
              {"others are not", two, {}, {}, 1, {"DE"}, {"US"}, {"US*"}, false},
              {"all blocked", two, {}, {}, 1, {"DE", "US"}, {"US", "DE"}, {}, true},
              {"a centre not used", three, eu, {}, 2, {}, {"DE", "US"}, {"US*", "JP"}, true},
              {"a centre used", three, euAndAp, list({"EU"}), 2, {}, {"DE"}, {"US", "DE*"}, false},
              {"both", three, ap, {}, 1, {"US"}, {"US"}, {"DE"}, true},
              {"without a name", list({"??", "US"}), {}, {}, 2, {}, {"??"}, {"US"}, false},
              // No limit has come, so nobody loses what they have chosen for want of one.
              {"no limit", {}, {}, {}, 2, {}, {"US", "BR"}, {"CH", "US*", "BR*"}, false},
              {"no limit, regions blocked", {}, {}, {}, 1, {"US"}, {"US"}, {"CH"}, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    VNAvailableDialinCountryContent content;
    content.hash = "h";
    content.allCountries = {{"CH", "Land CH", false, false}, {"US", "Land US", false, false}};
    content.selectedCountries = list(row.chosen);
    CountryConflict conflict{.webUncheckedDCInfos = row.unchecked,
                             .selectedDcs = row.selectedDcs,
                             .regionPolicyType = row.policy,
                             .selectedRegions = list(row.regions)};
    conflict.maximumDialinCountry.set("maximumDialinCountries", row.maximum);
    conflict.maximumDialinCountry.set("pstnDcWithCountries", byCenter);
    const NarrowedCountries narrowed = updateDialinCountryForConflict(conflict, content, names());
    EXPECT_EQ(codesOf(narrowed.content), row.left);
    EXPECT_EQ(narrowed.isChanged, row.isChanged);
    EXPECT_EQ(narrowed.content.hash, "h");
  }
}

TEST(CountryRulesTest, ABlankBehindTheSearchFlipsTheEnteredCountry) {
  const struct {
    std::string typed;
    bool isEntered;
    CountrySearch search;
  } rows[] = {{"", true, {"", false}},
              {" \n\t de", true, {"de", false}},
              {"de ", true, {"de", true}},
              {"de ", false, {"de ", false}},
              {"d ", true, {"d", true}},
              {" ", true, {"", false}},
              {"de\u3000", true, {"de", true}},
              {"de  ", true, {"de ", true}},
              {std::string(255, 'd') + "e ", true, {std::string(255, 'd') + "e", false}},
              {std::string(255, 'd') + "\U0001F600", true, {std::string(255, 'd'), false}},
              {"\u05D0\u0301 ", true, {"\u05D0\u0301", true}}};
  for (const auto& row : rows) EXPECT_EQ(countrySearch(row.typed, row.isEntered), row.search) << row.typed;
}

TEST(LocalTextTest, OrdersAndComparesAsTheLanguageDoes) {
  EXPECT_EQ(lowerCased("INDIA", "tr"), "\u0131nd\u0131a");
  EXPECT_EQ(lowerCased("INDIA", "no language at all"), "india");
  EXPECT_EQ(lowerCased("O\u0308sterreich", "de"), "\u00F6sterreich") << "composed";
  const TextOrder german("de");
  EXPECT_LT(german.key("\u00D6sterreich"), german.key("Polen"));
  EXPECT_EQ(german.key("polen"), german.key("POLEN"));
  const TextOrder swedish("sv");
  EXPECT_GT(swedish.key("\u00D6sterrike"), swedish.key("Zimbabwe"));
}

// -- The window --------------------------------------------------------------------------------------------------

class CountriesPanelTest : public SettingsPanelTest {
 protected:
  CountriesPanelTest() { know({"US", "DE", "AT", "TW"}, {"US", "DE"}); }

  static Value countries(const std::vector<const char*>& all, const std::vector<const char*>& selected) {
    return Value::dictionaryFromPairs({{vn_Setting_DialinCountry_Hash, "h"},
                                       {vn_Setting_DialinCountry_IncludeTollfree, false},
                                       {vn_Setting_DialinCountry_EnableShowIncludeTollfree, true},
                                       {vn_Setting_DialinCountry_SelectedCountries, list(selected)},
                                       {vn_Profile_AllCountries, list(all)}});
  }
  void know(const std::vector<const char*>& all, const std::vector<const char*>& selected,
            const Value& more = Value::dictionary()) {
    Value profile = Value::dictionaryFromPairs({{"userId", "me"},
                                                {vn_Profile_SupportFeatureOptions, 1},
                                                {vn_Setting_AvailableDialinCountry, countries(all, selected)}});
    profile.addEntries(more);
    vnUserProfileHelper::sharedInstance().clearUserProfile();
    vnUserProfileHelper::sharedInstance().setData(profile);
  }
  void openWindow() {
    open();
    EXPECT_EQ(click("editCountriesButton"), Use::done);
  }
  // The rows on the screen: a mark for a chosen one, brackets around the entered one.
  std::vector<std::string> rows() {
    std::vector<std::string> seen;
    for (int i = 0; const Control* row = shown()->find("countryRow" + std::to_string(i)); ++i) {
      if (!isOnScreen(row->key)) continue;
      const std::string text = row->text + (row->on ? "*" : "");
      seen.push_back(row->isFocused ? "[" + text + "]" : text);
    }
    return seen;
  }
  Value chosen() {
    return settings()[vn_Setting_AvailableDialinCountry][vn_Setting_DialinCountry_SelectedCountries];
  }
  Value committed() {
    click("buttonContinue");
    return chosen();
  }
};

TEST_F(CountriesPanelTest, ListsTheCountriesByTheirNamesAndWhatIsChosenCountsAfterDone) {
  openWindow();
  EXPECT_THAT(rows(), ElementsAre("Austria", "Germany*", "Taiwan", "United States*"));
  turn("countryRow0", true);
  turn("countryRow3", false);
  turn("_includeTollfreeNumberBtn", true);
  EXPECT_EQ(control("_displaySelectedLabel").text, "Germany, Austria");
  EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States and Germany");
  click("_doneBtn");
  EXPECT_FALSE(isOnScreen("countryRow0"));
  view().initializeItems();
  EXPECT_EQ(control("selectedCountriesField").text, "Dial in from Germany and Austria")
      << "also when loaded again";
  EXPECT_EQ(committed(), list({"DE", "AT"}));
  openWindow();
  EXPECT_THAT(rows(), ElementsAre("Austria*", "Germany*", "Taiwan", "United States"));
  EXPECT_TRUE(control("_includeTollfreeNumberBtn").on);
  view().settingData().setIncludeTollfree(false);
  view().initializeItems();
  EXPECT_FALSE(control("_includeTollfreeNumberBtn").on) << "loaded again while it is shown";
}

TEST_F(CountriesPanelTest, NamesAndOrderAreOfTheUsersLanguage) {
  test.surroundings.languages = {"de-DE"};
  know({"US", "AT", "ZW", "EG"}, {"AT"}, Value::dictionaryFromPairs({{vn_Profile_IsTaiWanZH, true}}));
  openWindow();
  EXPECT_THAT(rows(), ElementsAre("\u00C4gypten", "\u00D6sterreich*", "Simbabwe", "Vereinigte Staaten"));
  type("_searchField", "\u00D6STER");
  EXPECT_THAT(rows(), ElementsAre("[\u00D6sterreich*]"));
}

TEST_F(CountriesPanelTest, ClearingAllDisablesDoneAndCancelBringsTheChoiceBack) {
  openWindow();
  click("_selectBtn");
  EXPECT_THAT(rows(), ElementsAre("Austria", "Germany", "Taiwan", "United States"));
  EXPECT_EQ(click("_doneBtn"), Use::disabled);
  EXPECT_FALSE(control("_errorForNoSelectedField").hidden);
  EXPECT_EQ(control("_displaySelectedLabel").text, "");
  EXPECT_EQ(control("_selectBtn").text, "Select all");
  click("_cancelBtn");
  EXPECT_TRUE(control("_errorForNoSelectedField").hidden);
  click("editCountriesButton");
  EXPECT_THAT(rows(), ElementsAre("Austria", "Germany*", "Taiwan", "United States*"));
  EXPECT_TRUE(control("_doneBtn").enabled && control("_errorForNoSelectedField").hidden);
  click("_selectBtn");
  click("_doneBtn");
  EXPECT_EQ(committed(), list({"US", "DE", "AT", "TW"})) << "in the account's order";
}

TEST_F(CountriesPanelTest, TheKeyboardSearchesChoosesAndLeaves) {
  openWindow();
  type("_searchField", " \nan");
  EXPECT_EQ(control("_searchField").text, "an");
  EXPECT_THAT(rows(), ElementsAre("[Germany*]", "Taiwan"));
  click("_searchField:moveDown");
  click("_searchField:moveDown");
  EXPECT_THAT(rows(), ElementsAre("Germany*", "[Taiwan]"));
  click("_searchField:insertNewline");
  EXPECT_THAT(rows(), ElementsAre("Germany*", "[Taiwan*]"));
  click("_searchField:moveUp");
  click("_searchField:moveUp");
  EXPECT_THAT(rows(), ElementsAre("[Germany*]", "Taiwan*"));
  type("_searchField", "an ");
  EXPECT_EQ(control("_searchField").text, "an");
  EXPECT_THAT(rows(), ElementsAre("[Germany]", "Taiwan*"));
  type("_searchField", "nowhere");
  EXPECT_THAT(rows(), IsEmpty());
  click("_searchField:insertNewline");
  click("_searchField:cancelOperation");
  EXPECT_EQ(control("_searchField").text, "");
  EXPECT_THAT(rows(), ElementsAre("Austria", "Germany", "Taiwan*", "United States*"));
  click("_searchField:cancelOperation");
  EXPECT_TRUE(control("editCountriesWindow").hidden);
  EXPECT_EQ(committed(), list({"US", "DE"})) << "Escape is no Done";
}

TEST_F(CountriesPanelTest, AreClearedByACommitOfAudioWithoutTheTelephone) {
  open();
  turn("voipButton", true);
  EXPECT_TRUE(committed().isAbsent());
  open();
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  turn("bothButton", true);
  EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States and Germany");
  EXPECT_EQ(committed(), list({"US", "DE"}));
}

TEST_F(CountriesPanelTest, AreThoseOfBeforeWhenThePanelIsDismissed) {
  for (const char* hash : {"h", ""}) {
    SCOPED_TRACE(hash);
    Value offered = countries({"US", "DE", "AT"}, {"US", "DE"});
    offered.set(vn_Setting_DialinCountry_Hash, hash);
    know({}, {}, Value::dictionaryFromPairs({{vn_Setting_AvailableDialinCountry, offered}}));
    openWindow();
    turn("countryRow0", true);
    click("_doneBtn");
    click("buttonCancel");
    open();
    EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States and Germany");
    endSettingsPanel(id());
  }
}

TEST_F(CountriesPanelTest, AnotherPanelsWindowKeepsItsOwnChoice) {
  openWindow();
  const FakeWindow other(test);
  const std::string otherId = openOn(other);
  const auto& record = test.presenter.panels();
  record.use(other.bar->ownWindow, "editCountriesButton");
  turn("countryRow0", true);
  click("_doneBtn");
  record.use(other.bar->ownWindow, "_doneBtn");
  record.use(other.bar->ownWindow, "buttonContinue");
  EXPECT_EQ(
      panels.getSchSettingWindowInArray(otherId)
          ->getVnSettingsData()[vn_Setting_AvailableDialinCountry][vn_Setting_DialinCountry_SelectedCountries],
      list({"US", "DE"}));
  endSettingsPanel(otherId);
  EXPECT_EQ(committed(), list({"US", "DE", "AT"}));
}

TEST_F(CountriesPanelTest, DataCentresNarrowThemAndTheTipTellsOfIt) {
  Account account = accountWith(UserOption3::isSupportRegionCustomization);
  account.set_id("me");
  const auto center = [](const char* dc) { return Value::dictionaryFromPairs({{"dc", dc}, {"name", dc}}); };
  const Value maximum = Value::dictionaryFromPairs(
      {{"maximumDialinCountries", list({"US", "DE", "AT"})},
       {"pstnDcWithCountries",
        Value::Array{Value::dictionaryFromPairs({{"dcName", "EU"}, {"dcCountries", list({"DE", "AT"})}})}}});
  const Value more =
      Value::dictionaryFromPairs({{vn_Profile_Proto, EncodeUtils::base64Encode(account.SerializeAsString())},
                                  {vn_Profile_WebUncheckedDCInfos, Value::Array{center("EU"), center("JX")}},
                                  {vn_Profile_MaximumDialinCountry, maximum}});
  for (const bool isOld : {true, false}) {
    SCOPED_TRACE(isOld);
    RecordingClient::setVersion(test, isOld ? "5.4.59939" : "5.4.59940");
    know({"US", "DE", "AT", "TW"}, {"US", "DE"}, more);
    open();
    EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States and Germany");
    turn("enableDataCenterRegionsButton", true);
    EXPECT_EQ(control("dataCenterImpactCountriesTipView").hidden, isOld);
    if (!isOld) {
      EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States");
      EXPECT_FALSE(control("dataCenterImpactCountriesTipText").text.empty());
      turn("dataCenterButton2", true);
      EXPECT_TRUE(control("dataCenterImpactCountriesTipView").hidden) << "nothing more was taken";
      click("editCountriesButton");
      EXPECT_THAT(rows(), ElementsAre("Austria", "Germany", "United States*"));
      click("_cancelBtn");
      view().initializeItems();
      EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States") << "loaded again";
    }
    EXPECT_EQ(committed(), isOld ? list({"US", "DE"}) : list({"US"}));
    endSettingsPanel(id());
  }
}

// A meeting that stands is opened with what its region policy leaves, and a new one with what the user has chosen.
TEST_F(CountriesPanelTest, TheRegionsOfAMeetingThatStandsNarrowThemWhenItIsOpened) {
  const Value policy =
      Value::dictionaryFromPairs({{vn_Setting_RegionType, 1}, {vn_Setting_RegionCodes, list({"DE"})}});
  for (const bool isUpdate : {true, false}) {
    SCOPED_TRACE(isUpdate);
    know({"US", "DE"}, {"US", "DE"},
         Value::dictionaryFromPairs(
             {{vn_Profile_MaximumDialinCountry,
               Value::dictionaryFromPairs({{"maximumDialinCountries", list({"US", "DE"})}})},
              {vn_Setting_JoinMeetingRegionSetting,
               Value::dictionaryFromPairs(
                   {{vn_Setting_RegionPolicy, policy}, {vn_Setting_TotalRegionCodes, list({"DE", "US"})}})}}));
    window = std::make_unique<FakeWindow>(test);
    if (isUpdate) knowMeeting();
    open();
    view().settingData().setEnableAllowDenyJoinMeetingRegion(true);
    view().settingData().setRegionType(1);
    view().settingData().setArrRegionCodes(list({"DE"}));
    view().updateUIItemsForNextTime();
    EXPECT_EQ(control("selectedCountriesField").text,
              isUpdate ? "Dial in from United States" : "Dial in from United States and Germany");
    EXPECT_TRUE(control("allowDenyImpactCountriesTipView").hidden);
    EXPECT_FALSE(control("selectedCountriesField").isRed);
    view().settingData().setArrRegionCodes(list({"DE", "US"}));
    view().updateUIItemsForNextTime();
    EXPECT_EQ(control("selectedCountriesField").isRed, isUpdate) << "none is left";
    EXPECT_EQ(mayContinue(), !isUpdate);
    if (isUpdate) continue;
    view().settingData().setArrRegionCodes(list({"DE"}));
    view().settingData().setEnableAllowDenyJoinMeetingRegion(false);
    view().updateUIItemsForNextTime();
    EXPECT_EQ(turn("allowDenyButton", true), Use::done);
    EXPECT_EQ(control("selectedCountriesField").text, "Dial in from United States");
    EXPECT_FALSE(control("allowDenyImpactCountriesTipView").hidden);
  }
}

TEST_F(CountriesPanelTest, AreAnotherPersonsWhenTheMeetingIsForThatPerson) {
  Value austria = countries({"AT"}, {"AT"});
  austria.set(vn_Setting_DialinCountry_Hash, "hers");
  austria.set(vn_Setting_DialinCountry_IncludeTollfree, true);
  const Value blocked =
      Value::dictionaryFromPairs({{vn_Setting_RegionType, 1}, {vn_Setting_RegionCodes, list({"DE"})}});
  const Value dana = Value::dictionaryFromPairs(
      {{vn_Boss_Email, "dana@vorn.example"},
       {vn_Boss_DisplayName, "Dana"},
       {vn_Boss_PMI, "5550777777"},
       {vn_Profile_UserOption3, static_cast<std::int64_t>(UserOption3::isEnableAllowDenyJoinMeetingRegion)},
       {vn_Setting_AvailableDialinCountry, austria},
       {vn_Setting_JoinMeetingRegionSetting, Value::dictionaryFromPairs({{vn_Setting_RegionPolicy, blocked}})}});
  const Value people = Value::dictionaryFromPairs({{vn_Profile_Bosses, Value::Array{dana}}});
  know({"US", "DE"}, {"US", "DE"}, people);
  vnGetScheduleForListHelper::sharedInstance().setData(people);
  open();
  for (const bool isDanas : {true, false}) {
    choose("scheduleForPopup", isDanas ? 1 : 0);
    EXPECT_EQ(control("selectedCountriesField").text,
              isDanas ? "Dial in from Austria" : "Dial in from United States and Germany");
  }

  // Who opens it in that person's name goes back to theirs, also where the personal meeting has not come yet.
  for (const bool isPersonal : {false, true}) {
    constexpr auto centres = UserOption3::isEnableRegionCustomization;
    Account account =
        isPersonal ? accountWith(centres, UserOption3::isDefaultScheduleUsePMI) : accountWith(centres);
    account.set_id("me");
    Value more = people;
    more.set(vn_Profile_Proto, EncodeUtils::base64Encode(account.SerializeAsString()));
    know({"US", "DE"}, {"US", "DE"}, more);
    window = std::make_unique<FakeWindow>(test);
    window->sendFrom("dana@vorn.example", true);
    open();
    panels.getSchSettingWindowInArray(id())->setScheduleForListInfo(true);
    EXPECT_EQ(settings()[vn_Setting_IsPMI].boolValue(), isPersonal);
    EXPECT_EQ(chosen(), list({"AT"}));
    const Value hers = settings();
    click("buttonCancel");
    EXPECT_EQ(settings(), hers);
  }
}

TEST_F(CountriesPanelTest, AreOpenedAndSearchedInTimeLinearInThem) {
  Value all = Value::array();
  for (int i = 0; i < 10000; ++i) all.append("c" + std::to_string(i));
  Value profile = countries({}, {});
  profile.set(vn_Profile_AllCountries, all);
  profile.set(vn_Setting_DialinCountry_SelectedCountries, all);
  know({}, {}, Value::dictionaryFromPairs({{vn_Setting_AvailableDialinCountry, profile}}));
  openWindow();
  type("_searchField", "99");
  EXPECT_THAT(rows().front(), StartsWith("[c"));
  click("_selectBtn");
  click("_selectBtn");
  click("_doneBtn");
  EXPECT_EQ(committed().count(), 10000u);
}

}  // namespace
}  // namespace vorn
