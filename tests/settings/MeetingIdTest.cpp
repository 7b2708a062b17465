// The number of a meeting and whom it is scheduled for: the rules as tables, and the panel with its client.

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "data/NotAgainFlags.h"
#include "data/vnGetScheduleForListHelper.h"
#include "settings/rules/MeetingIdRules.h"
#include "settings/rules/ScheduleForRules.h"
#include "tests/settings/PanelFixture.h"
#include "tests/settings/RuleTexts.h"
#include "tests/support/Texts.h"
#include "util/Utf16.h"
#include "workflow/vnOnbehalfData.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDana = "dana@vorn.example";
constexpr const char* kBob = "bob@vorn.example";

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

Value person(const char* email, const char* name, const char* pmi = "", bool isDisabled = false) {
  return Value::dictionaryFromPairs(
      {{vn_Boss_Email, email}, {vn_Boss_DisplayName, name}, {vn_Boss_PMI, pmi}, {vn_Boss_DisablePMI, isDisabled}});
}

TEST(ScheduleForRulesTest, NamesThePeopleAndChoosesTheLastWithTheAddress) {
  const std::string longName(60, 'n');
  const Value people =
      Value::Array{person(kDana, "Dana Birch"), person(kBob, ""), person(kDana, longName.c_str())};
  const ScheduleForChoice choice = scheduleForChoice(people, "Myself", "DANA@vorn.example");
  ASSERT_EQ(choice.items.size(), 4u);
  EXPECT_EQ(choice.items[0].title, "Myself");
  EXPECT_EQ(choice.items[1].title, "Dana Birch (dana@vorn.example)");
  EXPECT_EQ(choice.items[2].title, kBob);
  EXPECT_EQ(choice.items[3].title, std::string(42, 'n') + "...");
  EXPECT_EQ(choice.items[3].toolTip, longName + " (dana@vorn.example)");
  EXPECT_EQ(choice.index, 3);
  EXPECT_EQ(scheduleForChoice(people, "Myself", "").index, 0);
  EXPECT_EQ(scheduleForChoice(people, "Myself", "eve@vorn.example").index, 0);
}

class MeetingIdPanelTest : public SettingsPanelTest {
 protected:
  void typeDialInAndDomains() {
    turn("thirdPartyAudioButton", true);
    type("thirdPartyAudioTextField", "Dial 555");
    turn("onlySignedinWithSpecifiedDomains", true);
    click("viewEditButton");
    type("_domainsTextField", "acme.example");
    click("domains_SaveBtn");
  }
  void knowAccount(bool isDisabled = false, bool isLocked = false) {
    Account account = isDefaultPMI ? accountWith(UserOption3::isDefaultScheduleUsePMI) : Account();
    if (isLocked) account.MergeFrom(accountWith(UserOption4::isLockScheduleUsePMI));
    account.set_email("me@vorn.example");
    account.set_roommeetingid(5550142871);
    SettingsPanelTest::knowAccount(account, {{vn_Profile_IsDisablePMI, isDisabled}, {vn_Profile_Bosses, people}});
  }
  void knowAccountWithWords(int passcodeLength = 0, bool signsIn = true) {
    Account account = accountWith(UserOption::EnableThirdPartyAudio, UserOption3::isEnableRequirePassword);
    account.set_usertype(2);
    account.set_roommeetingid(5550142871);
    account.set_otherteleconfinfo("Dial 1");
    account.add_trackingfields()->set_id("1");
    const Value staff = Value::dictionaryFromPairs({{vn_Setting_MeetingAuth_AuthId, "a1"},
                                                    {vn_Setting_MeetingAuth_AuthType, 1},
                                                    {vn_Setting_MeetingAuth_AuthDomain, "corp.example"},
                                                    {vn_Setting_MeetingAuth_DefaultAuth, true}});
    SettingsPanelTest::knowAccount(account, {{vn_Profile_Bosses, people},
                                             {vn_Profile_PasswordMinLength, passcodeLength},
                                             {vn_Profile_SupportOnlyAuthUsersCanJoin, true},
                                             {vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, signsIn},
                                             {vn_Profile_MeetingAuths, Value::Array{staff}}});
  }
  void knowList() {
    vnGetScheduleForListHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{vn_Profile_Bosses, people}}));
  }
  RecordingClient& client() { return static_cast<RecordingClient&>(Registry::shared<vSocketClientImpl>()); }
  void answer(const char* action, const std::string& content) {
    window->manager->apiMgr()->handleMessageRespose(
        Value::dictionaryFromPairs({{"actionId", action}, {"content", content}}));
  }
  void answerMeeting(const char* number, bool isHostVideoOn, const char* scheduleFor = "") {
    const Value meeting = Value::dictionaryFromPairs({{"meetingKey", number},
                                                      {vn_Setting_EnableHostVideo, isHostVideoOn},
                                                      {vn_Setting_ScheduleFor, scheduleFor},
                                                      {vn_Setting_IsPMI, true}});
    answer("4", std::string(13, ';') +
                    EncodeUtils::base64Encode(vnOLUtils::toJSONString(meeting).value_or("")).value_or(""));
  }
  // The meeting stands, Ann is its host, and only people of two companies may join.
  void knowMeetingOfAnn(Value meeting) {
    com::tidemar::webapp::proto::MeetingProto options;
    options.set_scheduleoptions(static_cast<std::int64_t>(ScheduleOptions::IsSignedInUsersMeetingOn));
    options.mutable_authproto()->set_authid("a1");
    options.mutable_authproto()->set_authtype(1);
    options.mutable_authproto()->set_authdomain("acme.example;beta.example");
    auto& host = *options.add_alternatehosts();
    host.set_id("ann");
    host.set_email("ann@vorn.example");
    auto& costCentre = *options.add_trackingfields();
    costCentre.set_id("1");
    costCentre.set_mtvalue("CC-1");
    window->manager->meetingDataMgr()->setMeetingKey("91234567890");
    meeting.set("meetingKey", "91234567890");
    vnGetMeetingHelper& helper = *window->manager->getMeetingHelper();
    helper.setMeetingData(meeting, false);
    helper.setPBMeetingData(EncodeUtils::base64Encode(options.SerializeAsString()));
  }
  // The panel is shown again with what was refused.
  void commitAndBeRefused() {
    view().onSettingsCommit(true);
    view().commitRefused();
    view().updateUIItemsForNextTime();
  }
  void answerList() {
    answer("11", vnOLUtils::toJSONString(Value::dictionaryFromPairs({{vn_Profile_Bosses, people}})).value_or(""));
  }
  std::vector<std::string> asked() {
    std::vector<std::string> all;
    for (const auto& [action, content] : client().requests) all.push_back(content.substr(0, content.find(";msO")));
    client().requests.clear();
    return all;
  }

  bool isDefaultPMI = false;
  Value people = Value::array();
};

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

TEST_F(MeetingIdPanelTest, AMeetingThatWasRefusedKeepsItsWordsForAnotherPerson) {
  people = Value::Array{person(kDana, "Dana", "5550777777")};
  knowAccountWithWords();
  knowList();
  open();
  typeDialInAndDomains();
  commitAndBeRefused();
  choose("scheduleForPopup", 1);
  turn("onlySignedinWithSpecifiedDomains", false);
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_EQ(control("thirdPartyAudioTextField").text, "Dial 555");
  EXPECT_EQ(control("domainText").text, "acme.example");
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

TEST_F(MeetingIdPanelTest, ThreeGettersSayThreeThingsOfWhomItIsFor) {
  people = Value::Array{person(kDana, "Dana", "5550777777")};
  knowAccount();
  knowList();
  open();
  const ScheduleForOptions& group = view().scheduleFor();
  EXPECT_EQ(group.getUIScheduleForEmail(), "");
  EXPECT_EQ(group.getScheduleForEmail(), "me@vorn.example");
  EXPECT_EQ(group.getScheduleForEmailFromUI(), "");
  choose("scheduleForPopup", 1);
  EXPECT_EQ(group.getUIScheduleForEmail(), kDana);
  EXPECT_EQ(group.getScheduleForEmail(), kDana);
  EXPECT_EQ(group.getScheduleForEmailFromUI(), "") << "a number of its own";
  people = Value::Array{person(kBob, "Bob", "5550888888"), person(kDana, "Dana", "5550777777")};
  knowAccount();
  choose("scheduleForPopup", 0);
  choose("scheduleForPopup", 1);
  EXPECT_EQ(control("buttonUsePMI").text, "Personal Meeting ID 555 077 7777")
      << "who is shown, not who is now first";
  turn("buttonUsePMI", true);
  EXPECT_EQ(panels.getSchSettingWindowInArray(id())->getScheduldForEmailFromUI(), kDana);
  EXPECT_EQ(choose("scheduleForPopup", 0), Use::done);
  EXPECT_EQ(group.getScheduleForEmailFromUI(), "");
}

TEST_F(MeetingIdPanelTest, ThePersonalMeetingOfAPersonIsFetchedOnceAndNoneForWhoHasNone) {
  people = Value::Array{person(kDana, "Dana", "5550777777"), person(kBob, "Bob")};
  knowAccount();
  knowList();
  open();
  choose("scheduleForPopup", 1);
  turn("buttonUsePMI", true);
  EXPECT_THAT(asked(), ElementsAre("4;5550777777"));
  answerMeeting("5550777777", true);
  turn("buttonOneTimeMeeting", true);
  turn("buttonUsePMI", true);
  EXPECT_THAT(asked(), IsEmpty()) << "it is known already";
  choose("scheduleForPopup", 2);
  EXPECT_THAT(asked(), IsEmpty()) << "Bob has no personal meeting, and mine is not his";
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue() || isOnScreen("meetingIDBox"));
  choose("scheduleForPopup", 1);
  turn("buttonUsePMI", true);
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  choose("scheduleForPopup", 2);
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue())
      << "that is known though another window forgets the account";
}

TEST_F(MeetingIdPanelTest, AClientWithoutAListIsNotAskedForEver) {
  people = Value::Array{person(kDana, "Dana", "5550777777")};
  knowAccount();
  open();
  EXPECT_EQ(client().names(), std::vector<std::string>{"11"});
  answer("11", "0;Error 3001");
  choose("scheduleForPopup", 1);
  EXPECT_THAT(client().names(), ElementsAre("11", "11")) << "it is asked for once more when it is wanted";
  turn("buttonUsePMI", true);
  answer("11", "{}");
  answerMeeting("5550777777", true, kDana);
  asked();
  answer("11", "{}");
  EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(MeetingIdPanelTest, AListThatComesLateLeavesWhatTheUserHasChosen) {
  people = Value::Array{person(kDana, "Dana")};
  knowAccount();
  open();
  view().settingData().setEnableRegionCustomization(true);
  answerList();
  EXPECT_TRUE(settings()[vn_Setting_EnableRegionCustomization].boolValue()) << "oneself has nothing new";
  choose("videoHostMatrix", 0);
  turn("muteParticipantUponEntry", true);
  choose("scheduleForPopup", 1);
  EXPECT_TRUE(settings()[vn_Setting_EnableHostVideo].boolValue());
  EXPECT_FALSE(settings()[vn_Setting_EnableRegionCustomization].boolValue()) << "another person's account";
  EXPECT_EQ(control("dataCenterBox").reason, "not offered by the account: isSupportAdditionalDc");
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value(kDana)) << "who is chosen is who is shown";
}

TEST_F(MeetingIdPanelTest, APersonWhoVanishesFromTheListIsStillMeantUntilTheUserSaysOtherwise) {
  people = Value::Array{person(kDana, "Dana"), person(kBob, "Bob")};
  knowAccount();
  open();
  answerList();
  choose("scheduleForPopup", 2);
  people = Value::Array{person(kDana, "Dana")};
  knowAccount();
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value(kBob));
  open();
  EXPECT_EQ(control("scheduleForPopup").items.size(), 2u);
  EXPECT_EQ(control("scheduleForPopup").index, 0);
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value(kBob))
      << "whom a window is open for need not be in the list";
  open();
  choose("scheduleForPopup", 1);
  choose("scheduleForPopup", 0);
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value(""));
}

// Ten thousand people, with names that read from the right, join or take several units: each is cut where a
// character ends, and found again.
TEST_F(MeetingIdPanelTest, TenThousandPeopleWithNamesOfAllKindsAreOffered) {
  const std::string names[] = {repeated("שלום ", 20), repeated("e\u0301", 60),
                               repeated("👩‍👩‍👧 ", 15)};
  Value::Array all;
  for (int i = 0; i < 10000; ++i) {
    all.push_back(person(("p" + std::to_string(i) + "@vorn.example").c_str(), names[i % 3].c_str()));
  }
  people = all;
  knowAccount();
  knowList();
  open();
  ASSERT_EQ(control("scheduleForPopup").items.size(), 10001u);
  for (int i = 1; i <= 3; ++i) {
    const ControlItem& item = control("scheduleForPopup").items[static_cast<std::size_t>(i)];
    EXPECT_LE(utf16Length(item.title), 45u);
    EXPECT_THAT(item.title, testing::EndsWith("..."));
    EXPECT_TRUE(isValidUtf8(item.title));
  }
  choose("scheduleForPopup", 10000);
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value("p9999@vorn.example"));
}

TEST_F(MeetingIdPanelTest, AnotherPersonsMessageCannotBeClosedAndChoosingThatPersonAgainDoesNothing) {
  people = Value::Array{person(kDana, "Dana", "5550777777", true)};
  knowAccount();
  knowList();
  not_again::disabledPMI().set(true);
  open();
  choose("scheduleForPopup", 1);
  EXPECT_TRUE(isOnScreen("pmiDisableText"));
  EXPECT_FALSE(isOnScreen("meetingIDBox") || isOnScreen("closePMIDisableMessageButton"));
  view().settingData().setEnableUnmuteAll(true);
  choose("scheduleForPopup", 1);
  EXPECT_TRUE(settings()[vn_Setting_EnableUnmuteAll].boolValue());
  choose("scheduleForPopup", 0);
  EXPECT_TRUE(isOnScreen("meetingIDBox") && !isOnScreen("pmiDisableMessageView"));
  EXPECT_EQ(settings()[vn_Setting_ScheduleFor], Value(""));
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

TEST_F(MeetingIdPanelTest, AMeetingThatStandsKeepsWhomItIsFor) {
  people = Value::Array{person(kDana, "Dana", "5550777777", true)};
  knowAccount();
  knowList();
  knowMeeting();
  open();
  EXPECT_FALSE(isOnScreen("scheduleForPopup")) << "one's own";
  endSettingsPanel(id());

  window->manager->getMeetingHelper()->setMeetingData(
      Value::dictionaryFromPairs(
          {{"meetingKey", "91234567890"}, {vn_Setting_ScheduleFor, kDana}, {vn_Setting_IsPMI, true}}),
      true);
  open();
  EXPECT_EQ(control("scheduleForPopup").index, 1);
  EXPECT_EQ(choose("scheduleForPopup", 0), Use::disabled);
  EXPECT_TRUE(isOnScreen("pmiDisableText")) << "the personal meeting loses its number";
  EXPECT_EQ(control("buttonOneTimeMeeting").text, "Generate Automatically");
}

}  // namespace
}  // namespace vorn
