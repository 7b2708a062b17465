// What a manager decides when a reply has come: whether the service must hear of something, what is written, and
// whether the host's operation is made again.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "licence/vnLicencePolicy.h"
#include "meeting.pb.h"
#include "tests/workflow/FakeClient.h"
#include "tests/workflow/FakeWindow.h"
#include "util/EncodeUtils.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr const char* kKey = "5550123456";
constexpr double kStart = 1795514400;

class FakePanel final : public SettingsPanel {
 public:
  Value getVnSettingsData() override { return settings; }
  std::string getScheduldForEmailFromUI() override { return {}; }
  Value getSiteMeetingInfo() override { return {}; }
  void setPMIMeetingInfo(const Value& info) override { calls.push_back("personal " + info[vn_MeetingKey].text()); }
  void updatePasswordAfterCommit(const OptionalText& passcode) override {
    calls.push_back("passcode " + passcode.value_or("-"));
  }
  void filterInvalidAlternateHosts(const Value&) override {}
  void resetMeetingItemWhenUpdateError() override {}
  void setScheduleForListInfo(bool) override { calls.push_back("people"); }

  Value settings = Value::dictionary();
  std::vector<std::string> calls;
};

class FakePanels final : public SettingsPanels {
 public:
  void addSchSettingWindowToArray(const std::string&, const Value&, const HostObject&) override {}
  void showSchSettingWindow(const std::string&) override { panel.calls.push_back("shown"); }
  SettingsPanel* getSchSettingWindowInArray(const OptionalText&) override { return isOpen ? &panel : nullptr; }
  void refreshSettingWindow(const std::string&, bool) override { panel.calls.push_back("refreshed"); }
  void addToInputAlternateHostHistory(const Value& hosts) override {
    for (const Value& host : hosts.items()) panel.calls.push_back("remembers " + host.text());
  }

  bool isOpen = false;
  FakePanel panel;
};

class Decisions : public testing::Test {
 protected:
  Decisions() {
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
    test.classRuntime.setInstanceMethod("ERCalendarEventEditorViewController",
                                        "vn_ERCalendarEventEditorViewController_save",
                                        [this](const HostObject&, const Arguments&) {
                                          ++hostSaves;
                                          return Value();
                                        });
    defineStartTime();
    setSettingsPanels(&panels);
    openWindow();
  }

  // Without a time that can be read no commit goes out.
  void defineStartTime() {
    test.classRuntime.defineClass("OLCalendarDate");
    test.classRuntime.setInstanceMethod("OLCalendarDate", "dateUTC",
                                        [](const HostObject&, const Arguments&) { return Value(kStart); });
    const HostObject date = test.classRuntime.create("OLCalendarDate");
    test.classRuntime.setInstanceMethod("ECCalendarEvent", "startTime",
                                        [date](const HostObject&, const Arguments&) { return Value(date); });
  }

  // An editor with a meeting that has been read and is as the service has it.
  void openWindow() {
    window = std::make_unique<FakeWindow>(test);
    window->bar->action = VnApptActionAutoUpdate;
    data().setMeetingKey(kKey);
    data().setForceIncludeJoinUrlInLocation(true);
    data().setOldForceIncludeJoinurlInLocation(true);
    data().setSelectInvitationLanguage("en-US");
    data().setOldSelectInvitationLanguage("en-US");
    helper().setMeetingData(meeting(), false);
  }

  static Value meeting() {
    return Value::dictionaryFromPairs({{"meetingKey", kKey},
                                       {"subject", "Review"},
                                       {"startTime", kStart},
                                       {"joinUrl", "https://vorn.example/j/5550123456"},
                                       {"meetingPassword", "abc123"}});
  }
  vnMeetingMgr& manager() { return *window->manager; }
  vnMeetingDataMgr& data() { return *manager().meetingDataMgr(); }
  vnGetMeetingHelper& helper() { return *manager().getMeetingHelper(); }
  // The appointment as the meeting already is.
  Value unchanged() { return helper().getMeetingInfo(); }
  Value with(std::string_view group, std::string_view key, const Value& value) {
    Value changed = unchanged();
    Value part = changed[group];
    part.set(key, value);
    changed.set(group, part);
    return changed;
  }
  void knowAccount() {
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{"userId", "me"}, {"roomMeetingId", "5550142871"}}));
  }
  bool isWritten() { return !window->get(window->bar->editor, "record").text().empty(); }
  void reply(std::uint64_t number, Value response = Value::dictionary()) {
    Value dictionary = Value::dictionary();
    dictionary.set(keyVnAPIResponse, response);
    dictionary.set(keyApptWindowID, window->bar->ownWindow.windowId());
    manager().onExcuteCommandFinished(number, dictionary);
    test.runLoop.runFor(0.01);
  }

  TestPlatform test;
  FakeClient& client = FakeClient::install(test);
  FakePanels panels;
  std::unique_ptr<FakeWindow> window;
  int hostSaves = 0;
};

TEST_F(Decisions, AnUpdateIsToldWrittenOrJustFinished) {
  using Names = std::vector<std::string>;
  const auto nothing = [] {};
  const auto typed = [this] {
    window->set(window->bar->editor, "uncommittedChanges", Value::dictionaryFromPairs({{"content.summary", "x"}}));
  };
  const auto account = [this] { knowAccount(); };
  const Value renamed = with(vn_Outlook_ApptInfo, vn_ApptInfo_Subject, "Renamed");
  const Value personal = with(vn_Setting, vn_Setting_IsPMI, true);
  const struct {
    const char* name;
    std::function<void()> prepare;
    Value meetingData;
    Names requests;
    bool writes;
    bool finishes;
  } rows[] = {
      {"nothing changed", nothing, unchanged(), {}, false, true},
      {"the appointment changed where the service does not look", typed, unchanged(), {}, true, true},
      {"a write is due anyhow", [this] { manager().setIsForceUpdate(true); }, unchanged(), {}, true, true},
      {"the URL's place changed",
       [this] { data().setForceIncludeJoinUrlInLocation(false); },
       unchanged(),
       {},
       true,
       true},
      {"the invitation's language changed",
       [this] { data().setSelectInvitationLanguage("de-DE"); },
       unchanged(),
       {},
       true,
       true},
      {"the language was never known",
       [this] { data().setSelectInvitationLanguage(std::nullopt); },
       unchanged(),
       {},
       true,
       true},
      {"the meeting changed", nothing, renamed, {"3/2"}, false, false},
      {"it moves to the personal number", account, personal, {"3/4"}, false, false},
      {"it moves to the personal number of an account not known yet", nothing, personal, {"6"}, false, false},
      {"an occurrence that does not own the meeting",
       [this] { window->bar->blocked = true; },
       renamed,
       {},
       false,
       true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    vnUserProfileHelper::sharedInstance().clearUserProfile();
    openWindow();
    row.prepare();
    client.requests.clear();
    hostSaves = 0;
    manager().setState(VnStateCommitting);
    MeetingWindow opened = MeetingWindow::ofBar(window->bar);
    manager().saveRoad().commitUpdateMeeting(opened, row.meetingData);
    EXPECT_EQ(hostSaves, 0) << "the present call has to unwind first";
    test.runLoop.runFor(0.01);
    EXPECT_THAT(client.requests, ElementsAreArray(row.requests));
    EXPECT_EQ(isWritten(), row.writes);
    EXPECT_EQ(hostSaves, row.finishes ? 1 : 0);
    EXPECT_FALSE(row.writes && manager().isForceUpdate());
  }
}

// What a meeting that has come is for, the state alone tells.
TEST_F(Decisions, AMeetingIsTakenForWhatItWasFetchedFor) {
  using Names = std::vector<std::string>;
  const struct {
    std::uint64_t state;
    std::uint64_t after;
    Names requests;
    Names panel;
    bool writes;
    bool finishes;
  } rows[] = {
      {VnStateIdle, VnStateIdle, {}, {}, false, false},
      {VnStateAdding, VnStateAdding, {}, {}, false, false},
      {VnStateChanging, VnStateChanging, {}, {"shown"}, false, false},
      {VnStateCommitting, VnStateCommitting, {"3/2"}, {}, false, false},
      {VnStateCommitted, VnStateIdle, {}, {"passcode abc123"}, true, true},
      {VnStatePAC, VnStatePAC, {}, {}, false, false},
      {VnStatePMIForSettings,
       VnStatePMIForSettings,
       {},
       {std::string("personal ") + kKey, "refreshed"},
       false,
       false},
      {VnStatePMIForSchedule, VnStateCommitting, {"3/1"}, {}, false, false},
      {VnStatePMIForUpdate, VnStatePMIForUpdate, {"3/2"}, {}, false, false},
      {VnStateLoadByApptUUID, VnStateLoadByApptUUID, {}, {}, false, false},
      {VnStateUpdateOnCalendar, VnStateUpdateOnCalendar, {}, {}, false, false},
  };
  panels.isOpen = true;
  panels.panel.settings.set(vn_Setting_AudioOption, 2);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.state);
    client.requests.clear();
    panels.panel.calls.clear();
    window->set(window->bar->editor, "record", "");
    hostSaves = 0;
    manager().setState(row.state);
    reply(VnCmdGetMeeting);
    EXPECT_EQ(manager().state(), row.after);
    EXPECT_THAT(client.requests, ElementsAreArray(row.requests));
    EXPECT_THAT(panels.panel.calls, ElementsAreArray(row.panel));
    EXPECT_EQ(isWritten(), row.writes);
    EXPECT_EQ(hostSaves, row.finishes ? 1 : 0);
  }
}

// Nothing of the personal meeting is needed to schedule with its number.
TEST_F(Decisions, AReplyWithoutAReadableMeetingLetsOnlyTheAddWithThePersonalNumberGoOn) {
  panels.isOpen = true;
  helper().setMeetingData(Value::dictionary(), false);
  for (std::uint64_t state = VnStateIdle; state <= VnStateUpdateOnCalendar; ++state) {
    SCOPED_TRACE(state);
    const bool goesOn = state == VnStatePMIForSchedule;
    client.requests.clear();
    manager().setState(state);
    reply(VnCmdGetMeeting);
    EXPECT_EQ(manager().state(), goesOn ? VnStateCommitting : state);
    EXPECT_THAT(client.requests,
                ElementsAreArray(goesOn ? std::vector<std::string>{"3/1"} : std::vector<std::string>{}));
    EXPECT_THAT(panels.panel.calls, IsEmpty());
    EXPECT_FALSE(isWritten());
    EXPECT_EQ(hostSaves, 0);
  }
}

TEST_F(Decisions, EachOtherReplyGoesToItsOwnEnd) {
  const Value confirmed = Value::dictionaryFromPairs({{keyVNResult, keyVNSuccess}, {vn_MeetingKey, "5550999999"}});
  for (const std::uint64_t number : {VnCmdSchedule, VnCmdUpdate}) {
    client.requests.clear();
    manager().setState(VnStateCommitting);
    window->bar->result.setActionResult(false);
    reply(number, confirmed);
    EXPECT_EQ(manager().state(), VnStateCommitted) << number;
    EXPECT_EQ(data().meetingKey(), "5550999999");
    EXPECT_TRUE(window->bar->getActionResult());
    EXPECT_EQ(window->bar->shown, VnUIMeeting);
    EXPECT_THAT(client.requests, ElementsAre("3/4"));
    EXPECT_EQ(hostSaves, 0);
  }

  // A deletion leaves the state, takes the record away and finishes.
  manager().setState(VnStateChanging);
  reply(VnCmdDelete, Value::dictionaryFromPairs({{keyVNResult, keyVNSuccess}}));
  EXPECT_EQ(manager().state(), VnStateChanging);
  EXPECT_EQ(window->get(window->bar->editor, "record").text(), "");
  EXPECT_EQ(window->bar->shown, VnUINotMeeting);
  EXPECT_EQ(data().meetingKey(), "");
  EXPECT_EQ(hostSaves, 1);

  // People to schedule for matter only to a meeting that does not exist yet, and only to an open panel.
  panels.isOpen = true;
  reply(VnCmdGetScheduleForList);
  EXPECT_THAT(panels.panel.calls, ElementsAre("people"));
  data().setMeetingKey(kKey);
  reply(VnCmdGetScheduleForList);
  EXPECT_THAT(panels.panel.calls, ElementsAre("people"));
}

TEST_F(Decisions, ACommitRemembersTheAlternateHostsOfAnOpenPanel) {
  Value hosts = Value::array();
  hosts.append("ada@vorn.example");
  panels.panel.settings.set(vn_Setting_AlternateHosts, hosts);
  reply(VnCmdUpdate);
  EXPECT_THAT(panels.panel.calls, IsEmpty());
  panels.isOpen = true;
  reply(VnCmdUpdate);
  EXPECT_THAT(panels.panel.calls, ElementsAre("remembers ada@vorn.example"));
}

TEST_F(Decisions, AMeetingBelongsToAStrangerOnlyWhenThatIsKnown) {
  const struct {
    const char* name;
    bool knowsAccount;
    const char* hostId;
    const char* scheduledFor;
    bool isValid;
  } rows[] = {
      {"one's own", true, "me", nullptr, true},
      {"one's own, before the profile has come", false, "me", nullptr, true},
      {"of a host who is a stranger", true, "somebody", nullptr, false},
      {"expressly nobody else's", true, "somebody", "", true},
      {"expressly for a stranger", true, "me", "stranger@vorn.example", false},
      {"expressly for somebody, before the profile has come", false, "me", "stranger@vorn.example", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    vnUserProfileHelper::sharedInstance().clearUserProfile();
    if (row.knowsAccount) knowAccount();
    Value read = meeting();
    if (row.scheduledFor) read.set(vn_Setting_ScheduleFor, row.scheduledFor);
    helper().setMeetingData(read, false);
    com::tidemar::webapp::proto::MeetingProto message;
    message.set_hostid(row.hostId);
    helper().setPBMeetingData(EncodeUtils::base64Encode(message.SerializeAsString()));
    EXPECT_EQ(manager().checkScheduleForEmailValidity(), row.isValid);
  }
}

TEST_F(Decisions, ARefusedCommitIsToldByThePanelOrWithoutOneByAnAlert) {
  const JsonTextFile siteFile(vnMeetingCommon::getLocalVnSiteConfigPath());
  const struct {
    int code;
    std::string_view noted;
  } rows[] = {{3402, ""}, {3403, vn_NotStrongerPasscode}, {3113, vn_SecurityNotSeleteOne}, {555, ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    test.presenter.alerts.clear();
    panels.panel.calls.clear();
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, row.code);
    EXPECT_THAT(panels.panel.calls, ElementsAre("shown"));
    EXPECT_THAT(test.presenter.alerts, IsEmpty());
    EXPECT_EQ(siteFile.read().count(), row.noted.empty() ? 0u : 1u);
    EXPECT_EQ(siteFile.read()[row.noted].boolValue(), !row.noted.empty());
    siteFile.write(Value::dictionary());

    // Nobody would clear a note for a panel that does not come: there is none, or the commit came from the
    // calendar.
    manager().showSettingsWindowWithCommitError(HostObject(), row.code);
    setSettingsPanels(nullptr);
    manager().showSettingsWindowWithCommitError(window->bar->ownWindow, row.code);
    setSettingsPanels(&panels);
    ASSERT_EQ(test.presenter.alerts.size(), 2u);
    EXPECT_NE(test.presenter.alerts[1].alert.message, "");
    EXPECT_EQ(siteFile.read().count(), 0u);
  }
}

TEST_F(Decisions, ALostTemplateIsAskedAboutAndTheAnswerIsItsOwnWindowsAlone) {
  const FakeWindow other(test);
  const auto dataOf = [](const char* name) {
    Value setting = Value::dictionary();
    setting.set(vn_Setting_MeetingTemplate,
                Value::dictionaryFromPairs({{vn_Setting_MeetingTemplate_TemplateId, "T1"},
                                            {vn_Setting_MeetingTemplate_TemplateName, name}}));
    return Value::dictionaryFromPairs({{vn_Setting, setting}});
  };
  Value answered;
  const auto subscription = test.notificationCenter.observe(
      notify_Commit_ChooseAnotherTemplate,
      [&](const NotificationCenter::Notification& note) { answered = note.userInfo; });
  manager().showCommitWarning(window->bar->ownWindow, dataOf("Interview"));
  other.manager->showCommitWarning(other.bar->ownWindow, dataOf("Town hall"));
  ASSERT_EQ(test.presenter.alerts.size(), 2u);
  EXPECT_EQ(test.presenter.alerts[0].window, window->bar->ownWindow);

  test.presenter.answerAlert(0, Presenter::Answer::alternateButton);
  EXPECT_EQ(answered["meetingData"], dataOf("Interview"));
  EXPECT_THAT(client.requests, ElementsAre("3/2"));
  EXPECT_THAT(client.contents.back(), testing::Not(testing::HasSubstr("Interview")));

  test.presenter.answerAlert(1, Presenter::Answer::defaultButton);
  EXPECT_THAT(client.requests, ElementsAre("3/2"));
  EXPECT_THAT(panels.panel.calls, ElementsAre("shown"));
}

TEST_F(Decisions, PeopleToScheduleForAreAskedForWithoutASheet) {
  MeetingWindow opened = MeetingWindow::ofBar(window->bar);
  EXPECT_EQ(manager().settingsFlow().getScheduleForList(opened), 0);
  EXPECT_THAT(client.requests, ElementsAre("11"));
  EXPECT_FALSE(test.presenter.showsProgress());
}

TEST_F(Decisions, TheNoticeOfThePlanAnswersOnlyItsOwnManagerAndOnlyWhileItIsOpen) {
  vnScheduleErrorMessage notice;
  std::vector<Value> posted;
  const auto subscription = test.notificationCenter.observe(
      notify_ScheduleErrorMessage_Commit,
      [&](const NotificationCenter::Notification& note) { posted.push_back(note.userInfo); }, &notice);
  notice.setOLApptWindowID(window->bar->ownWindow.windowId());
  notice.showMessage({});
  notice.showMessage({});
  test.presenter.answerAlert(0, Presenter::Answer::defaultButton);
  EXPECT_THAT(posted, IsEmpty()) << "the second has taken its place";
  test.presenter.answerAlert(1, Presenter::Answer::defaultButton);
  ASSERT_EQ(posted.size(), 1u);
  EXPECT_TRUE(posted[0][keyButtonClickIsOK].boolValue());
  EXPECT_EQ(posted[0][keyApptWindowID].text(), window->bar->ownWindow.windowId());

  notice.showMessage({});
  test.presenter.answerAlert(2, Presenter::Answer::alternateButton);
  ASSERT_EQ(posted.size(), 2u);
  EXPECT_FALSE(posted[1][keyButtonClickIsOK].boolValue());

  notice.showMessage({});
  notice.abortDomodal();
  test.presenter.answerAlert(3, Presenter::Answer::defaultButton);
  EXPECT_EQ(posted.size(), 2u);
  // The notice of this test is no manager's, so no manager has begun to save.
  EXPECT_THAT(client.requests, IsEmpty());
}

TEST(LicencePolicy, KnowsEachUserTypeAndRefusesNothingToOneThatItDoesNotKnow) {
  const struct {
    vnLicencePolicy::UserType type;
    bool isPaid;
    bool hasNoLicence;
    bool isTooLongAt41;
  } rows[] = {
      {std::nullopt, false, false, false},
      {0, false, true, false},
      {1, false, false, true},
      {2, true, false, false},
      {3, true, false, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type.value_or(-1));
    EXPECT_EQ(vnLicencePolicy::isPaidUser(row.type), row.isPaid);
    EXPECT_EQ(vnLicencePolicy::isNoMeetingLicenseUser(row.type), row.hasNoLicence);
    EXPECT_EQ(vnLicencePolicy::isLongerThanPlanAllows(row.type, 41), row.isTooLongAt41);
    EXPECT_FALSE(vnLicencePolicy::isLongerThanPlanAllows(row.type, 40));
  }
}

}  // namespace
}  // namespace vorn
