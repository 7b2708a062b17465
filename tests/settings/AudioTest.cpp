// The choice of a meeting's audio and of its data centres: the rules by tables, and the panel around them.

#include "data/vnGetScheduleForListHelper.h"
#include "settings/HelpLinks.h"
#include "settings/rules/AudioRules.h"
#include "settings/rules/DataCenterRules.h"
#include "tests/settings/PanelFixture.h"
#include "tests/settings/RuleTexts.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// -- Rules -------------------------------------------------------------------------------------------------------

constexpr AudioSite kPlain{.enableThirdPartyAudio = true};
constexpr AudioSite kOneAccount{.isTspSite = true, .tspAccounts = 1};
constexpr AudioSite kTwoAccounts{.isTspSite = true, .tspAccounts = 2};

// Which buttons are on: telephony, the provider's telephony, VoIP, both, third party; and the account's number
// where it is asked for.
std::string chosen(const AudioControls& controls) {
  std::string text;
  if (controls.telephonyOn) text += "T";
  if (controls.tspAccountOn) text += "P";
  if (controls.voipOn) text += "V";
  if (controls.bothOn) text += "B";
  if (controls.thirdPartyOn) text += "3";
  return controls.tspAccountPopupHidden ? text : text + std::to_string(controls.tspAccountIndex);
}

TEST(AudioRulesTest, EachTypeIsLoadedAndCommittedAsTheSiteKnowsIt) {
  const struct {
    AudioSite site;
    std::int64_t type;
    std::string chosen;
    std::int64_t committed;
  } rows[] = {{kPlain, 0, "T", 0},          {kPlain, 1, "V", 1},          {kPlain, 2, "B", 2},
              {kPlain, 3, "3", 3},          {kPlain, 100, "", 0},         {kPlain, 13, "", 0},
              {kOneAccount, 10, "T", 10},   {kOneAccount, 11, "", 10},    {kOneAccount, 12, "V", 12},
              {kOneAccount, 13, "B", 13},   {kOneAccount, 14, "B", 13},   {kOneAccount, 2, "", 10},
              {kTwoAccounts, 10, "P0", 10}, {kTwoAccounts, 11, "P1", 11}, {kTwoAccounts, 12, "V", 12},
              {kTwoAccounts, 13, "B0", 13}, {kTwoAccounts, 14, "B1", 14}, {kTwoAccounts, 100, "", 10}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.site.tspAccounts) + " accounts, type " + std::to_string(row.type));
    const AudioControls loaded = audioAtLoad(row.site, row.type);
    EXPECT_EQ(chosen(loaded), row.chosen);
    EXPECT_EQ(audioTypeFromUI(loaded, row.site), row.committed);
    EXPECT_EQ(loaded.telephonyHidden, row.site.tspAccounts == 2);
    EXPECT_EQ(loaded.tspAccountHidden, row.site.tspAccounts != 2);
    EXPECT_EQ(loaded.thirdPartyHidden, row.site.isTspSite);
  }
}

TEST(AudioRulesTest, AClickChoosesOneAndTheRecordTakesItsType) {
  const struct {
    AudioSite site;
    AudioButton clicked;
    int account;
    std::string chosen;
    std::int64_t type;
  } rows[] = {{kPlain, AudioButton::telephony, 0, "T", 0},
              {kPlain, AudioButton::voip, 0, "V", 1},
              {kPlain, AudioButton::both, 0, "B", 2},
              {kPlain, AudioButton::thirdParty, 0, "3", 3},
              {kOneAccount, AudioButton::telephony, 0, "T", 10},
              {kOneAccount, AudioButton::both, 0, "B", 13},
              {kTwoAccounts, AudioButton::telephony, 1, "P1", 11},
              {kTwoAccounts, AudioButton::both, 0, "B0", 13},
              {kTwoAccounts, AudioButton::both, 1, "B1", 14},
              {kTwoAccounts, AudioButton::voip, 1, "V", 12},
              {kTwoAccounts, AudioButton::thirdParty, 0, "3", 100}};
  for (const auto& row : rows) {
    for (const std::int64_t before : {0, 3, 12, 14}) {
      AudioControls controls = audioAtLoad(row.site, before);
      controls.tspAccountIndex = row.account;
      const AudioControls clicked = audioAfterClick(controls, row.clicked, row.site);
      EXPECT_EQ(chosen(clicked), row.chosen);
      EXPECT_EQ(audioTypeOfChoice(clicked, row.site), row.type) << row.chosen << " of " << row.site.tspAccounts;
    }
  }
}

TEST(AudioRulesTest, WhatIsHiddenCountsAsOff) {
  AudioSite withoutBoth = kPlain;
  withoutBoth.isScheduleAudioBothDisabled = true;
  EXPECT_TRUE(audioAtLoad(withoutBoth, 2).bothHidden);
  EXPECT_EQ(audioTypeFromUI(audioAtLoad(withoutBoth, 2), withoutBoth), 0);
  EXPECT_EQ(audioTypeFromUI(audioForEndToEnd(audioAtLoad(kPlain, 3)), kPlain), 1);
  const AudioControls encrypted = audioForEndToEnd(audioAtLoad(kTwoAccounts, 14));
  EXPECT_TRUE(encrypted.tspAccountHidden && encrypted.tspAccountPopupHidden && !encrypted.voipHidden);
  EXPECT_EQ(audioTypeFromUI(encrypted, kTwoAccounts), 12);
}

TEST(AudioRulesTest, CountriesGoWithTheTelephoneOfASiteThatLetsThemBeChosen) {
  AudioSite site = kPlain;
  EXPECT_FALSE(countriesAreShown(site, 2));
  site.isVornClientSupportEditCountries = true;
  for (const std::int64_t type : {0, 2, 100}) EXPECT_TRUE(countriesAreShown(site, type)) << type;
  for (const std::int64_t type : {1, 3}) EXPECT_FALSE(countriesAreShown(site, type)) << type;
  site.isTspSite = true;
  EXPECT_FALSE(countriesAreShown(site, 2));
}

TEST(AudioRulesTest, TheProvidersNameIsCutToWhatFitsBesideItsAccounts) {
  const std::string longest(18, 'n');
  const std::string tooLong = longest + "!";
  EXPECT_EQ(tspAccountName(longest, kTwoAccounts), longest);
  EXPECT_EQ(tspAccountName(tooLong, kTwoAccounts), std::string(15, 'n') + "...");
  EXPECT_EQ(tspAccountName(tooLong, kOneAccount), tooLong);
  EXPECT_EQ(tspAccountName(std::string(31, 'n'), kOneAccount), std::string(27, 'n') + "...");
  EXPECT_THAT(tspAccountTitles("Bell", kTwoAccounts, textOfKey),
              ElementsAre("Audio_TspAccount(Bell)(1)", "Audio_TspAccount(Bell)(2)"));
  EXPECT_THAT(tspAccountTitles("Bell", kOneAccount, textOfKey), IsEmpty());
  EXPECT_EQ(tspAccountToolTip(longest, kTwoAccounts, 0, textOfKey), "");
  EXPECT_EQ(tspAccountToolTip(tooLong, kTwoAccounts, 1, textOfKey), "Audio_TspAccount(" + tooLong + ")(2)");
  EXPECT_EQ(tspAccountToolTip(std::string(31, 'n'), kOneAccount, 0, textOfKey), std::string(31, 'n'));
}

TEST(DataCenterRulesTest, AreCheckedByTheirCodesAndChosenOneByOne) {
  const Value offered = Value::Array{Value::dictionaryFromPairs({{"dc", "US"}, {"name", "States"}}),
                                     Value::dictionaryFromPairs({{"dc", "JX"}, {"name", "Elsewhere"}}), Value(7)};
  const auto centers = dataCenters(offered, Value::Array{"JX", "EU"});
  ASSERT_EQ(centers.size(), 3u);
  EXPECT_EQ(centers[0], (DataCenter{"US", "States", false}));
  EXPECT_EQ(centers[1], (DataCenter{"JX", "Elsewhere", true}));
  EXPECT_EQ(dataCenterTitle(centers[0], textOfKey), "Schedule_Enable_DataCenterRegion_US");
  EXPECT_EQ(dataCenterTitle(centers[1], textOfKey), "Elsewhere");
  for (const char* dc : {"US", "HK", "CA", "TY", "EU", "LA", "AU", "SG", "IN", "DE", "CN", "NL", "SE", "IE"}) {
    const auto key = [](std::string_view text, auto) { return std::string(text); };
    EXPECT_THAT(dataCenterTitle({dc, "Elsewhere"}, key), ::testing::HasSubstr(std::string("_") + dc + "_1"));
  }
  const Value chosen = Value::Array{"JX", "EU", "JX"};
  EXPECT_EQ(chosenAfterClick(chosen, centers[0]), Value(Value::Array{"JX", "EU", "JX", "US"}));
  EXPECT_EQ(chosenAfterClick(chosen, centers[1]), Value(Value::Array{"EU"})) << "one that is off is nowhere";
}

// -- The panel ---------------------------------------------------------------------------------------------------

class AudioPanelTest : public SettingsPanelTest {
 protected:
  static Value centers(std::initializer_list<const char*> codes) {
    Value list = Value::array();
    for (const char* code : codes) {
      list.append(Value::dictionaryFromPairs({{"dc", code}, {"name", std::string("Name of ") + code}}));
    }
    return list;
  }
  static void knowCenters(const Value& offered = centers({"EU", "JX"})) {
    knowAccount(accountWith(UserOption3::isSupportRegionCustomization),
                {{vn_Profile_WebUncheckedDCInfos, offered}});
  }
  Value committed(std::string_view key) {
    click("buttonContinue");
    return settings()[key];
  }
};

TEST_F(AudioPanelTest, OffersAProvidersAccountsAndCommitsTheChosenOne) {
  Account account;
  account.mutable_tsp()->set_serviceprovider("A provider with a long name");
  account.mutable_tsp()->set_supportshybridaudio(true);
  account.add_tspaccounts();
  account.add_tspaccounts();
  knowAccount(account);
  open();
  EXPECT_THAT(control("tspAccountPopup").items, ElementsAre(ControlItem("A provider with..., account 1"),
                                                            ControlItem("A provider with..., account 2")));
  choose("tspAccountPopup", 1);
  EXPECT_EQ(control("tspAccountPopup").toolTip, "A provider with a long name, account 2");
  EXPECT_EQ(committed(vn_Setting_AudioOption), Value(11));

  // The site stays one when another window's end makes the account forgotten.
  for (const bool isLoadedAgain : {false, true}) {
    SCOPED_TRACE(isLoadedAgain);
    knowAccount(account);
    open();
    turn("tspAccountButton", true);
    choose("tspAccountPopup", 1);
    vnUserProfileHelper::sharedInstance().clearUserProfile();
    if (isLoadedAgain) view().initializeItems();
    EXPECT_THAT(control("tspAccountPopup").items, Contains(ControlItem("A provider with..., account 2")));
    EXPECT_EQ(committed(vn_Setting_AudioOption), Value(11));
  }
}

TEST_F(AudioPanelTest, AsksForTheThirdPartysTextAndKeepsItWhileThePanelIsLoadedAgain) {
  knowProfile({{"enableThirdPartyAudio", true}, {"thirdPartyAudio", "Dial 1"}});
  open();
  turn("thirdPartyAudioButton", true);
  type("thirdPartyAudioTextField", "Dial 2");
  panels.refreshSettingWindow(id(), false);
  EXPECT_EQ(control("thirdPartyAudioTextField").text, "Dial 2");
  turn("thirdPartyAudioButton", true);
  EXPECT_EQ(committed(vn_Setting_ThirdPartyAudio), Value("Dial 2"));
  view().commitStands();
  open();
  type("thirdPartyAudioTextField", "Dial 3");
  click("buttonCancel");
  open();
  EXPECT_EQ(control("thirdPartyAudioTextField").text, "Dial 2");
}

TEST_F(AudioPanelTest, EndToEndEncryptionLeavesTheComputersAudioAndGivesTheRestBack) {
  Account account;
  account.set_useroption(static_cast<std::int64_t>(UserOption::AlwaysUseBothAsDefaultAudio) |
                         static_cast<std::int64_t>(UserOption::EnableThirdPartyAudio));
  account.set_useroption3(static_cast<std::int64_t>(UserOption3::isSupportE2eeMeeting) |
                          static_cast<std::int64_t>(UserOption3::canScheduleE2eeMeeting));
  knowAccount(account, {{vn_Profile_SupportFeatureOptions, 1}});
  open();
  EXPECT_FALSE(control("thirdPartyAudioButton").hidden);
  turn("endtoendButton", true);
  for (const char* key : {"telephonyButton", "bothButton", "thirdPartyAudioButton", "selectedCountriesField",
                          "editCountriesButton", "thirdPartyAudioTextField"}) {
    EXPECT_TRUE(control(key).hidden) << key;
  }
  EXPECT_EQ(turn("voipButton", false), Use::disabled);
  EXPECT_TRUE(mayContinue()) << "nobody asks for countries now";
  turn("enhancedButton", true);
  EXPECT_FALSE(control("telephonyButton").hidden || control("selectedCountriesField").hidden);
  EXPECT_EQ(turn("bothButton", true), Use::done);
  turn("endtoendButton", true);
  EXPECT_EQ(committed(vn_Setting_AudioOption), Value(1));
}

TEST_F(AudioPanelTest, WantedDataCentresHaveToBeChosenBeforeThePanelGoes) {
  knowCenters();
  open();
  turn("enableDataCenterRegionsButton", true);
  EXPECT_EQ(control("dataCenterButton2").text, "Europe");
  EXPECT_EQ(control("dataCenterButton3").text, "Name of JX");
  EXPECT_TRUE(control("dataCenterNotSelectTextField").hidden);

  // Every open panel tells of it from then on, when it shows its centres again.
  const FakeWindow other(test);
  openOn(other);
  click("buttonContinue");
  ASSERT_NE(shown(), nullptr) << "it stays open";
  EXPECT_FALSE(control("dataCenterNotSelectTextField").hidden);
  const auto& record = test.presenter.panels();
  const auto turnOther = [&](bool on) {
    record.use(other.bar->ownWindow, "enableDataCenterRegionsButton", [on](Control& button) { button.on = on; });
    return record.on(other.bar->ownWindow)->isShown("dataCenterNotSelectTextField");
  };
  EXPECT_TRUE(turnOther(true));
  panels.refreshSettingWindow(id(), false);
  EXPECT_FALSE(turnOther(false) || turnOther(true)) << "a panel was loaded";
  endSettingsPanel(other.bar->ownWindow.windowId());

  turn("enableDataCenterRegionsButton", true);
  click("buttonContinue");
  EXPECT_FALSE(control("dataCenterNotSelectTextField").hidden);
  turn("dataCenterButton3", true);
  EXPECT_TRUE(control("dataCenterButton3").on && !control("dataCenterButton2").on);
  EXPECT_TRUE(control("dataCenterNotSelectTextField").hidden);
  EXPECT_EQ(committed(vn_Setting_AdditionalDCRegions), Value(Value::Array{"JX"}));
  EXPECT_EQ(shown(), nullptr);
}

// A centre is its code: of two entries with one code neither is on alone, whichever is clicked.
TEST_F(AudioPanelTest, TwoDataCentresWithOneCodeAreOne) {
  knowCenters(centers({"JX", "EU", "JX"}));
  open();
  turn("enableDataCenterRegionsButton", true);
  for (const char* clicked : {"dataCenterButton4", "dataCenterButton2"}) {
    turn(clicked, true);
    EXPECT_TRUE(control("dataCenterButton2").on && control("dataCenterButton4").on) << clicked;
    EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"JX"})) << "once";
    turn("dataCenterButton2", false);
    EXPECT_FALSE(control("dataCenterButton2").on || control("dataCenterButton4").on) << clicked;
    EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions].count(), 0u);
  }
}

TEST_F(AudioPanelTest, TheDataCentreThatWasClickedIsTheOneThatWasShown) {
  knowCenters(centers({"EU", "JX"}));
  open();
  turn("enableDataCenterRegionsButton", true);
  knowCenters(centers({"US", "EU", "JX"}));
  turn("dataCenterButton2", true);
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"EU"}));
  EXPECT_TRUE(control("dataCenterButton3").on && !control("dataCenterButton2").on) << "where it stands now";
  knowCenters(centers({"EU"}));
  turn("dataCenterButton4", true);
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"EU"})) << "JX is offered no more";
}

TEST_F(AudioPanelTest, DataCentresThatAreNotOfferedLeaveTheRecord) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"an older client", [&] { RecordingClient::setVersion(test, "4.6.20614"); }},
      {"an account without them",
       [] {
         knowAccount({}, {{vn_Profile_WebUncheckedDCInfos, centers({"EU"})}});
       }},
      {"none to choose", [] { knowCenters({}); }}};
  for (const auto& [name, change] : rows) {
    SCOPED_TRACE(name);
    knowCenters();
    RecordingClient::setVersion(test, "4.6.20615");
    open();
    turn("enableDataCenterRegionsButton", true);
    turn("dataCenterButton2", true);
    change();
    view().initializeItems();
    EXPECT_TRUE(control("dataCenterBox").hidden && control("enableDataCenterRegionsButton").hidden);
    EXPECT_FALSE(settings()[vn_Setting_EnableRegionCustomization].boolValue());
    EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions].count(), 0u);
    EXPECT_EQ(shown()->find("dataCenterButton2"), nullptr);
    endSettingsPanel(id());
  }
}

TEST_F(AudioPanelTest, DataCentresOfWhomNothingIsKnownStayTheMeetings) {
  knowCenters();
  open();
  turn("enableDataCenterRegionsButton", true);
  turn("dataCenterButton2", true);
  vnUserProfileHelper::sharedInstance().cleanup();
  turn("dataCenterButton3", true);
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"EU", "JX"})) << "as they were shown";
  turn("enableDataCenterRegionsButton", false);
  turn("enableDataCenterRegionsButton", true);
  EXPECT_TRUE(control("dataCenterButton2").on && control("dataCenterButton3").on);
  view().initializeItems();
  EXPECT_TRUE(control("dataCenterBox").hidden);
  EXPECT_EQ(committed(vn_Setting_AdditionalDCRegions), Value(Value::Array{"EU", "JX"}));
  EXPECT_TRUE(settings()[vn_Setting_EnableRegionCustomization].boolValue());

  const Value dana = Value::dictionaryFromPairs({{vn_Boss_Email, "dana@vorn.example"}});
  knowProfile({{vn_Profile_Bosses, Value::Array{dana}}});
  open();
  view().settingData().setScheduleForEmail("dana@vorn.example");
  view().settingData().setEnableRegionCustomization(true);
  view().settingData().setArrAdditionalDCRegions(Value::Array{"EU"});
  view().initializeItems();
  EXPECT_EQ(control("scheduleForPopup").index, 1);
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"EU"})) << "her list is on its way";
  vnGetScheduleForListHelper::sharedInstance().setData(
      Value::dictionaryFromPairs({{vn_Profile_Bosses, Value::Array{dana}}}));
  view().initializeItems();
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions].count(), 0u) << "she has none";
}

TEST_F(AudioPanelTest, TenThousandDataCentresComeAndGoAtOnce) {
  Value many = Value::array();
  for (int i = 0; i < 10000; ++i)
    many.append(Value::dictionaryFromPairs({{"dc", std::to_string(i)}, {"name", "n"}}));
  knowCenters(many);
  open();
  turn("enableDataCenterRegionsButton", true);
  turn("dataCenterButton10001", true);
  EXPECT_EQ(settings()[vn_Setting_AdditionalDCRegions], Value(Value::Array{"9999"}));
  turn("enableDataCenterRegionsButton", false);
  EXPECT_EQ(shown()->find("dataCenterButton10001"), nullptr);
}

}  // namespace
}  // namespace vorn
