// Where the panel's controls stand, and why those that cannot be used cannot.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "platform/controls/PanelLayout.h"
#include "settings/PanelSections.h"
#include "tests/settings/PanelFixture.h"

namespace vorn {
namespace {

using Kind = Control::Kind;
using testing::ElementsAre;

std::vector<std::string> keysOf(const PanelLayout& layout) {
  std::vector<std::string> keys;
  forEachPlace(layout, [&](const PanelLayout::Place& place) { keys.push_back(place.key); });
  return keys;
}

// Each row as "section/depth: keys".
std::vector<std::string> told(const PanelLayout& layout) {
  std::vector<std::string> rows;
  for (const auto& section : layout.sections) {
    for (const auto& row : section.rows) {
      std::string text = section.key + "/" + std::to_string(row.depth) + ":";
      for (const auto& place : row.places) text += " " + place.key;
      rows.push_back(text);
    }
  }
  return rows;
}

TEST(PanelLayout, FitsExactlyTheControlsThatThereAre) {
  const PanelLayout layout{{{"first", "First", {{{{"box"}}}, {{{"known"}, {"missing"}}}, {{{"gone"}}}}},
                            {"none", "", {{{{"neither"}}}}},
                            {"window", "", {{{{"window"}}}}}}};
  ControlSet controls;
  for (const char* key : {"known", "stray"}) controls.add(Kind::label, key);
  controls.add(Kind::box, "box");
  controls.add(Kind::box, "inner", "box");
  controls.add(Kind::label, "deep", "inner");
  controls.add(Kind::label, "member", "box");
  controls.add(Kind::window, "window");
  controls.add(Kind::label, "inWindow", "window");
  controls.add(Kind::window, "other");
  controls.add(Kind::label, "inOther", "other");
  controls.add(Kind::label, "lost", "nobody");
  controls.add(Kind::box, "round", "about");
  controls.add(Kind::box, "about", "round");
  EXPECT_THAT(told(layoutOf(layout, controls)),
              ElementsAre("first/0: box", "first/1: inner", "first/2: deep", "first/1: member", "first/0: known",
                          "window/0: window", "window/1: inWindow", "other/0: other", "other/1: inOther",
                          "others/0: stray", "others/0: lost", "others/0: round", "others/1: about"));
}

TEST(PanelLayout, PutsTheDataCentresBehindTheirSwitch) {
  ControlSet controls;
  controls.add(Kind::box, "dataCenterBox");
  for (const char* key : {"dataCenterNotSelectTextField", "enableDataCenterRegionsButton", "centre"}) {
    controls.add(Kind::checkBox, key, "dataCenterBox");
  }
  EXPECT_THAT(told(layoutOf(panelSections(), controls)),
              ElementsAre("regions/0: enableDataCenterRegionsButton", "regions/0: dataCenterBox",
                          "regions/1: centre", "regions/1: dataCenterNotSelectTextField"));
}

TEST(PanelLayout, IsMadeInTimeLinearInTheControls) {
  ControlSet controls;
  controls.add(Kind::box, "box");
  for (int i = 0; i < 10000; ++i) controls.add(Kind::checkBox, "centre" + std::to_string(i), "box");
  EXPECT_EQ(keysOf(layoutOf({{{"regions", "", {{{{"box"}}}}}}}, controls)).size(), 10001u);
}

class PanelReasonsTest : public SettingsPanelTest {
 protected:
  // An account of which the bits of a word of options are all on or all off, by the bits of the number.
  enum Offers { nothing, signIn, locked };
  static void knowAccount(unsigned words, Offers offers) {
    Account account;
    account.set_id("me");
    account.set_roommeetingid(5550142871);
    using Set = void (Account::*)(std::int64_t);
    const Set sets[] = {&Account::set_useroption, &Account::set_useroption2, &Account::set_useroption3,
                        &Account::set_useroption4, &Account::set_useroption5};
    for (std::size_t i = 0; i < std::size(sets); ++i) {
      (account.*sets[i])((words >> i & 1U) != 0 ? ~std::int64_t{0} : 0);
    }
    Value profile =
        Value::dictionaryFromPairs({{vn_Profile_Proto, EncodeUtils::base64Encode(account.SerializeAsString())}});
    const std::pair<std::string_view, bool> answers[] = {
        {vn_Profile_SupportOnlyAuthUsersCanJoin, offers != nothing},
        {vn_Profile_LockOnlyAuthUsersCanJoin, offers == locked},
        {vn_Profile_IsLockScheduleRequirePassword, offers == locked},
        {vn_Profile_IsLockPMIRequirePassword, offers == locked}};
    for (const auto& [key, answer] : answers) profile.set(key, answer);
    if (offers != nothing) {
      const auto choice = [](const char* choiceId, int type) {
        return Value::dictionaryFromPairs({{vn_Setting_MeetingAuth_AuthId, choiceId},
                                           {vn_Setting_MeetingAuth_AuthName, choiceId},
                                           {vn_Setting_MeetingAuth_AuthType, type},
                                           {vn_Setting_MeetingAuth_AuthDomain, "vorn.example"},
                                           {vn_Setting_MeetingAuth_DefaultAuth, type == 1}});
      };
      profile.set(vn_Profile_MeetingAuths, Value::Array{choice("any", 0), choice("own", 1)});
    }
    vnUserProfileHelper::sharedInstance().setData(profile);
  }

  const ControlSet& controls() { return *shown(); }
  void expectReasons() {
    for (const std::string& key : controls().keys()) {
      const Control& each = *controls().find(key);
      const bool canBeUsed = controls().isOnScreen(key) && each.enabled;
      EXPECT_EQ(each.reason.empty(), canBeUsed) << key << (each.hidden ? " hidden" : "") << ": " << each.reason;
      const bool isLocked = controls().isOnScreen(key) && !each.enabled;
      EXPECT_TRUE(!isLocked || !each.note.empty()) << key << " is locked and tells nobody why";
    }
  }
};

TEST_F(PanelReasonsTest, LaysOutEveryControlOnceAndCallsEachByAWordOfItsOwn) {
  knowAccount(0, nothing);
  open();
  std::map<std::string, int> named;
  std::set<std::string> words;
  const PanelLayout sections = panelSections();
  for (const std::string& key : keysOf(sections)) {
    EXPECT_EQ(++named[key], 1) << key;
    EXPECT_TRUE(controls().find(key)) << key << " is nowhere";
  }
  const std::vector<std::string> laidOut = keysOf(test.presenter.panels().layout(window->bar->ownWindow));
  EXPECT_EQ(std::set<std::string>(laidOut.begin(), laidOut.end()).size(), laidOut.size());
  EXPECT_EQ(laidOut.size(), controls().keys().size());

  forEachPlace(sections, [&](const PanelLayout::Place& place) {
    if (!place.words.empty()) {
      EXPECT_TRUE(words.insert(place.words).second) << place.words;
    }
    named[place.key] = place.words.empty() ? 0 : 1;
  });
  for (const std::string& key : controls().keys()) {
    const Control& each = *controls().find(key);
    const bool isOnlySeen = each.kind == Kind::window || each.kind == Kind::box || each.kind == Kind::label;
    // What comes with a box is there for one account and not for another, and has no name.
    const auto name = named.find(key);
    EXPECT_TRUE(isOnlySeen || (name == named.end() ? !each.box.empty() : name->second == 1)) << key;
    EXPECT_TRUE(named.contains(key) || !each.box.empty()) << key << " stands behind everything";
  }
}

TEST_F(PanelReasonsTest, GiveOneToEachControlThatCannotBeUsedAndToNoOther) {
  const auto tryIt = [this] {
    open();
    expectReasons();
    for (const char* key : {"requiredMeetingPswButton", "enableJBHButton", "autoRecordingButton"}) {
      for (const bool on : {false, true}) turn(key, on), expectReasons();
    }
    turn("endtoendButton", true);
    expectReasons();
    turn("enhancedButton", true);
    expectReasons();
    endSettingsPanel(id());
  };
  // Nothing at all, one word of options, all but one, and everything.
  constexpr unsigned kWords[] = {0, 1, 2, 4, 8, 30, 29, 27, 23, 31};
  for (const char* version : {"3.5.0", "5.1.0", "99.0"}) {
    RecordingClient::setVersion(test, version);
    for (const unsigned words : kWords) {
      for (const Offers offers : {nothing, signIn, locked}) {
        SCOPED_TRACE(testing::Message() << version << ", words " << words << ", offers " << offers);
        knowAccount(words, offers);
        tryIt();
        if (HasFailure()) return;
      }
    }
  }
  vnUserProfileHelper::sharedInstance().setData(Value());
  tryIt();
}

// Whatever a person uses, one control after another, and the windows that it opens.
TEST_F(PanelReasonsTest, FollowEverythingThatIsUsed) {
  for (const Offers offers : {nothing, signIn, locked}) {
    for (const unsigned words : {0U, 23U, 31U}) {
      SCOPED_TRACE(testing::Message() << "words " << words << ", offers " << offers);
      knowAccount(words, offers);
      open();
      for (const std::string& key : std::vector(controls().keys())) {
        const Control* used = controls().find(key);
        if (!used || key == "buttonContinue" || key == "buttonCancel") continue;
        SCOPED_TRACE(key);
        const bool isSwitch = used->kind == Kind::checkBox || used->kind == Kind::radioButton;
        const bool on = !used->on;
        if (isSwitch) turn(key, on);
        if (used->kind == Kind::link || used->kind == Kind::button) click(key);
        expectReasons();
      }
      endSettingsPanel(id());
      if (HasFailure()) return;
    }
  }
}

TEST_F(PanelReasonsTest, SayWhoIsBehindIt) {
  const std::string kNo = "not offered by the account: ", kLocked = "locked by the account: ";
  const struct {
    unsigned words;
    Offers offers;
    const char* control;
    std::string who, what;
  } rows[] = {
      {0, nothing, "unmuteParticipantsButton", kNo, "isSupportUnmuteAll"},
      {0, nothing, "publicEventButton", kNo, "isEnableAddMeetingToPublicCalendarEvent"},
      {0, nothing, "encryptionBox", kNo, "isSupportE2eeMeeting"},
      {0, nothing, "enhancedHelpButton", kNo, "isSupportE2eeMeeting"},
      {0, nothing, "jbhLimitTimePopUp", kNo, "isSupportJbhPriorTime"},
      {0, nothing, "restrictDomainsBox", kNo, "isSupportOnlyAuthUsersCanJoin"},
      {0, nothing, "tspAccountButton", kNo, "isTspSite"},
      {2, nothing, "autoRecordingButton", kNo, "enableLocalRecording, enableCloudRecording"},
      {8, locked, "videoHostMatrix", kLocked, "isHostVideoLocked"},
      {8, locked, "videoParticipantMatrix", kLocked, "isParticipantsLocked"},
      {8, locked, "autoRecordingButton", kLocked, "isAutomaticRecordingLocked"},
      {8, locked, "muteParticipantUponEntry", kLocked, "isMuteUponEntryLocked"},
      {8, locked, "forceIncludeJoinurlInLocation", kLocked, "isLockJoinUrlToLocation"},
      {8, locked, "requiredMeetingPswButton", kLocked, "isLockScheduleRequirePassword"},
      {8, locked, "enableWaitingRoom", kLocked, "isLockWaitingRoom"},
      {8, locked, "restrictDomainsBox", kLocked, "isLockOnlyAuthUsersCanJoin"},
      {8, locked, "buttonUsePMI", kLocked, "isLockScheduleUsePMI"},
      {8, locked, "enableJBHButton", kLocked, "isJoinBeforeHostLocked"},
      {8, locked, "allowDenyBox", kLocked, "isLockAllowDenyJoinMeetingRegion"},
      {8, locked, "voipButton", kLocked, "isAudioTypeLocked"},
      {31, locked, "publicEventButton", kLocked, "isPublicEventLocked"},
      {31, locked, "enhancedButton", kLocked, "isLockE2eeMeeting"},
      {31, locked, "endtoendButton", kLocked, "isLockE2eeMeeting"},
      {31, locked, "meetingIDBox", kLocked, "isDisablePMI"},
      {0, nothing, "autoRecordingOptionMatrixCloud", "", "there is only one way to record"},
      {0, nothing, "passwordTextField", "", "the passcode is off"},
      {0, nothing, "_PswRuleMinLength", "", "the window is closed"},
      {0, nothing, "videoHostMatrix", "", ""},
  };
  const auto reasonOf = [this](const char* key) {
    open();
    const std::string reason = control(key).reason;
    endSettingsPanel(id());
    return reason;
  };
  for (const auto& row : rows) {
    knowAccount(row.words, row.offers);
    EXPECT_EQ(reasonOf(row.control), row.who + row.what) << row.control;
  }
  RecordingClient::setVersion(test, "3.5.0");
  EXPECT_EQ(reasonOf("unmuteParticipantsButton"), "the client is too old: isVornClientSupport520Tasks");
}

TEST_F(PanelReasonsTest, AreThereBeforeAnybodyIsToldOfTheChange) {
  knowAccount(0, nothing);
  open();
  std::vector<std::string> reasons;
  const auto subscription = view().controls().observe([&](const auto&) {
    reasons.push_back(control("passwordTextField").reason + "|" + control("buttonContinue").note);
  });
  turn("requiredMeetingPswButton", true);
  type("passwordTextField", " ");
  turn("requiredMeetingPswButton", false);
  EXPECT_THAT(reasons, ElementsAre("|", "|the passcode is missing", "the passcode is off|"));
}

}  // namespace
}  // namespace vorn
