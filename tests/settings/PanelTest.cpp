// One panel, from its opening to what it leaves behind.

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "host/proxies/vnMeetingInfoKeys.h"
#include "tests/settings/PanelFixture.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(SettingsPanelTest, IsOneForEachWindowAndEndsWithIt) {
  panels.addSchSettingWindowToArray("", Value(), window->bar->ownWindow);
  panels.addSchSettingWindowToArray(id(), Value(), HostObject());
  EXPECT_FALSE(panels.getSchSettingWindowInArray(id()));
  panels.addSchSettingWindowToArray(id(), Value(), window->bar->ownWindow);
  panels.addSchSettingWindowToArray(id(), Value(), window->bar->ownWindow);
  EXPECT_TRUE(settings().isAbsent()) << "nobody has seen it yet";

  panels.showSchSettingWindow(id());
  EXPECT_EQ(choose("videoHostMatrix", 0), Use::done);
  open();
  EXPECT_TRUE(settings()[vn_Setting_EnableHostVideo].boolValue()) << "what the user set is kept";
  EXPECT_FALSE(panels.getSchSettingWindowInArray(id() + "0"));
  EXPECT_FALSE(panels.getSchSettingWindowInArray(std::nullopt));

  endSettingsPanel(id());
  EXPECT_EQ(shown(), nullptr);
  open();
  EXPECT_FALSE(settings()[vn_Setting_EnableHostVideo].boolValue());
}

TEST_F(SettingsPanelTest, TwoAreOpenAtOnceAndEachKeepsToItsOwnWindow) {
  open();
  const FakeWindow other(test);
  const std::string otherId = openOn(other);
  const auto otherPanel = panels.getSchSettingWindowInArray(otherId);
  EXPECT_EQ(choose("videoHostMatrix", 0), Use::done);
  EXPECT_TRUE(settings()[vn_Setting_EnableHostVideo].boolValue());
  EXPECT_FALSE(otherPanel->getVnSettingsData()[vn_Setting_EnableHostVideo].boolValue());

  std::vector<std::string> told;
  const auto subscription = test.notificationCenter.observe(
      notify_SettingCommit, [&](const auto& note) { told.push_back(note.userInfo[keyApptWindowID].text()); });
  EXPECT_EQ(click("buttonContinue"), Use::done);
  EXPECT_THAT(told, testing::ElementsAre(id()));
  EXPECT_EQ(shown(), nullptr);
  EXPECT_NE(test.presenter.panels().on(other.bar->ownWindow), nullptr);
  endSettingsPanel(otherId);
  EXPECT_FALSE(otherPanel->getVnSettingsData()[vn_Setting_EnableHostVideo].boolValue())
      << "who still asks keeps it meanwhile";
}

TEST_F(SettingsPanelTest, AnOlderClientIsOfferedLess) {
  for (const bool isOld : {false, true}) {
    RecordingClient::setVersion(test, isOld ? "3.5.0" : "99.0");
    test.surroundings.languages = {"de-AT"};
    open();
    for (const char* key : {"selectLanguagePopup", "selectLanguageText", "muteUponEntryBox"}) {
      EXPECT_EQ(control(key).hidden, isOld) << key;
    }
    EXPECT_EQ(isOnScreen("muteParticipantUponEntry"), !isOld);
    EXPECT_TRUE(control("publicEventBox").hidden && control("autoRecordingBox").hidden) << "nobody offers them";
    click("buttonContinue");
    EXPECT_EQ(settings()[vn_Setting_SelectInvitationLanguage], Value("de")) << "also where nobody sees the popup";
    endSettingsPanel(id());
  }
}

TEST_F(SettingsPanelTest, HasWordsForEverythingThatItShows) {
  open();
  const std::vector<ControlItem> columns = control("videoHostMatrix").items;
  EXPECT_EQ(columns.size(), 2u);
  EXPECT_EQ(columns, control("videoParticipantMatrix").items);
  EXPECT_EQ(control("buttonContinue").text, "Continue");
  std::vector<std::string> windows;
  for (const std::string& key : shown()->keys()) {
    const Control& each = control(key);
    if (each.kind == Control::Kind::window) windows.push_back(key);
    const std::string words = each.text + each.toolTip + each.spoken + each.placeholder;
    EXPECT_THAT(words, Not(testing::HasSubstr("LN_"))) << key;
    const bool isContainer = each.kind == Control::Kind::box || each.kind == Control::Kind::window;
    if (isContainer || each.kind == Control::Kind::popup || !isOnScreen(key)) continue;
    EXPECT_THAT(words, Not(IsEmpty())) << key;
  }
  EXPECT_THAT(windows, ElementsAre("alternateHostSearchListWindow", "editCountriesWindow", "domainsWindow",
                                   "passwordRuleWindow", "allowDenyRCWindow", "allowDenyRCSearchListWindow"));
  ASSERT_EQ(control("selectLanguagePopup").items.size(), 12u);
  for (const ControlItem& item : control("selectLanguagePopup").items)
    EXPECT_THAT(item.title, Not(StartsWith("LN_")));
}

TEST_F(SettingsPanelTest, LeavesALockedVideoOfTheParticipantsAloneWhenTheHostsGoesOff) {
  knowAccount(accountWith(UserOption::AlwaysTurnOnAttendeeVideoByDefault, UserOption4::isParticipantsLocked));
  open();
  choose("videoHostMatrix", 0);
  choose("videoHostMatrix", 1);
  EXPECT_EQ(control("videoParticipantMatrix").index, 0);
  EXPECT_TRUE(settings()[vn_Setting_EnableParticipantsVideo].boolValue());
}

TEST_F(SettingsPanelTest, OffersTheListOfPublicEventsWithThePublicEvent) {
  knowAccount(accountWith(UserOption3::isEnableAddMeetingToPublicCalendarEvent),
              {{vn_Profile_PublicEventListUrl, "https://vorn.example/events"}});
  open();
  EXPECT_TRUE(control("publicEventListButton").hidden);
  turn("publicEventButton", true);
  EXPECT_FALSE(control("publicEventListButton").text.empty());
  EXPECT_EQ(click("publicEventListButton"), Use::done);
  EXPECT_THAT(test.workspace.openedPages, ElementsAre("https://vorn.example/events"));
  EXPECT_TRUE(settings()[vn_Setting_EnableAddMeetingToPublicEvent].boolValue());
  turn("publicEventButton", false);
  EXPECT_EQ(control("publicEventListButton").reason, "the public event is off");
}

TEST_F(SettingsPanelTest, CommitsBeforeItIsSavedAndSavesNeitherPasscodeNorPeople) {
  knowMeeting();
  open();
  view().settingData().setAlternateHosts(Value::Array{"ada@vorn.example"});
  view().settingData().setScheduleForEmail("dana@vorn.example");
  view().settingData().setHash("h");
  view().settingData().setSelectedCountries(Value::Array{"US"});
  const JsonTextFile saved(vnCommon::getVnUserProfilePath("me"));
  saved.write(Value::dictionaryFromPairs({{vn_Setting_NotShowUpgradeMessageAgain, true}, {"left over", 1}}));
  choose("selectLanguagePopup", 9);

  std::vector<std::string> told;
  const auto subscription =
      test.notificationCenter.observe(notify_SettingCommit, [&](const NotificationCenter::Notification& note) {
        EXPECT_EQ(note.userInfo, Value::dictionaryFromPairs({{keyVNUserOperator, keyVNSettingCommit},
                                                             {keyButtonClickIsOK, true},
                                                             {keyApptWindowID, id()}}));
        EXPECT_EQ(note.object, nullptr);
        EXPECT_EQ(shown(), nullptr) << "the sheet has ended";
        told.push_back(settings()[vn_Setting_SelectInvitationLanguage].text());
        told.push_back(saved.read()[vn_Setting_SelectInvitationLanguage].text());
      });
  click("buttonContinue");
  EXPECT_THAT(told, ElementsAre("ko-KO", ""));

  const Value file = saved.read();
  EXPECT_EQ(file[vn_Setting_SelectInvitationLanguage], Value("ko-KO"));
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("abc123"));
  EXPECT_TRUE(file[vn_Setting_MeetingPassword].isAbsent());
  EXPECT_TRUE(file[vn_Setting_AvailableDialinCountry].isAbsent()) << "they are somebody else's";
  EXPECT_EQ(file[vn_Setting_ScheduleFor], Value(""));
  EXPECT_EQ(file[vn_Setting_AlternateHosts], Value(""));
  EXPECT_TRUE(file[vn_Setting_NotShowUpgradeMessageAgain].boolValue());
  EXPECT_TRUE(file["left over"].isAbsent()) << "the file is replaced";
}

TEST_F(SettingsPanelTest, KeepsTheWishToSeeItNoMoreWhenItIsDismissed) {
  open();
  turn("notShowMeAgain", true);
  click("buttonCancel");
  EXPECT_TRUE(test.userDefaults.stored[vn_Setting_NotShowMeAgain].boolValue());
  EXPECT_TRUE(JsonTextFile(vnCommon::getVnUserProfilePath("me")).read().isAbsent());
}

TEST_F(SettingsPanelTest, IsThePersonalMeetingsOrTheAccountsAfterItIsRefreshed) {
  knowProfile({{vn_Setting_RoomMeetingId, "5550119926"}});
  open();
  const auto reply = [&](const char* number) {
    panels.getSchSettingWindowInArray(id())->setPMIMeetingInfo(Value::dictionaryFromPairs(
        {{vn_MeetingKey, number},
         {vn_Setting, Value::dictionaryFromPairs(
                          {{vn_Setting_EnableHostVideo, true}, {vn_Setting_MeetingPassword, "777"}})}}));
    panels.refreshSettingWindow(id(), true);
  };
  reply("5550119926");
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue()) << "the user has turned to another number since";
  turn("buttonUsePMI", true);
  knowProfile({{vn_Setting_RoomMeetingId, "5550119926"},
               {vn_Profile_Bosses,
                Value::Array{Value::dictionaryFromPairs({{"email", "d@e.f"}, {"pmi", "5550000000"}})}}});
  reply("5550000000");
  EXPECT_EQ(control("videoHostMatrix").index, 1) << "it is somebody else's";
  reply("5550119926");
  EXPECT_TRUE(settings()[vn_Setting_IsPMI].boolValue());
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("777"));
  EXPECT_EQ(control("videoHostMatrix").index, 0);
  panels.refreshSettingWindow(id(), false);
  EXPECT_FALSE(settings()[vn_Setting_IsPMI].boolValue());
}

TEST_F(SettingsPanelTest, HearsOfThePasscodeTheHostsAndTheRefusalOfACommit) {
  knowMeeting();
  open();
  const auto panel = panels.getSchSettingWindowInArray(id());
  panel->updatePasswordAfterCommit("new1");
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("new1"));
  panel->updatePasswordAfterCommit("");
  EXPECT_FALSE(settings()[vn_Setting_RequiredMPW].boolValue());

  view().settingData().setAlternateHosts(Value::Array{"Ada@vorn.example", "bob@vorn.example"});
  panel->filterInvalidAlternateHosts(Value::Array{"ada@VORN.example", "eve@vorn.example"});
  EXPECT_EQ(settings()[vn_Setting_AlternateHosts], Value(Value::Array{"bob@vorn.example"}));

  view().settingData().setMeetingPassword("refused");
  panel->resetMeetingItemWhenUpdateError();
  EXPECT_EQ(view().settingData().meetingPassword(), "refused") << "the user is at it";
  click("buttonCancel");
  EXPECT_EQ(view().settingData().meetingPassword(), "") << "what the service has accepted stays";

  view().settingData().setAlternateHosts(Value::Array{"Ada@vorn.example", "bob@vorn.example"});
  view().onSettingsCommit(true);
  panel->commitStands();
  view().onSettingsCommit(true);
  panel->filterInvalidAlternateHosts(Value::Array{"ada@VORN.example"});
  panel->resetMeetingItemWhenUpdateError();
  EXPECT_EQ(settings()[vn_Setting_AlternateHosts], Value(Value::Array{"bob@vorn.example"}));
  EXPECT_EQ(panel->getSiteMeetingInfo(), window->manager->getMeetingHelper()->getMeetingInfo());
}

// Another window's end forgets the account for all of them, and a record that is made for another one writes its
// own wishes to the user defaults.
TEST_F(SettingsPanelTest, WhatIsShownIsCommittedThoughAnotherWindowForgetsTheAccount) {
  Account account = accountWith(UserOption3::isSupportJbhPriorTime);
  account.set_useroption(~std::int64_t{0});
  account.set_useroption4(~std::int64_t{0});
  knowAccount(account);
  open();
  turn("autoRecordingButton", true);
  turn("autoRecordingOptionMatrixCloud", true);
  turn("notShowMeAgain", true);
  const Value shownNow = view().settingsToCommit();
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  view().settingData().setNotShowMeAgain(false);
  click("buttonContinue");
  for (const std::string_view key :
       {vn_Setting_EnableAutoRecordingType, vn_Setting_JBHPriorTime, vn_Setting_EnableAudioWatermark}) {
    EXPECT_EQ(settings()[key], shownNow[key]) << key;
  }
  EXPECT_TRUE(view().settingData().notShowMeAgain());
}

TEST_F(SettingsPanelTest, ACommitThatTheServiceHasAcceptedOutlastsALaterRefusal) {
  knowMeeting();
  open();
  const auto panel = panels.getSchSettingWindowInArray(id());
  turn("forceIncludeJoinurlInLocation", false);
  view().onSettingsCommit(true);
  panel->commitStands();
  type("passwordTextField", "other1");
  view().onSettingsCommit(true);
  panel->commitRefused();
  view().onSettingsCommit(false);
  EXPECT_FALSE(view().settingData().forceIncludeJoinurlInLocation());
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("abc123"));
}

}  // namespace
}  // namespace vorn
