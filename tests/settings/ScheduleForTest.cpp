// Whom a meeting is scheduled for: the rules, and the panel with its client.

#include "data/NotAgainFlags.h"
#include "settings/rules/ScheduleForRules.h"
#include "tests/settings/MeetingIdFixture.h"
#include "tests/support/Texts.h"
#include "util/Utf16.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;

using ScheduleForPanelTest = MeetingIdFixture;

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

TEST_F(ScheduleForPanelTest, ThreeGettersSayThreeThingsOfWhomItIsFor) {
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

TEST_F(ScheduleForPanelTest, ThePersonalMeetingOfAPersonIsFetchedOnceAndNoneForWhoHasNone) {
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

TEST_F(ScheduleForPanelTest, AClientWithoutAListIsNotAskedForEver) {
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

TEST_F(ScheduleForPanelTest, AListThatComesLateLeavesWhatTheUserHasChosen) {
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

TEST_F(ScheduleForPanelTest, APersonWhoVanishesFromTheListIsStillMeantUntilTheUserSaysOtherwise) {
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
TEST_F(ScheduleForPanelTest, TenThousandPeopleWithNamesOfAllKindsAreOffered) {
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

TEST_F(ScheduleForPanelTest, AnotherPersonsMessageCannotBeClosedAndChoosingThatPersonAgainDoesNothing) {
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

TEST_F(ScheduleForPanelTest, AMeetingThatStandsKeepsWhomItIsFor) {
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

TEST_F(ScheduleForPanelTest, AMeetingThatWasRefusedKeepsItsWordsForAnotherPerson) {
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

}  // namespace
}  // namespace vorn
