// The security section and the banners of an open panel.

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "data/NotAgainFlags.h"
#include "settings/HelpLinks.h"
#include "tests/settings/PanelFixture.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SecurityPanelTest : public SettingsPanelTest {
 protected:
  std::string focused() {
    test.runLoop.runFor(0);
    for (const std::string& key : shown()->keys()) {
      if (control(key).isFocused) return key;
    }
    return "";
  }
};

TEST_F(SecurityPanelTest, ThePasscodeAppearsWithItsSwitchAndIsMadeOnlyWhereItIsMissingOrUnfit) {
  knowProfile({{vn_Profile_PasswordMinLength, 4}, {vn_Profile_PasswordRulesOption, 1}});
  open();
  EXPECT_THAT(focused(), IsEmpty());
  turn("requiredMeetingPswButton", true);
  EXPECT_EQ(focused(), "passwordTextField");
  EXPECT_TRUE(settings()[vn_Setting_RequiredMPW].boolValue());
  type("passwordTextField", "4711");
  for (const auto& [text, isKept] : {std::pair("4711", true), {"", false}, {"47a1", false}}) {
    type("passwordTextField", text);
    turn("requiredMeetingPswButton", false);
    EXPECT_TRUE(control("passwordTextField").hidden && control("pswFormatErrorTextField").hidden);
    EXPECT_FALSE(settings()[vn_Setting_RequiredMPW].boolValue());
    EXPECT_TRUE(asksAgainFor("passwordTextField", [this] { turn("requiredMeetingPswButton", true); }));
    EXPECT_EQ(control("passwordTextField").text == text, isKept) << text;
    EXPECT_TRUE(control("pswFormatErrorTextField").hidden);
  }
  click("buttonCancel");
  open();
  EXPECT_THAT(focused(), IsEmpty());
}

TEST_F(SecurityPanelTest, TypingShowsTheRulesAndWhatTheyAreMissing) {
  knowProfile({{vn_Profile_PasswordMinLength, 3}, {vn_Profile_PasswordRulesOption, 2 + 8}});
  open();
  turn("requiredMeetingPswButton", true);
  EXPECT_TRUE(control("passwordRuleWindow").hidden);
  type("passwordTextField", "a b");
  EXPECT_EQ(control("passwordTextField").text, "ab");
  EXPECT_TRUE(isOnScreen("_PswRuleHasNumber"));
  EXPECT_FALSE(isOnScreen("_PswRuleHasAlphabet")) << "no rule of the account";
  EXPECT_FALSE(isOnScreen("_passwordMustNot"));
  EXPECT_EQ(control("_PswRuleHasNumber").text.find("✔"), std::string::npos);
  EXPECT_FALSE(control("pswFormatErrorTextField").hidden);
  EXPECT_EQ(control("passwordTextField").redBorderWidth, 1.5);
  EXPECT_THAT(control("passwordTextField").spoken, HasSubstr(control("_PswRuleHasNumber").text));
  EXPECT_FALSE(control("pswHelpButton").hidden);
  EXPECT_FALSE(control("pswHelpButton").toolTip.empty());

  EXPECT_EQ(click("buttonContinue"), Use::disabled);
  type("passwordTextField", "ab1");
  EXPECT_THAT(control("_PswRuleHasNumber").text, testing::StartsWith("✔"));
  EXPECT_THAT(control("_PswRuleMinLength").text, testing::StartsWith("✔"));
  EXPECT_EQ(control("passwordTextField").redBorderWidth, 0);
  turn("enableWaitingRoom", true);
  EXPECT_TRUE(control("passwordRuleWindow").hidden) << "a press in the sheet closes it";
  type("passwordTextField", "ab2");
  EXPECT_FALSE(control("passwordRuleWindow").hidden);
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("ab2"));
  EXPECT_TRUE(settings()[vn_Setting_EnableWaitingRoom].boolValue());
}

// A stored passcode may break rules that came later. Nothing is said of it until the user goes on.
TEST_F(SecurityPanelTest, AnUnfitPasscodeOfAStandingMeetingStopsContinueAndIsTold) {
  knowProfile({{vn_Profile_PasswordMinLength, 8}});
  knowMeeting();
  window->manager->getMeetingHelper()->setMeetingData(
      Value::dictionaryFromPairs(
          {{"meetingKey", "91234567890"}, {vn_Setting_RequiredMPW, true}, {vn_Setting_MeetingPassword, "12"}}),
      false);
  open();
  turn("enableJBHButton", true);
  EXPECT_EQ(control("passwordTextField").text, "12") << "the service has accepted it";
  open();
  EXPECT_TRUE(control("pswFormatErrorTextField").hidden);
  EXPECT_EQ(click("buttonContinue"), Use::done);
  ASSERT_NE(shown(), nullptr) << "it stays open";
  EXPECT_FALSE(control("pswFormatErrorTextField").hidden);
  EXPECT_FALSE(mayContinue());
}

TEST_F(SecurityPanelTest, WhatIsTypedOutlastsALoadAndIsNotReplacedBesideTheSwitch) {
  knowProfile({{vn_Profile_PasswordMinLength, 8}});
  open();
  turn("requiredMeetingPswButton", true);
  type("passwordTextField", "half");
  turn("enableJBHButton", true);
  choose("selectLanguagePopup", 6);
  panels.refreshSettingWindow(id(), false);
  EXPECT_EQ(control("passwordTextField").text, "half");
  EXPECT_EQ(control("selectLanguagePopup").index, 6);
  click("buttonCancel");
  open();
  EXPECT_NE(control("passwordTextField").text, "half");
}

TEST_F(SecurityPanelTest, ADismissedPanelGoesBackToTheLastCommitAndToWhatTheServiceMadeOfIt) {
  knowMeeting();
  open();
  turn("requiredMeetingPswButton", true);
  type("passwordTextField", "first1");
  click("buttonContinue");
  panels.getSchSettingWindowInArray(id())->updatePasswordAfterCommit("second");
  open();
  type("passwordTextField", "third");
  turn("forceIncludeJoinurlInLocation", !control("forceIncludeJoinurlInLocation").on);
  const bool isIncluded = !control("forceIncludeJoinurlInLocation").on;
  click("buttonCancel");
  EXPECT_EQ(settings()[vn_Setting_MeetingPassword], Value("second"));
  EXPECT_EQ(settings()[vn_Setting_ForceIncludeJoinurlInLocation].boolValue(), isIncluded);
}

TEST_F(SecurityPanelTest, ARefusedCommitIsToldOnceBySiteFlags) {
  SiteFlag(vn_NotStrongerPasscode).set(true);
  SiteFlag(vn_SecurityNotSeleteOne).set(true);
  open();
  EXPECT_FALSE(control("pswFormatErrorTextField").hidden);
  EXPECT_EQ(control("passwordTextField").redBorderWidth, 1.5);
  EXPECT_FALSE(control("securityErrorTextField").hidden) << "no option is on";
  EXPECT_EQ(click("buttonContinue"), Use::disabled);
  EXPECT_FALSE(SiteFlag(vn_NotStrongerPasscode).isSet() || SiteFlag(vn_SecurityNotSeleteOne).isSet());
  turn("enableWaitingRoom", true);
  EXPECT_TRUE(control("securityErrorTextField").hidden);
  panels.refreshSettingWindow(id(), false);
  EXPECT_TRUE(control("securityErrorTextField").hidden) << "it was told, and the user has answered";
  EXPECT_FALSE(control("pswFormatErrorTextField").hidden) << "to this not";
  click("buttonCancel");
  open();
  EXPECT_TRUE(control("pswFormatErrorTextField").hidden) << "the panel was left";
  turn("requiredMeetingPswButton", true);
  panels.refreshSettingWindow(id(), false);
  EXPECT_TRUE(control("pswFormatErrorTextField").hidden);
}

TEST_F(SecurityPanelTest, WithoutAnyOptionTheWaitingRoomGoesOnAndTheTipIsShownOnce) {
  knowAccount(accountWith(UserOption3::isEnableWaitingRoomNewLogic));
  open();
  EXPECT_TRUE(control("enableWaitingRoom").on);
  EXPECT_TRUE(settings()[vn_Setting_EnableWaitingRoom].boolValue());
  EXPECT_TRUE(isOnScreen("securityTipText"));
  panels.refreshSettingWindow(id(), false);
  EXPECT_TRUE(isOnScreen("securityTipText")) << "nobody has closed it";
  click("securityTipCloseButton");
  EXPECT_TRUE(control("securityTipView").hidden);
  EXPECT_TRUE(not_again::doNotShowTipView(vn_LocalProfile_SecurityTip_NotShownAgain_WR));

  turn("enableWaitingRoom", false);
  EXPECT_FALSE(control("securityErrorTextField").hidden);
  EXPECT_FALSE(mayContinue());
  turn("requiredMeetingPswButton", true);
  EXPECT_TRUE(control("securityErrorTextField").hidden);
  EXPECT_TRUE(mayContinue());

  endSettingsPanel(id());
  open();
  EXPECT_TRUE(control("enableWaitingRoom").on);
  EXPECT_TRUE(control("securityTipView").hidden);
}

// What the account has locked off is of no use to anybody, and what it has locked on is read.
TEST_F(SecurityPanelTest, SignedInUsersOnlyIsHiddenWhereItIsLockedOff) {
  for (const bool isOn : {false, true}) {
    knowProfile({{vn_Profile_SupportOnlyAuthUsersCanJoin, true},
                 {vn_Profile_LockOnlyAuthUsersCanJoin, true},
                 {vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, isOn}});
    open();
    view().settingData().setIsSignedInUsersMeetingOn(true);
    view().initializeItems();
    EXPECT_EQ(control("restrictDomainsBox").hidden, !isOn);
    EXPECT_EQ(settings()[vn_Setting_IsSignedInUsersMeetingOn].boolValue(), isOn);
    EXPECT_EQ(turn("onlySignedinWithSpecifiedDomains", false), isOn ? Use::disabled : Use::hidden);
    endSettingsPanel(id());
  }
}

TEST_F(SecurityPanelTest, ALockedWatermarkIsCommittedOn) {
  knowAccount(accountWith(UserOption3::isEnableAudioWatermark, UserOption4::isLockAudioWatermark),
              {{vn_Profile_SupportOnlyAuthUsersCanJoin, true}});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_TRUE(control("audioWatermarkButton").on);
  click("buttonContinue");
  EXPECT_TRUE(settings()[vn_Setting_EnableAudioWatermark].boolValue());
}

TEST_F(SecurityPanelTest, EndToEndEncryptionIsExplainedOnceAndGivesEarlyJoiningBack) {
  knowAccount(accountWith(UserOption3::isSupportE2eeMeeting, UserOption3::canScheduleE2eeMeeting));
  open();
  turn("enableJBHButton", true);
  turn("endtoendButton", true);
  EXPECT_TRUE(control("enableJBHButton").hidden && !control("enableJBHButton").on);
  for (const char* audio : {"telephonyButton", "bothButton", "thirdPartyAudioButton"}) {
    EXPECT_THAT(control(audio).reason, HasSubstr("end-to-end encryption")) << audio;
  }
  for (const char* help : {"enhancedHelpButton", "endtoendHelpButton"})
    EXPECT_EQ(control(help).text, "About this encryption");
  EXPECT_TRUE(isOnScreen("encryptionTipText"));
  click("encryptionTipLearnMoreButton");
  click("encryptionTipCloseButton");
  EXPECT_TRUE(control("encryptionTipView").hidden &&
              not_again::doNotShowTipView(vn_LocalProfile_EncryptionTip_NotShownAgain));
  EXPECT_THAT(test.workspace.openedPages, ElementsAre(kEncryptionHelpLink));
  click("buttonContinue");
  EXPECT_FALSE(settings()[vn_Setting_EnableJBH].boolValue());
  open();
  turn("enhancedButton", true);
  EXPECT_TRUE(control("enableJBHButton").enabled && !control("enableJBHButton").hidden);
  EXPECT_FALSE(settings()[vn_Setting_EnableE2ee].boolValue());
}

// Steps of loading overwrite what earlier ones have set: the account's locks what the record says, encryption what
// the locks leave, and the security section what encryption leaves.
TEST_F(SecurityPanelTest, ALaterStepOfLoadingHasTheLastWord) {
  knowAccount(accountWith(UserOption::EnableCloudRecording, UserOption::EnableAutoRecordingByDefault,
                          UserOption::EnableCloudRecordingByDefault,
                          UserOption::AlwaysEnableJoinBeforeHostByDefault, UserOption::AlwaysUseBothAsDefaultAudio,
                          UserOption3::isSupportE2eeMeeting, UserOption3::canScheduleE2eeMeeting,
                          UserOption3::isEnableE2eeMeeting, UserOption3::isEnableAudioWatermark,
                          UserOption3::isEnableRequirePassword, UserOption3::isEnableWaitingRoomNewLogic,
                          UserOption4::isLockAudioWatermark, UserOption4::isLockScheduleRequirePassword),
              {{"userId", "me"},
               {vn_Profile_SupportOnlyAuthUsersCanJoin, true},
               {vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, true}});
  open();
  const auto states = [&] {
    std::vector<std::string> list;
    for (const char* key : {"requiredMeetingPswButton", "enableWaitingRoom", "enableJBHButton",
                            "autoRecordingButton", "autoRecordingOptionMatrixLocal", "voipButton", "bothButton",
                            "audioWatermarkButton", "onlySignedinWithSpecifiedDomains", "endtoendButton"}) {
      const Control& each = control(key);
      list.push_back(std::string(key) +
                     (each.hidden ? " hidden"
                      : each.on   ? " on"
                                  : " off") +
                     (each.hidden || each.enabled ? "" : ", locked"));
    }
    return list;
  };
  const auto loaded = states();
  EXPECT_THAT(loaded,
              ElementsAre("requiredMeetingPswButton on, locked", "enableWaitingRoom off", "enableJBHButton hidden",
                          "autoRecordingButton off", "autoRecordingOptionMatrixLocal hidden",
                          "voipButton on, locked", "bothButton hidden", "audioWatermarkButton on, locked",
                          "onlySignedinWithSpecifiedDomains on", "endtoendButton on"));
  EXPECT_FALSE(control("passwordTextField").text.empty()) << "the locked switch asks for one";
  view().updateUIItemsForNextTime();
  EXPECT_EQ(states(), loaded) << "no step goes by what a later one has yet to set";
}

TEST_F(SecurityPanelTest, APasscodeThatIsLockedOffGoesOutOfAMeetingThatHasOne) {
  knowAccount(accountWith(UserOption4::isLockScheduleRequirePassword));
  open();
  EXPECT_FALSE(control("requiredMeetingPswButton").on || control("requiredMeetingPswButton").enabled);
  EXPECT_TRUE(control("requiredMeetingPswButton").hidden);
  EXPECT_TRUE(control("passwordTextField").hidden);
  EXPECT_FALSE(settings()[vn_Setting_RequiredMPW].boolValue());
  EXPECT_THAT(focused(), IsEmpty());
}

TEST_F(SecurityPanelTest, AWaitingRoomThatIsLockedOffIsNotSpokenOfEither) {
  knowAccount(accountWith(UserOption4::isLockWaitingRoom));
  open();
  EXPECT_FALSE(isOnScreen("enableWaitingRoom") || isOnScreen("waitingRoomPrompt"));
}

TEST_F(SecurityPanelTest, WhoLetsPeopleIntoThePersonalMeetingEarlyIsAskedForAPasscode) {
  RecordingClient::setVersion(test, "3.5.0");
  Account account;
  account.set_roommeetingid(5550142871);
  knowAccount(account, {{vn_Profile_IsEnableForcePMIJBHWithPassword, true}});
  open();
  for (const bool usePMI : {false, true}) {
    turn("requiredMeetingPswButton", false);
    turn("enableJBHButton", false);
    turn(usePMI ? "buttonUsePMI" : "buttonOneTimeMeeting", true);
    turn("enableJBHButton", true);
    EXPECT_EQ(control("requiredMeetingPswButton").on, usePMI);
    EXPECT_EQ(focused() == "passwordTextField", usePMI);
    EXPECT_EQ(settings()[vn_Setting_RequiredMPW].boolValue(), usePMI);
  }
  knowAccount(accountWith(UserOption3::isEnablePMIRequirePassword, UserOption4::isLockPMIRequirePassword));
  view().makeFirstResponderWithObject("alternateHostTextField");
  EXPECT_EQ(focused(), "alternateHostTextField");
  panels.refreshSettingWindow(id(), true);
  EXPECT_EQ(focused(), "alternateHostTextField") << "who types elsewhere by now goes on there";
  view().onSettingsCommit(true);
  view().updateUIItemsForNextTime();
  EXPECT_EQ(focused(), "passwordTextField") << "the panel has come up anew";
}

TEST_F(SecurityPanelTest, EachBannerClosesForGoodAndLeadsToItsPage) {
  knowProfile({{vn_Profile_ProfileSettingURL, "https://vorn.example/profile"}});
  open();
  click("pluginTurnoffLink");
  click("pluginTurnoffHelperLink");
  click("userSettingTipChangeSettingsLink");
  EXPECT_THAT(test.workspace.openedPages,
              ElementsAre(MicrosoftInjectionBasedPlguinLink, VornAddinHelperLink, "https://vorn.example/profile"));
  for (const std::string banner : {"pluginTurnoff", "userSettingTip"}) {
    EXPECT_EQ(click(banner + "CloseButton"), Use::done);
    EXPECT_TRUE(control(banner + "View").hidden);
  }
  EXPECT_TRUE(control("epidemicTipView").hidden && control("scheduleLimitationView").hidden);
  open();
  EXPECT_TRUE(control("pluginTurnoffView").hidden && control("userSettingTipView").hidden);
}

// The tip is about the account's own settings, which a personal meeting does not start from.
TEST_F(SecurityPanelTest, TheUserSettingTipGoesWithThePersonalMeeting) {
  open();
  for (const bool forPMI : {true, false}) {
    turn(forPMI ? "buttonUsePMI" : "buttonOneTimeMeeting", true);
    panels.refreshSettingWindow(id(), forPMI);
    EXPECT_EQ(control("userSettingTipView").hidden, forPMI);
  }
}

}  // namespace
}  // namespace vorn
