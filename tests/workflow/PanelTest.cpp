// What the settings panel, its manager and the notices in its place tell each other.

#include <functional>
#include <vector>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnGetPACHelper.h"
#include "platform/Localization.h"
#include "tests/workflow/MeetingFixture.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnCommitWarning.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Names = std::vector<std::string>;

constexpr const char* kDana = "dana@vorn.example";

class Panel : public MeetingFixture {
 protected:
  // The user schedules for Dana, who has a personal number, and for Bob, who has none.
  static void knowPeople() {
    Value bosses = Value::array();
    bosses.append(Value::dictionaryFromPairs({{"email", kDana}, {"displayName", "Dana"}, {"pmi", "5550777777"}}));
    bosses.append(Value::dictionaryFromPairs({{"email", "bob@vorn.example"}, {"displayName", "Bob"}}));
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{"userId", "me"}, {"roomMeetingId", "5550142871"}, {"bosses", bosses}}));
  }

  // The panel of this window has closed, unless it is told to be another's.
  void endPanel(bool isOK, bool isByPanel = false, const OptionalText& windowId = {}) {
    test.notificationCenter.post(
        notify_SettingCommit, nullptr,
        Value::dictionaryFromPairs({{keyApptWindowID, windowId ? windowId : id()},
                                    {keyVNUserOperator, isByPanel ? keyVNSettingCommit : ""},
                                    {keyButtonClickIsOK, isOK}}));
  }

  FakePanel& panel = *panels.panel;
};

TEST_F(Panel, ItsEndTakesTheWayOfItsButtonAndOfTheCommandThatOpenedIt) {
  const struct {
    const char* name;
    std::uint64_t command;
    const char* key;
    bool isOwn, isByPanel, isOK;
    std::uint64_t action;
    Names requests;
  } rows[] = {
      {"an add", VnCmdAdd, "", true, true, true, VnCmdSchedule, {"3/1"}},
      {"an add given up", VnCmdAdd, "", true, true, false, VnCmdDelete, {}},
      {"an add, not by the panel", VnCmdAdd, "", true, false, true, VnCmdAdd, {}},
      {"an add in another window", VnCmdAdd, "", false, true, true, VnCmdAdd, {}},
      {"an add given up in another window", VnCmdAdd, "", false, true, false, VnCmdAdd, {}},
      {"a change", VnCmdChangeSettings, kKey, true, true, true, VnCmdUpdate, {"3/2"}},
      {"a change given up", VnCmdChangeSettings, kKey, true, true, false, VnCmdChangeSettings, {}},
      {"a change, not by the panel", VnCmdChangeSettings, kKey, true, false, true, VnCmdChangeSettings, {}},
      {"a change before any save, given up", VnCmdChangeSettings, "", true, true, false, VnCmdDelete, {}},
  };
  panel.settings = Value::dictionaryFromPairs({{vn_Setting_ForceIncludeJoinurlInLocation, false},
                                               {vn_Setting_PutTheInvitationAtTheTop, true},
                                               {vn_Setting_SelectInvitationLanguage, "de-DE"}});
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    openWindow();
    openPanel();
    data().setMeetingKey(row.key);
    manager().setMeetingAction(row.command);
    client.requests.clear();
    endPanel(row.isOK, row.isByPanel, row.isOwn ? id() : FakeWindow(test).bar->getAppointmentWindowID());
    EXPECT_EQ(manager().getMeetingAction(), row.action);
    EXPECT_THAT(client.names(), ElementsAreArray(row.requests));
    EXPECT_EQ(data().forceIncludeJoinUrlInLocation(), !row.isOwn);
    EXPECT_EQ(data().putInvitationAtTheTop(), row.isOwn);
    EXPECT_EQ(data().selectInvitationLanguage(), row.isOwn ? "de-DE" : "en-US");
  }
}

TEST_F(Panel, AChoiceThatItDoesNotHoldStaysAsItWas) {
  openPanel();
  panel.settings.set(vn_Setting_SelectInvitationLanguage, "");
  data().setPutInvitationAtTheTop(true);
  endPanel(false);
  EXPECT_TRUE(data().forceIncludeJoinUrlInLocation());
  EXPECT_TRUE(data().putInvitationAtTheTop());
  EXPECT_EQ(data().selectInvitationLanguage(), "en-US");
}

TEST_F(Panel, WhatTheServiceHasRefusedIsChosenNoMore) {
  openPanel();
  const auto choose = [&](const char* language, bool isOK = true) {
    panel.settings.set(vn_Setting_SelectInvitationLanguage, language);
    if (isOK) panel.settings.set(vn_Setting_ForceIncludeJoinurlInLocation, false);
    endPanel(isOK);
  };
  const auto refuse = [&](int code) {
    if (code == 0) return manager().resetMeetingItemWhenUpdateError(window->bar->ownWindow);
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, code);
    EXPECT_EQ(data().selectInvitationLanguage(), "de-DE") << "the panel shows it again";
    panel.settings.erase(vn_Setting_ForceIncludeJoinurlInLocation);
    choose("", false);
  };
  for (const int code : {0, 3402}) {
    choose("fr-FR");
    choose("de-DE");
    refuse(code);
    EXPECT_EQ(data().selectInvitationLanguage(), "en-US") << code;
    EXPECT_TRUE(data().forceIncludeJoinUrlInLocation()) << code;
  }
  // What was accepted before a refusal stays.
  for (const bool serviceHasToLearn : {true, false}) {
    data().setSelectInvitationLanguage("en-US");
    choose("de-DE");
    MeetingWindow opened = MeetingWindow::ofBar(window->bar);
    if (serviceHasToLearn) {
      reply(VnCmdUpdate);
    } else {
      manager().saveRoad().commitUpdateMeeting(opened, unchanged());
    }
    choose("fr-FR");
    refuse(0);
    EXPECT_EQ(data().selectInvitationLanguage(), "de-DE");
    EXPECT_FALSE(data().forceIncludeJoinUrlInLocation());
  }
  // And what may still be accepted, or waits for what it needs first.
  vnAPIMgr& asked = *manager().apiMgr();
  const std::function<int()> waits[] = {
      [&] { return asked.getMeeting(window->bar->ownWindow, unchanged()); },
      [&] { return asked.scheduleMeeting(window->bar->ownWindow, unchanged()); }};
  for (const auto& wait : waits) {
    choose("fr-FR");
    wait();
    test.runLoop.runFor(61);
    choose("", false);
    EXPECT_EQ(data().selectInvitationLanguage(), "fr-FR");
    asked.letGoOfMeeting();
  }
}

// It would be taken for the answer to what is sent next.
TEST_F(Panel, AFetchForItIsNobodysOnceItHasEnded) {
  openPanel();
  knowAccount();
  manager().setState(VnStatePMIForSettings);
  manager().apiMgr()->getMeeting(window->bar->ownWindow, Value::dictionaryFromPairs({{vn_MeetingKey, kKey}}));
  EXPECT_TRUE(manager().apiMgr()->isWaitingForMeeting());
  endPanel(false);
  EXPECT_FALSE(manager().apiMgr()->isWaitingForMeeting());
}

TEST_F(Panel, ThePersonalMeetingIsThatOfWhomTheMeetingIsFor) {
  const struct {
    const char* name;
    bool knowsAccount;
    OptionalText chosen;
    const char* from;
    bool isDelegating;
    const char* asked;
  } rows[] = {
      {"of an account that is not known yet", false, std::nullopt, "me@vorn.example", false, nullptr},
      {"one's own", true, std::nullopt, "me@vorn.example", false, "5550142871"},
      {"chosen: somebody with a number", true, kDana, "me@vorn.example", false, "5550777777"},
      {"chosen: somebody without a number", true, "bob@vorn.example", "me@vorn.example", false, "5550142871"},
      {"chosen: oneself, in somebody's name", true, "", kDana, true, "5550142871"},
      {"in somebody's name", true, std::nullopt, "DANA@vorn.example", true, "5550777777"},
      {"with somebody's address, in one's own name", true, std::nullopt, kDana, false, "5550142871"},
      {"in a stranger's name", true, std::nullopt, "eve@vorn.example", true, "5550142871"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    vnUserProfileHelper::sharedInstance().clearUserProfile();
    if (row.knowsAccount) knowPeople();
    openWindow();
    window->sendFrom(row.from, row.isDelegating);
    panels.openFor.reset();
    if (row.chosen) openPanel();
    panel.scheduledFor = row.chosen.value_or("");
    client.requests.clear();
    MeetingWindow opened = MeetingWindow::ofBar(window->bar);
    manager().settingsFlow().getPMIMeetingInfo(opened, VnStatePMIForSettings);
    EXPECT_EQ(manager().state(), row.asked ? VnStatePMIForSettings : VnStateIdle);
    EXPECT_THAT(client.names(), ElementsAreArray(row.asked ? Names{"3/4"} : Names{}));
    EXPECT_EQ(test.presenter.showsProgress(), row.asked != nullptr);
    if (row.asked) {
      EXPECT_EQ(client.requests.back().second, "4;" + std::string(row.asked) + ";msOutlook;1");
    }
  }
}

TEST_F(Panel, WhatWaitedForTheProfileGoesOnWhenItHasCome) {
  const struct {
    const char* name;
    std::uint64_t state;
    bool hasConferences, isAnotherAccount, hasMeeting;
    Names requests, panel;
    bool showsProgress;
  } rows[] = {
      {"nothing", VnStateIdle, false, false, true, {"9"}, {}, false},
      {"nothing, with all that is needed", VnStateIdle, true, false, true, {}, {}, false},
      {"nothing, of another account", VnStateIdle, true, true, true, {"9"}, {}, false},
      {"an add", VnStateAdding, true, false, false, {}, {"shown"}, false},
      {"a change", VnStateChanging, true, false, true, {}, {"shown"}, false},
      {"a change of a meeting not read yet", VnStateChanging, true, false, false, {"3/4"}, {}, true},
      {"a conference", VnStatePAC, false, false, true, {"9"}, {}, true},
      {"an update with the personal number", VnStatePMIForUpdate, true, false, true, {"3/4"}, {}, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    openWindow();
    if (!row.hasMeeting) helper().setMeetingData(Value::dictionary(), false);
    vnGetPACHelper::sharedInstance().setPACInfo(row.hasConferences ? "AA==" : "");
    knowAccount();
    vnUserProfileHelper::sharedInstance().setIsAccountChanged(row.isAnotherAccount);
    client.requests.clear();
    panel.calls.clear();
    manager().setState(row.state);
    reply(VnCmdGetUserProfile);
    EXPECT_THAT(client.names(), ElementsAreArray(row.requests));
    EXPECT_THAT(panel.calls, ElementsAreArray(row.panel));
    EXPECT_EQ(test.presenter.showsProgress(), row.showsProgress);
    EXPECT_FALSE(vnUserProfileHelper::sharedInstance().isAccountChanged());
    manager().cleanup();
  }
}

// A click before the profile has come is the one that the user waits for only when settings are to be shown.
TEST_F(Panel, AClickWithoutAPanelToShowAsksForTheProfileOrStops) {
  for (const std::uint64_t command : {VnCmdAdd, VnCmdChangeSettings}) {
    openWindow();
    client.requests.clear();
    manager().sendVnMeetingCommand(command, window->bar);
    EXPECT_THAT(client.names(), ElementsAre("6"));
    EXPECT_EQ(test.presenter.showsProgress(), command == VnCmdChangeSettings);
  }
  // A reply that brings no profile tells neither whether the panel is wanted nor what the account protects.
  manager().sendVnMeetingCommand(VnCmdAdd, window->bar);
  reply(VnCmdGetUserProfile);
  EXPECT_THAT(panel.calls, IsEmpty());
  knowAccount();
  manager().sendVnMeetingCommand(VnCmdAdd, window->bar);
  EXPECT_THAT(panel.calls, ElementsAre("shown"));
  manager().sendVnMeetingCommand(VnCmdAdd, std::shared_ptr<MeetingBar>());
  setSettingsPanels(nullptr);
  manager().sendVnMeetingCommand(VnCmdAdd, window->bar);
  EXPECT_THAT(panel.calls, ElementsAre("shown"));
}

TEST_F(Panel, AFaultOfACommitReachesThePanelOfItsOwnWindowAlone) {
  openPanel();
  const FakeWindow other(test);
  Value hosts = Value::array();
  hosts.append("ada@vorn.example");
  const auto complain = [&](const OptionalText& windowId, const Value& emails) {
    test.notificationCenter.post(notify_Schedule_AlternateHostError, nullptr,
                                 Value::dictionaryFromPairs({{keyApptWindowID, windowId}, {"emails", emails}}));
  };
  complain(other.bar->getAppointmentWindowID(), hosts);
  complain(id(), Value::array());
  manager().resetMeetingItemWhenUpdateError(other.bar->ownWindow);
  other.manager->resetMeetingItemWhenUpdateError(window->bar->ownWindow);
  EXPECT_THAT(panel.calls, IsEmpty());
  EXPECT_TRUE(manager().getSiteMeetingInfo(other.bar->getAppointmentWindowID()).isAbsent());

  // Each manager hears of the hosts, and the panel filters no more than it holds.
  complain(id(), hosts);
  manager().resetMeetingItemWhenUpdateError(window->bar->ownWindow);
  EXPECT_THAT(panel.calls, ElementsAre("filters ada@vorn.example", "filters ada@vorn.example", "resets"));
  EXPECT_EQ(manager().getSiteMeetingInfo(id()), Value("site"));
}

TEST_F(Panel, ARefusedCommitIsToldByThePanelOrWithoutOneByAnAlert) {
  const JsonTextFile siteFile(vnMeetingCommon::getLocalVnSiteConfigPath());
  const struct {
    int code;
    std::string_view noted;
    const char* told;
  } rows[] = {{3402, "", "LN_Schedule_PasswordDoNotMeetRequirements_136704"},
              {3403, vn_NotStrongerPasscode, "LN_Schedule_Password_EnterStronger_162671"},
              {3113, vn_SecurityNotSeleteOne, "LN_Schedule_Security_SelectErrorTip_166836"},
              {555, "", "LN_Schedule_TrackingField_Missing"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    test.presenter.forgetAlerts();
    panels.panel->calls.clear();
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, row.code);
    EXPECT_THAT(panels.panel->calls, ElementsAre("shown"));
    EXPECT_THAT(test.presenter.alerts(), IsEmpty());
    EXPECT_EQ(siteFile.read().count(), row.noted.empty() ? 0u : 1u);
    EXPECT_EQ(siteFile.read()[row.noted].boolValue(), !row.noted.empty());
    siteFile.write(Value::dictionary());

    // Nobody would clear a note for a panel that does not come, or does not read it: the commit came from the
    // calendar, the panel has no words for it, or there is none.
    manager().showSettingsWindowWithCommitError(HostObject(), row.code);
    panels.tells = false;
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, row.code);
    panels.tells = true;
    setSettingsPanels(nullptr);
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, row.code);
    setSettingsPanels(&panels);
    ASSERT_EQ(test.presenter.alerts().size(), 3u);
    EXPECT_EQ(test.presenter.alerts()[1].alert.message, localizedString(row.told));
    EXPECT_EQ(siteFile.read().count(), 0u);
  }
}

TEST_F(Panel, ALostTemplateIsAskedAboutAndTheAnswerIsItsOwnWindowsAlone) {
  const FakeWindow other(test);
  const auto dataOf = [](const char* name) {
    Value setting = Value::dictionary();
    setting.set(vn_Setting_MeetingTemplate,
                Value::dictionaryFromPairs({{vn_Setting_MeetingTemplate_TemplateId, "T1"},
                                            {vn_Setting_MeetingTemplate_TemplateName, name}}));
    setting.set(vn_Setting_MuteUponEntry, true);
    return Value::dictionaryFromPairs({{vn_Setting, setting}});
  };
  Value answered;
  const auto subscription = test.notificationCenter.observe(
      notify_Commit_ChooseAnotherTemplate,
      [&](const NotificationCenter::Notification& note) { answered = note.userInfo; });
  test.surroundings.resources["Localizable.strings"] =
      "\"LN_Schedule_Template_Notavailable_220900\" = \"%@ is gone\";";
  manager().showCommitWarning(window->bar->ownWindow, dataOf("Interview"));
  other.manager->showCommitWarning(other.bar->ownWindow, dataOf("Town hall"));
  ASSERT_EQ(test.presenter.alerts().size(), 2u);
  EXPECT_EQ(test.presenter.alerts()[1].alert.message, "Town hall is gone");
  test.presenter.answerAlert(1, Presenter::Answer::defaultButton);
  EXPECT_THAT(client.names(), IsEmpty());
  EXPECT_THAT(panels.panel->calls, ElementsAre("shown"));
  other.manager->cleanup();

  test.presenter.answerAlert(0, Presenter::Answer::alternateButton);
  EXPECT_EQ(answered["meetingData"], dataOf("Interview"));
  ASSERT_THAT(client.names(), ElementsAre("3/2"));
  EXPECT_THAT(client.requests.back().second, testing::AllOf(testing::HasSubstr(R"("muteOnEntry" : true)"),
                                                            testing::Not(testing::HasSubstr("Interview"))));

  // An update, also of a meeting that is none yet; refused, that one is still to be added.
  openPanel();
  for (const auto& [key, committed] : {std::pair(kKey, "3/2"), std::pair("", "3/1")}) {
    data().setMeetingKey(key);
    manager().apiMgr()->updateMeeting(window->bar->ownWindow, dataOf(""));
    client.requests.clear();
    manager().apiMgr()->onMessageResponse(
        Value::dictionaryFromPairs({{"actionId", "2"}, {"content", "0;Error 3402"}}));
    endPanel(true, true);
    EXPECT_THAT(client.names(), ElementsAre(committed));
  }
}

}  // namespace
}  // namespace vorn
