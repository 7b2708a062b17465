// The number of a meeting: the rules as tables, and the panel with its client.

#include "data/NotAgainFlags.h"
#include "settings/rules/MeetingIdRules.h"
#include "tests/settings/MeetingIdFixture.h"
#include "tests/settings/RuleTexts.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;

using MeetingIdPanelTest = MeetingIdFixture;

TEST(MeetingIdRulesTest, TellsWhoseIdIsTurnedOffAndWhatFollows) {
  const char* none = nullptr;
  constexpr auto ofNew = "Schedule_DisablePMI_Message", ofUpdate = "Update_DisablePMI_Message";
  constexpr auto danas = "Schedule_DisablePMI_Message_ScheduleForOther(Dana)",
                 jons = "Schedule_DisablePMI_Message_ScheduleForOtherWithSSuffix(Jons)",
                 jonsUpdate = "Update_DisablePMI_Message_ScheduleForOtherWithSSuffix(Jons)";
  using Facts = DisabledPMIFacts;
  const Facts jonsNoMore{.isDisabled = true,
                         .isForMyself = false,
                         .name = "Jons",
                         .personalId = "5",
                         .doNotShowDisablePMIMessage = true},
      jonsPersonal{.isDisabled = true, .isForMyself = false, .name = "Jons", .isUpdate = true, .usePMI = true};
  const struct {
    const char* name;
    Facts facts;
    bool isShown;
    const char* text;
  } rows[] = {
      {"not turned off", {.usePMI = true, .personalId = "5"}, false, none},
      {"a new meeting", {.isDisabled = true, .personalId = "5"}, true, ofNew},
      {"a user without an ID", {.isDisabled = true, .personalId = "0"}, false, none},
      {"no more", {.isDisabled = true, .personalId = "5", .doNotShowDisablePMIMessage = true}, false, ofNew},
      {"a personal meeting", {.isDisabled = true, .isUpdate = true, .usePMI = true}, true, ofUpdate},
      {"one with its own number", {.isDisabled = true, .isUpdate = true, .personalId = "5"}, false, none},
      {"another", {.isDisabled = true, .isForMyself = false, .name = "Dana", .personalId = "5"}, true, danas},
      {"another person, no more", jonsNoMore, true, jons},
      {"another, by a user without an ID",
       {.isDisabled = true, .isForMyself = false, .name = "Dana"},
       false,
       none},
      {"another's personal meeting", jonsPersonal, true, jonsUpdate},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const DisabledPMIMessage message = disabledPMIMessage(row.facts, textOfKey);
    EXPECT_EQ(message.isShown, row.isShown);
    EXPECT_EQ(message.canBeClosed, row.facts.isForMyself);
    EXPECT_EQ(message.text, row.text ? std::optional<std::string>(row.text) : std::nullopt);
  }
}

TEST_F(MeetingIdPanelTest, ContinueComesBackWhenTheClientFails) {
  knowAccount();
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"an error", [this] { answer("4", "0;Error 3001"); }},
      {"nothing readable", [this] { answer("4", "?"); }},
      {"no reply", [this] { test.runLoop.runFor(61); }},
  };
  for (const auto& [name, fails] : rows) {
    SCOPED_TRACE(name);
    window = std::make_unique<FakeWindow>(test);
    open();
    turn("buttonUsePMI", true);
    answer("9", "0;Error 3001");
    EXPECT_FALSE(mayContinue()) << "that was another's reply";
    fails();
    EXPECT_TRUE(mayContinue());
  }
  test.workspace.running.clear();
  window = std::make_unique<FakeWindow>(test);
  open();
  turn("buttonUsePMI", true);
  EXPECT_TRUE(mayContinue()) << "nothing was asked";
}

// A switch that is on asks for a passcode, so that none is lost unseen.
TEST_F(MeetingIdPanelTest, APersonalMeetingThatCannotBeFetchedGetsNoWordsOfAnotherMeeting) {
  people = Value::Array{person(kDana, "Dana", "5550777777")};
  constexpr const char* costCentre = "trackingFieldItem0._comboBox";
  const auto hosts = [this] { return view().settingsToCommit()[vn_Setting_AlternateHosts]; };
  const auto put = [this](const char* host) {
    click("alternateHostTextField", [host](Control& field) { field.tokens.paste(host); });
  };
  const auto dialInAndDomains = [this] {
    const Value settings = view().settingsToCommit();
    return settings[vn_Setting_ThirdPartyAudio].text() + " " +
           settings[vn_Setting_MeetingAuth][vn_Setting_MeetingAuth_AuthDomain].text();
  };
  const struct {
    const char* name;
    bool isLoaded, isForDana, isRefused;
    bool comesAgain = false;
  } rows[] = {
      {"a new meeting", false, false, false},
      {"another person's", false, true, false},
      {"the personal meeting", true, false, false},
      {"a new meeting that was refused", false, false, true},
      {"another person's that was refused", false, true, true},
      {"the personal meeting that was refused", true, false, true},
      {"the personal meeting that was refused and is fetched again", true, false, true, true},
      {"the personal meeting whose commit nobody answered and that is fetched again", true, false, false, true},
  };
  for (const auto& [name, isLoaded, isForDana, isRefused, comesAgain] : rows) {
    SCOPED_TRACE(name);
    window = std::make_unique<FakeWindow>(test);
    knowAccountWithWords();
    knowList();
    open();
    if (isForDana) choose("scheduleForPopup", 1);
    if (isLoaded) {
      turn("buttonUsePMI", true);
      answerMeeting("5550142871", true);
      turn("requiredMeetingPswButton", true);
      type("passwordTextField", "112233");
    }
    put("ann@vorn.example;");
    type(costCentre, "CC-1");
    typeDialInAndDomains();
    view().onSettingsCommit(true);
    if (isRefused) view().commitRefused();
    view().updateUIItemsForNextTime();
    put("sam@vorn.example;");
    const std::string passcode = control("passwordTextField").text;
    const Value both = Value::Array{"ann@vorn.example", "sam@vorn.example"};
    EXPECT_EQ(hosts(), both);
    click("viewEditButton");
    EXPECT_TRUE(isOnScreen("domainsWindow"));
    isLoaded ? choose("scheduleForPopup", 1) : turn("buttonUsePMI", true);
    answer("4", "0;Error 3001");
    EXPECT_EQ(control("passwordTextField").text + control(costCentre).text, "");
    EXPECT_EQ(hosts(), Value(Value::Array{"sam@vorn.example"})) << "put in just now";
    EXPECT_EQ(dialInAndDomains(), "Dial 1 corp.example") << "the account's";
    EXPECT_FALSE(isOnScreen("domainsWindow")) << "it was for the meeting before";
    EXPECT_TRUE(control("requiredMeetingPswButton").on && !mayContinue());
    type("passwordTextField", "998877");
    EXPECT_TRUE(mayContinue());
    isLoaded ? choose("scheduleForPopup", 0) : turn("buttonOneTimeMeeting", true);
    comesAgain ? answerMeeting("5550142871", true) : answer("4", "0;Error 3001");
    EXPECT_EQ(control("passwordTextField").text + control(costCentre).text, passcode + "CC-1");
    EXPECT_EQ(hosts(), both);
    EXPECT_EQ(dialInAndDomains(), "Dial 555 acme.example");
  }
}

TEST_F(MeetingIdPanelTest, OfTwoMeetingsThatWereRefusedEachKeepsItsWords) {
  knowAccountWithWords();
  open();
  const auto refuseWith = [this](const char* host) {
    click("alternateHostTextField", [host](Control& field) { field.tokens.paste(host); });
    commitAndBeRefused();
  };
  const auto hosts = [this] { return view().settingsToCommit()[vn_Setting_AlternateHosts]; };
  refuseWith("ann@vorn.example;");
  turn("buttonUsePMI", true);
  answerMeeting("5550142871", true);
  refuseWith("sam@vorn.example;");
  turn("buttonOneTimeMeeting", true);
  EXPECT_EQ(hosts(), Value(Value::Array{"ann@vorn.example"}));
  turn("buttonUsePMI", true);
  answerMeeting("5550142871", true);
  EXPECT_EQ(hosts(), Value(Value::Array{"sam@vorn.example"}));
  view().onSettingsCommit(true);
  view().commitStands();
  turn("buttonOneTimeMeeting", true);
  EXPECT_EQ(hosts().count(), 0u) << "another was accepted in its place";
}

TEST_F(MeetingIdPanelTest, WhereTheAccountNamesNoWayToSignInAPersonalMeetingGetsNoneOfAnotherMeeting) {
  Account account;
  account.set_roommeetingid(5550142871);
  SettingsPanelTest::knowAccount(account, {{vn_Profile_SupportOnlyAuthUsersCanJoin, true}});
  knowMeetingOfAnn(Value::dictionary());
  open();
  EXPECT_EQ(control("domainText").text, "acme.example;beta.example");
  turn("buttonUsePMI", true);
  answer("4", "0;Error 3001");
  const Value auth = view().settingsToCommit()[vn_Setting_MeetingAuth];
  EXPECT_EQ(auth[vn_Setting_MeetingAuth_AuthId], Value(""));
  EXPECT_EQ(auth[vn_Setting_MeetingAuth_AuthDomain], Value(""));
}

// Nor does it lose its own on the way to a number of its own and back.
TEST_F(MeetingIdPanelTest, APersonalMeetingThatStandsHasItsOwnWordsThoughItCannotBeFetchedAnew) {
  for (const bool signsIn : {true, false}) {
    SCOPED_TRACE(signsIn);
    window = std::make_unique<FakeWindow>(test);
    knowAccountWithWords(0, signsIn);
    knowMeetingOfAnn(Value::dictionaryFromPairs({{vn_Setting_IsPMI, true},
                                                 {vn_Setting_MeetingPassword, "998877"},
                                                 {vn_MeetingData_Enable3rdPartyAudio, true},
                                                 {vn_Setting_ThirdPartyAudio, "Dial 555"}}));
    open();
    answer("4", "0;Error 3001");
    const Value before = view().settingsToCommit();
    EXPECT_EQ(before[vn_Setting_AlternateHosts].count(), 1u);
    turn("buttonOneTimeMeeting", true);
    turn("onlySignedinWithSpecifiedDomains", true);
    for (const std::string_view key : {vn_Setting_AlternateHosts, vn_Setting_ThirdPartyAudio,
                                       vn_Setting_MeetingAuth, vn_Setting_TrackingFields}) {
      EXPECT_EQ(view().settingsToCommit()[key], before[key]) << key;
    }
    turn("buttonUsePMI", true);
    answer("4", "0;Error 3001");
    for (const std::string_view key :
         {vn_Setting_IsPMI, vn_Setting_MeetingPassword, vn_Setting_AlternateHosts, vn_Setting_ThirdPartyAudio,
          vn_Setting_IsSignedInUsersMeetingOn, vn_Setting_MeetingAuth}) {
      EXPECT_EQ(view().settingsToCommit()[key], before[key]) << key;
    }
  }
}

TEST_F(MeetingIdPanelTest, OfTwoThatWereAskedForTheWantedOneComesAndContinueWaitsForIt) {
  isDefaultPMI = true;
  people = Value::Array{person(kDana, "Dana", "5550000000")};
  knowAccount();
  knowList();
  open();
  EXPECT_FALSE(mayContinue()) << "the panel opens with a personal meeting";
  choose("scheduleForPopup", 1);
  asked();
  answerMeeting("5550142871", true);
  EXPECT_EQ(control("videoHostMatrix").index, 1) << "one's own, which is wanted no more";
  EXPECT_EQ(asked().size(), 1u);
  EXPECT_FALSE(mayContinue());
  answerMeeting("5550000000", true, kDana);
  EXPECT_EQ(control("videoHostMatrix").index, 0);
  EXPECT_TRUE(mayContinue());
}

TEST_F(MeetingIdPanelTest, AReplyForAPanelThatWasLeftChangesNothing) {
  SettingsPanelTest::knowAccount(accountWith(UserOption3::isEnablePMIRequirePassword));
  open();
  EXPECT_FALSE(control("requiredMeetingPswButton").on);
  turn("buttonUsePMI", true);
  EXPECT_TRUE(control("requiredMeetingPswButton").on) << "whatever the reply will be";
  click("buttonCancel");
  const Value before = settings();
  answerMeeting("5550142871", true);
  EXPECT_EQ(settings(), before);
}

TEST_F(MeetingIdPanelTest, WhatCameWhileThePanelWasLeftIsAskedForOnceMore) {
  isDefaultPMI = true;
  knowAccount();
  open();
  EXPECT_THAT(asked(), ElementsAre("4;5550142871"));
  click("buttonCancel");
  answerMeeting("5550142871", true);
  EXPECT_FALSE(settings()[vn_Setting_EnableHostVideo].boolValue());
  open();
  EXPECT_THAT(asked(), ElementsAre("4;5550142871"));
  turn("forceIncludeJoinurlInLocation", false);
  answerMeeting("5550142871", true);
  EXPECT_TRUE(settings()[vn_Setting_EnableHostVideo].boolValue());
  EXPECT_FALSE(settings()[vn_Setting_ForceIncludeJoinurlInLocation].boolValue());
  click("buttonCancel");
  EXPECT_TRUE(settings()[vn_Setting_EnableHostVideo].boolValue());
  EXPECT_TRUE(settings()[vn_Setting_ForceIncludeJoinurlInLocation].boolValue());
  open();
  EXPECT_THAT(asked(), IsEmpty()) << "it is there";
}

TEST_F(MeetingIdPanelTest, WhoTurnsAwayBeforeItComesFindsThePersonalMeetingOfTheOpeningAgain) {
  isDefaultPMI = true;
  people = Value::Array{person(kDana, "Dana", "5550000000")};
  knowAccount();
  knowList();
  for (const bool goesToDana : {false, true}) {
    for (const bool isAnswered : {true, false}) {
      SCOPED_TRACE(testing::Message() << goesToDana << isAnswered);
      window = std::make_unique<FakeWindow>(test);
      open();
      goesToDana ? choose("scheduleForPopup", 1) : turn("buttonOneTimeMeeting", true);
      isAnswered ? answerMeeting("5550142871", true) : answer("4", "0;Error 3001");
      if (goesToDana) answerMeeting("5550000000", true, kDana);
      click("buttonCancel");
      asked();
      open();
      EXPECT_EQ(control("scheduleForPopup").index, 0);
      EXPECT_THAT(asked(), ElementsAre("4;5550142871"));
      EXPECT_FALSE(mayContinue());
      answerMeeting("5550142871", true);
      EXPECT_EQ(control("videoHostMatrix").index, 0) << "the meeting's own";
      EXPECT_TRUE(mayContinue());
    }
  }
}

// Nor does a commit that is refused let it forget that the meeting was never loaded.
TEST_F(MeetingIdPanelTest, WhoIsRefusedAndGoesBackFindsThePersonalMeetingOfTheOpeningAgain) {
  isDefaultPMI = true;
  knowAccount();
  open();
  answer("4", "0;Error 3001");
  turn("buttonOneTimeMeeting", true);
  commitAndBeRefused();
  EXPECT_TRUE(control("buttonOneTimeMeeting").on) << "what was refused is shown again";
  click("buttonCancel");
  asked();
  open();
  EXPECT_THAT(asked(), ElementsAre("4;5550142871"));
}

TEST_F(MeetingIdPanelTest, APasscodeThatWasRefusedIsToldOfItsOwnMeetingAlone) {
  knowAccount();
  SiteFlag(vn_NotStrongerPasscode).set(true);
  open();
  for (const bool usePMI : {false, true, false}) {
    turn(usePMI ? "buttonUsePMI" : "buttonOneTimeMeeting", true);
    if (usePMI) {
      answerMeeting("5550142871", true);
      EXPECT_TRUE(mayContinue()) << "its own passcode was accepted";
      turn("requiredMeetingPswButton", true);
      type("passwordTextField", "998877");
    }
    EXPECT_EQ(control("pswFormatErrorTextField").hidden, usePMI);
    EXPECT_EQ(mayContinue(), usePMI);
  }
  turn("requiredMeetingPswButton", true);
  EXPECT_TRUE(mayContinue());
}

// What the personal meeting has brought does not stay behind in one with a number of its own.
TEST_F(MeetingIdPanelTest, AWayToSignInOfThePersonalMeetingIsNoneOfAnother) {
  Account account;
  account.set_roommeetingid(5550142871);
  SettingsPanelTest::knowAccount(account, {{vn_Profile_SupportOnlyAuthUsersCanJoin, true}});
  open();
  turn("buttonUsePMI", true);
  answerMeeting("5550142871", true);
  turn("onlySignedinWithSpecifiedDomains", true);
  view().settingData().setSignInChoice(
      {.authId = "a1", .authName = "Acme", .authDomain = "acme.example", .authType = 1});
  view().initializeItems();
  EXPECT_EQ(control("domainText").text, "acme.example");
  turn("buttonOneTimeMeeting", true);
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_TRUE(view().settingsToCommit()[vn_Setting_MeetingAuth][vn_Setting_MeetingAuth_AuthDomain].text().empty());
}

TEST_F(MeetingIdPanelTest, AMeetingThatStandsShowsItsNumber) {
  knowAccount(false, true);
  knowMeeting();
  open();
  EXPECT_EQ(control("buttonOneTimeMeeting").text, "Meeting ID 912 3456 7890");
  EXPECT_EQ(control("userSettingTipView").reason, "the meeting exists already");
  EXPECT_EQ(turn("buttonUsePMI", true), Use::disabled) << "locked";
  EXPECT_EQ(turn("buttonOneTimeMeeting", true), Use::disabled);
}

TEST_F(MeetingIdPanelTest, AnIdThatIsTurnedOffIsToldOfOnceAndCommittedByNobody) {
  isDefaultPMI = true;
  knowAccount(true);
  open();
  EXPECT_THAT(asked(), IsEmpty()) << "nothing to fetch";
  EXPECT_FALSE(isOnScreen("meetingIDBox"));
  EXPECT_TRUE(isOnScreen("pmiDisableText"));
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue());
  EXPECT_EQ(click("closePMIDisableMessageButton"), Use::done);
  EXPECT_FALSE(isOnScreen("pmiDisableMessageView"));
  EXPECT_TRUE(not_again::disabledPMI().isSet());
  click("buttonCancel");
  open();
  EXPECT_FALSE(isOnScreen("pmiDisableMessageView"));
  endSettingsPanel(id());

  knowAccount();
  open();
  answerMeeting("5550142871", false);
  EXPECT_TRUE(settings()[vn_Setting_IsPMI].boolValue());
  knowAccount(true);
  click("buttonContinue");
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue()) << "turned off while the panel was open";
}

// The rules came after the meeting's passcode.
TEST_F(MeetingIdPanelTest, AMeetingThatStandsHasItsOwnWordsAfterALookAtThePersonalOne) {
  people = Value::Array{person(kDana, "Dana", "5550777777")};
  knowAccountWithWords(8);
  knowList();
  for (const char* whose : {"", kDana}) {
    SCOPED_TRACE(whose);
    window = std::make_unique<FakeWindow>(test);
    knowMeetingOfAnn(Value::dictionaryFromPairs({{vn_Setting_ScheduleFor, whose},
                                                 {vn_Setting_MeetingPassword, "123"},
                                                 {vn_MeetingData_Enable3rdPartyAudio, true},
                                                 {vn_Setting_ThirdPartyAudio, "Dial 555"}}));
    open();
    const Value before = view().settingsToCommit();
    EXPECT_EQ(before[vn_Setting_AlternateHosts].count(), 1u);
    for (const char* last : {"nothing", "a look", "a refused commit"}) {
      SCOPED_TRACE(last);
      if (last != std::string("nothing")) {
        turn("buttonUsePMI", true);
        answerMeeting(*whose ? "5550777777" : "5550142871", true, whose);
        EXPECT_EQ(control("videoHostMatrix").index, 0) << "it has come";
      }
      if (last == std::string("a refused commit")) {
        commitAndBeRefused();
      }
      turn("buttonOneTimeMeeting", true);
      const Value after = view().settingsToCommit();
      for (const std::string_view key : {vn_Setting_ThirdPartyAudio, vn_Setting_MeetingPassword,
                                         vn_Setting_AlternateHosts, vn_Setting_MeetingAuth}) {
        EXPECT_EQ(after[key], before[key]) << key;
      }
    }
  }
}

}  // namespace
}  // namespace vorn
