// What a manager decides when a reply has come: whether the service must hear of something, what is written, and
// whether the host's operation is made again.

#include "channel/commands/VNDeletedMeetingWindowController.h"
#include "channel/store/vnCommon.h"
#include "invitation/vnBodyHelper.h"
#include "licence/CodeSignatures.h"
#include "licence/vnLicencePolicy.h"
#include "platform/Localization.h"
#include "tests/workflow/MeetingFixture.h"
#include "util/AtomicFile.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnAutoRemoveVornMeetingMessage.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnCommitWarning.h"
#include "workflow/vnScheduleErrorMessage.h"
#include "workflow/vnScheduleLimitationViewController.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Decisions = MeetingFixture;

// What a meeting that has come is for, the state alone tells. Of one that nobody can read nothing is needed only
// to schedule with the personal number. A meeting that was cancelled meanwhile is neither told of nor written.
TEST_F(Decisions, AMeetingIsTakenForWhatItWasFetchedFor) {
  using Names = std::vector<std::string>;
  struct Row {
    std::uint64_t state, after;
    Names requests, panel;
    bool writes;
    // Whether it is the same with one that was cancelled, and with one that nobody can read; nothing happens
    // otherwise.
    bool cancelled, unreadable;
  };
  const Row rows[] = {
      {VnStateIdle, VnStateIdle, {}, {}, false, true, true},
      {VnStateAdding, VnStateAdding, {}, {}, false, true, true},
      {VnStateChanging, VnStateChanging, {}, {"shown"}, false, false, false},
      {VnStateCommitting, VnStateCommitting, {"3/2"}, {}, false, false, false},
      {VnStateCommitted, VnStateIdle, {}, {"passcode abc123"}, true, false, false},
      {VnStatePAC, VnStatePAC, {}, {}, false, true, true},
      {VnStatePMIForSettings,
       VnStatePMIForSettings,
       {},
       {"personal 5550123456", "refreshed as personal"},
       false,
       true,
       false},
      {VnStatePMIForSchedule, VnStateCommitting, {"3/1"}, {}, false, true, true},
      {VnStatePMIForUpdate, VnStatePMIForUpdate, {"3/2"}, {}, false, false, false},
      {VnStateLoadByApptUUID, VnStateLoadByApptUUID, {}, {}, false, true, true},
      {VnStateUpdateOnCalendar, VnStateUpdateOnCalendar, {}, {}, false, true, true},
  };
  openPanel();
  panels.panel->settings.set(vn_Setting_AudioOption, 2);
  knowAccount();
  for (std::size_t i = 0; i < 3 * std::size(rows); ++i) {
    const bool isCancelled = i < std::size(rows);
    const bool isReadable = i < 2 * std::size(rows);
    const Row& of = rows[i % std::size(rows)];
    const bool counts = isCancelled ? of.cancelled : isReadable || of.unreadable;
    const Row row = counts ? of : Row{of.state, of.state, {}, {}, false, false, false};
    SCOPED_TRACE(testing::Message() << row.state
                                    << (isCancelled  ? " cancelled"
                                        : isReadable ? ""
                                                     : " unreadable"));
    helper().setMeetingData(isReadable ? meeting() : Value::dictionary(), false);
    data().setMeetingKey(isCancelled ? "" : kKey);
    client.requests.clear();
    panels.panel->calls.clear();
    window->set(window->bar->editor, "olmUCInband", "");
    window->set(window->bar->event, "summary", "");
    hostSaves = 0;
    manager().setState(row.state);
    reply(VnCmdGetMeeting);
    EXPECT_EQ(window->get(window->bar->event, "summary").text(), row.writes ? "Review" : "");
    EXPECT_EQ(manager().state(), row.after);
    EXPECT_THAT(client.names(), ElementsAreArray(row.requests));
    EXPECT_THAT(panels.panel->calls, ElementsAreArray(row.panel));
    EXPECT_EQ(isWritten(), row.writes);
    EXPECT_EQ(hostSaves, row.writes ? 1 : 0);
  }
}

TEST_F(Decisions, PeopleToScheduleForMatterToANewMeetingAndToAnOpenPanelAlone) {
  reply(VnCmdGetScheduleForList);
  data().setMeetingKey("");
  reply(VnCmdGetScheduleForList);
  EXPECT_THAT(panels.panel->calls, IsEmpty());
  openPanel();
  reply(VnCmdGetScheduleForList);
  data().setMeetingKey(kKey);
  reply(VnCmdGetScheduleForList);
  EXPECT_THAT(panels.panel->calls, ElementsAre("people"));
}

TEST_F(Decisions, AMeetingBelongsToAStrangerOnlyWhenThatIsKnown) {
  struct Row {
    const char* name;
    enum { unknown, known, cleared } account;
    const char *hostId, *scheduledFor;
    bool isValid;
  };
  const Row rows[] = {
      {"one's own", Row::known, "me", nullptr, true},
      {"one's own, before the profile has come", Row::unknown, "me", nullptr, true},
      {"of a host who is a stranger", Row::known, "somebody", nullptr, false},
      {"of a host who may be another account of one's own", Row::cleared, "somebody", nullptr, true},
      {"expressly nobody else's", Row::known, "somebody", "", true},
      {"expressly for a stranger", Row::known, "me", "stranger@vorn.example", false},
      {"expressly for somebody, before the profile has come", Row::unknown, "me", "stranger@vorn.example", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    vnUserProfileHelper::sharedInstance().cleanup();
    if (row.account != Row::unknown) knowAccount();
    if (row.account == Row::cleared) vnUserProfileHelper::sharedInstance().clearUserProfile();
    Value read = meeting();
    if (row.scheduledFor) read.set(vn_Setting_ScheduleFor, row.scheduledFor);
    helper().setMeetingData(read, false);
    com::tidemar::webapp::proto::MeetingProto message;
    message.set_hostid(row.hostId);
    helper().setPBMeetingData(encoded(message));
    EXPECT_EQ(manager().checkScheduleForEmailValidity(), row.isValid);
  }
}

TEST_F(Decisions, AnUpgradeIsOfferedByPageOrByMailOrNotAtAll) {
  const std::tuple<int, const char*, const char*, const char*> rows[] = {
      {1, "https://vorn.example/upgrade", "boss@vorn.example", "https://vorn.example/upgrade"},
      {0, "https://vorn.example/upgrade", "boss@vorn.example", "mailto:boss@vorn.example"},
      {1, "", "boss@vorn.example", nullptr},
      {0, "", "", nullptr}};
  for (const auto& [isPage, page, email, opened] : rows) {
    vnUserProfileHelper::sharedInstance().setData(Value::dictionaryFromPairs(
        {{vn_Profile_UpgradeInfo, Value::dictionaryFromPairs({{vn_UpgradeInfo_IsShowUpgradeLink, isPage},
                                                              {vn_UpgradeInfo_UpgradeLink, page},
                                                              {vn_UpgradeInfo_ContactEmail, email}})}}));
    ControlSet controls;
    vnScheduleLimitationViewController notice(controls);
    notice.initFields(true);
    EXPECT_EQ(controls.isOnScreen("upgradeButton"), opened != nullptr);
    test.workspace.openedPages.clear();
    for (const std::string& key : controls.keys()) {
      notice.userChanged(key);
      EXPECT_EQ(controls.find(key)->text.empty(), key == "scheduleLimitationView") << key;
    }
    // In the panel it is shown only where it says something.
    notice.setEmbedSettingWindowMode(true);
    for (const bool isLonger : {true, false}) {
      notice.initFields(isLonger);
      EXPECT_EQ(controls.isShown("scheduleLimitationView"), isLonger);
      EXPECT_EQ(notice.wish().has_value(), isLonger);
    }
    EXPECT_EQ(test.workspace.openedPages, opened ? std::vector<std::string>{opened} : std::vector<std::string>{});
  }
}

// What one answers to a notice, scenarios tell; here are those of two notices and of two windows.
TEST_F(Decisions, ALongMeetingOfASmallPlanWaitsForTheLastAnswerToItsOwnNotice) {
  knowAccountOfType(1);
  test.classRuntime.setInstanceMethod("OLCalendarDate", "timeIntervalSinceDate:",
                                      [](const HostObject&, const Arguments&) { return Value(41 * 60.0); });
  window->set(window->bar->event, "endTime", test.classRuntime.create("OLCalendarDate"));
  window->bar->dataStatus = VnDataChanged;
  window->showLocation("Castle");
  const FakeWindow other(test);
  const auto save = [&] {
    EXPECT_EQ(vnApptUIActionMgr::sharedInstance().handleVNMeeting(window->bar->editor, Value()), VnHandleError);
  };
  // Only the one that is heard leaves the switch as it is.
  const auto continueAfter = [&](std::size_t alert) {
    test.presenter.answerAlert(alert, {0, alert != 1});
    test.runLoop.runFor(0.01);
  };
  save();
  save();
  ASSERT_EQ(test.presenter.alerts().size(), 2u);
  EXPECT_EQ(test.presenter.alerts()[0].alert.message,
            formatText(localizedString("LN_Schedule_Limitation_Duration"), {"40"}));
  EXPECT_EQ(vnApptDataForSaveRecord::sharedInstance().of(window->bar).getOLNewLocation(), "Castle");
  continueAfter(0);
  EXPECT_THAT(client.names(), IsEmpty()) << "the second has taken its place";
  other.manager->hasScheduleError(window->bar->editor);
  other.manager->cleanup();
  continueAfter(2);
  EXPECT_THAT(client.names(), IsEmpty()) << "a window that has gone hears nothing";
  continueAfter(1);
  EXPECT_THAT(client.names(), ElementsAre("3/2"));
  EXPECT_EQ(other.manager->getMeetingAction(), 0u);
  EXPECT_FALSE(readFile(vnCommon::getVnUserProfilePath("me"))) << "a switch that nobody has touched makes no file";
}

TEST_F(Decisions, EachCommandEntersItsStateAndWithoutALicenceSomeEndWithTheNotice) {
  constexpr std::uint64_t kBefore = VnStatePMIForUpdate;
  const struct {
    std::uint64_t command;
    bool fromBar, needsLicence;
    std::uint64_t state;
    std::vector<std::string> requests, panel;
  } rows[] = {
      {VnCmdAdd, true, true, VnStateAdding, {}, {"shown"}},
      {VnCmdChangeSettings, true, true, VnStateChanging, {}, {"shown"}},
      {VnCmdCancel, true, true, kBefore, {"3/3"}, {}},
      {VnCmdSchedule, false, true, VnStateCommitting, {"3/1"}, {}},
      {VnCmdUpdate, false, true, VnStateCommitting, {"3/2"}, {}},
      {VnCmdDelete, false, true, kBefore, {"3/3"}, {}},
      {VnCmdStartWithVideo, false, false, kBefore, {"2"}, {}},
      {VnCmdStartWithoutVideo, false, false, kBefore, {"2"}, {}},
      {VnCmdAddPACAccount1, true, false, VnStatePAC, {"9"}, {}},
      {VnCmdAddPACAccount2, true, false, VnStatePAC, {"9"}, {}},
      {VnCmdGetMeetingByApptUUID, false, false, VnStateLoadByApptUUID, {"3/10"}, {}},
  };
  for (const bool hasLicence : {false, true}) {
    knowAccountOfType(hasLicence ? 2 : 0);
    for (const auto& row : rows) {
      SCOPED_TRACE(testing::Message() << row.command << (hasLicence ? " with a licence" : ""));
      openWindow();
      client.requests.clear();
      panels.panel->calls.clear();
      test.presenter.forgetAlerts();
      manager().setState(kBefore);
      EXPECT_EQ(row.fromBar ? manager().sendVnMeetingCommand(row.command, window->bar)
                            : manager().sendVnMeetingCommand(row.command, window->bar->editor),
                0);
      test.runLoop.runFor(0.01);
      const bool goesOn = hasLicence || !row.needsLicence;
      EXPECT_EQ(manager().state(), row.state);
      EXPECT_EQ(test.presenter.alerts().size(), goesOn ? 0u : 1u);
      EXPECT_THAT(client.names(), ElementsAreArray(goesOn ? row.requests : std::vector<std::string>{}));
      EXPECT_THAT(panels.panel->calls, ElementsAreArray(goesOn ? row.panel : std::vector<std::string>{}));
      EXPECT_EQ(hostSaves, 0);
    }
  }
  openWindow();
  helper().setMeetingData(Value::dictionary(), false);
  client.requests.clear();
  manager().sendVnMeetingCommand(VnCmdUpdate, window->bar->editor);
  EXPECT_THAT(client.names(), ElementsAre("3/4")) << "a meeting that has not been read is fetched first";
}

// People who look over its shoulder read these.
TEST_F(Decisions, EachStepIsTracedWithItsNumberAndItsName) {
  const auto pairs = &Value::dictionaryFromPairs;
  manager().sendVnMeetingCommand(VnCmdGetMeetingByApptUUID, window->bar->editor);
  manager().setState(manager().state());
  manager().onExcuteCommandFinished(VnCmdGetScheduleForList, Value());
  vnApptUIActionMgr::sharedInstance().handleVNMeeting(window->bar->editor, pairs({{keyApptViewActionID, 3}}));
  const std::pair<const char*, Value> rows[] = {
      {"command", pairs({{"number", 15}, {"name", "VnCmdGetMeetingByApptUUID"}})},
      {"state", pairs({{"from", 0}, {"fromName", "VnStateIdle"}, {"to", 9}, {"toName", "VnStateLoadByApptUUID"}})},
      {"finished", pairs({{"number", 16}, {"name", "VnCmdGetScheduleForList"}})},
      {"hook", pairs({{"action", 3}, {"dataStatus", VnDataNone}})},
  };
  for (const auto& [step, facts] : rows) EXPECT_EQ(test.trace.lastOf(step), facts) << step;
}

TEST_F(Decisions, AnUnchangedMeetingIsWrittenOnceAndAgainAfterAChangedChoice) {
  window->set(window->bar->bodyEditor, "bodyContent", "mine");
  MeetingWindow opened = MeetingWindow::ofBar(window->bar);
  const auto writes = [&] {
    window->set(window->bar->editor, "olmUCInband", "");
    manager().saveRoad().commitUpdateMeeting(opened, unchanged());
    test.runLoop.runFor(0.01);
    return isWritten();
  };
  manager().setIsForceUpdate(true);
  EXPECT_TRUE(writes());
  EXPECT_FALSE(writes());
  data().setForceIncludeJoinUrlInLocation(false);
  EXPECT_TRUE(writes());
  data().setSelectInvitationLanguage("de-DE");
  EXPECT_TRUE(writes());
  EXPECT_FALSE(writes());
  EXPECT_EQ(hostSaves, 5) << "the save goes on each time";
  EXPECT_THAT(client.names(), IsEmpty());
  manager().clearAllSavedData();
  EXPECT_FALSE(helper().hasMeetingInfo()) << "a meeting that was deleted is compared with nothing";
  helper().setMeetingData(meeting(), false);
  manager().cleanup();
  EXPECT_FALSE(helper().hasMeetingInfo());
}

// An invitation that is not written stays due, and one that nobody knows is not taken for the first.
TEST_F(Decisions, AnInvitationIsDueUntilItIsWritten) {
  const struct {
    const char* what;
    bool isFirst, isBodyKnown, hasInvitation;
    const char* digest;
    bool isDue, holdsOnlyWordsLater;
  } rows[] = {
      {"written", true, true, true, "", false, false},
      {"no body yet", true, false, true, "", true, true},
      {"no invitation yet", true, true, false, "", true, true},
      {"no body yet for a change", false, false, true, "old", true, false},
      {"no body yet, and nobody knows what stands there", false, false, true, "", true, true},
      {"a change without an invitation", false, true, false, "old", false, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    openWindow();
    if (row.isBodyKnown) window->set(window->bar->bodyEditor, "bodyContent", "mine");
    Value told = meeting();
    if (row.hasInvitation) told.set("invitationEmail", "You are invited.");
    helper().setMeetingData(told, false);
    data().setEncodeMailBody(row.digest);
    WriteBack& writeBack = manager().writeBack();
    row.isFirst ? writeBack.startWithoutInvitation() : writeBack.startOver();
    MeetingWindow opened = MeetingWindow::ofBar(window->bar);
    writeBack.updateMailBodyForSchedule(opened);
    writeBack.updateVnKeyInfoToAppointment(opened, helper().getMeetingInfo(), true);
    EXPECT_EQ(writeBack.isDue(), row.isDue);
    const Value record = window->get(window->bar->editor, "olmUCInband");
    EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(record.optionalText())[vn_Meeting_JoinUrl], told["joinUrl"]);
    openWindow();
    window->set(window->bar->event, "olmUCInband", record);
    opened = MeetingWindow::ofBar(window->bar);
    EXPECT_TRUE(manager().opening().loadOIProperty(opened, window->bar->event));
    EXPECT_EQ(manager().writeBack().holdsOnlyUsersWords(), row.holdsOnlyWordsLater);
  }
}

// Nor is it forgotten when the service tells none meanwhile; and a cancel takes out whatever stands there.
TEST_F(Decisions, AnInvitationThatCouldNotBeWrittenStaysDueAndGoesWithACancel) {
  openWindow();
  Value told = meeting();
  MeetingWindow opened = MeetingWindow::ofBar(window->bar);
  WriteBack& writeBack = manager().writeBack();
  for (const char* invitation : {"You are invited.", ""}) {
    SCOPED_TRACE(invitation);
    told.set("invitationEmail", invitation);
    helper().setMeetingData(told, false);
    writeBack.updateMailBodyForSchedule(opened);
    writeBack.updateVnKeyInfoToAppointment(opened, helper().getMeetingInfo(), true);
    EXPECT_TRUE(writeBack.isDue());
    EXPECT_TRUE(helper().NeedRequestGetMeeting());
  }
  window->set(window->bar->bodyEditor, "bodyContent",
              "mine" + std::string(kvn_BeginBookmark) + "You are invited." + std::string(kvn_EndBookmark));
  writeBack.updateVnMeetingInfoToAppointmentForDelete(
      opened, Value::dictionaryFromPairs({{vn_API_Para_InvitationEmail, ""}}));
  EXPECT_EQ(window->get(window->bar->event, "body"), Value("mine"));
}

// What the service has accepted is written by the next save where the fetch behind it has failed.
TEST_F(Decisions, AnAcceptedChangeIsDueUntilItIsWritten) {
  window->set(window->bar->bodyEditor, "bodyContent", "mine");
  reply(VnCmdUpdate, Value::dictionaryFromPairs({{vn_MeetingKey, kKey}}));
  EXPECT_TRUE(manager().writeBack().isDue());
  MeetingWindow opened = MeetingWindow::ofBar(window->bar);
  manager().saveRoad().commitUpdateMeeting(opened, unchanged());
  EXPECT_TRUE(isWritten());
  EXPECT_FALSE(manager().writeBack().isDue());
}

TEST_F(Decisions, AMeetingThatWasSavedOrFoundByItsUUIDIsShown) {
  ApptSaveData& left = vnApptDataForSaveRecord::sharedInstance().of(window->bar);
  openPanel();
  panels.panel->settings.set(vn_Setting_AlternateHosts, Value::Array{"ada@vorn.example"});
  left.setNeedClearLocation(true);
  reply(VnCmdSchedule, Value::dictionaryFromPairs({{vn_MeetingKey, "77"}}));
  EXPECT_THAT(panels.panel->calls, ElementsAre("stands", "remembers ada@vorn.example"));
  EXPECT_EQ(window->bar->shown, VnUIMeeting);
  EXPECT_EQ(data().meetingKey(), "77");
  EXPECT_FALSE(left.needClearLocation());
  EXPECT_TRUE(helper().NeedRequestGetMeeting());
  EXPECT_THAT(client.names(), ElementsAre("3/4"));

  window->bar->shown = VnUINotMeeting;
  window->set(window->bar->event, "olmUCInband", "{\"meetingKey\": \"5550123456\"}");
  window->set(window->bar->event, "seriesMasterRecord", hostObject("ECCalendarEvent"));
  manager().setState(VnStateLoadByApptUUID);
  reply(VnCmdGetMeetingByApptUUID);
  EXPECT_EQ(window->bar->shown, VnUIMeeting);
  EXPECT_EQ(data().meetingKey(), kKey);
  EXPECT_EQ(data().joinUrl(), "https://vorn.example/j/5550123456");
  EXPECT_EQ(left.getJoinURLFromProperty(), data().joinUrl());
  EXPECT_TRUE(data().occurrenceIsSingleVornMeeting());
  EXPECT_EQ(client.names().back(), "6") << "what the account allows is asked for";

  for (const char* key : {"", kKey}) {
    data().setMeetingKey(key);
    helper().setMeetingData(meeting(), false);
    manager().setState(VnStateAdding);
    reply(VnCmdGetMeetingByApptUUID);
    EXPECT_EQ(helper().hasMeetingInfo(), *key != 0) << "too late for anything but the window's own meeting";
  }
  com::tidemar::webapp::proto::MeetingProto message;
  message.set_extinfo(R"({"olApptUUID":"other"})");
  helper().setPBMeetingData(encoded(message));
  for (const std::uint64_t state : {VnStateLoadByApptUUID, VnStateAdding}) {
    helper().setMeetingData(meeting(), false);
    manager().setState(state);
    reply(VnCmdGetMeetingByApptUUID);
    EXPECT_FALSE(helper().hasMeetingInfo()) << "another appointment's, which no new meeting may start from";
  }
}

// What the host was asked for is done at the end of a cancel that overtakes it, but not what it was asked for
// before a profile that nobody saves for.
TEST_F(Decisions, AnUpdateWithThePersonalNumberFetchesItFirst) {
  const struct {
    bool isSaved, knowsAccount;
    const char* asks;
  } rows[] = {{true, false, "6"}, {true, true, "3/4"}, {false, false, "6"}};
  for (const auto& row : rows) {
    openWindow();
    Value changed = unchanged();
    changed.set(vn_Setting, Value::dictionaryFromPairs({{vn_Setting_IsPMI, true}}));
    if (row.knowsAccount) knowAccount();
    client.requests.clear();
    hostSaves = 0;
    MeetingWindow opened = MeetingWindow::ofBar(window->bar);
    if (row.isSaved) {
      manager().setState(VnStateCommitting);
      manager().saveRoad().commitUpdateMeeting(opened, changed);
      EXPECT_EQ(manager().state(), VnStatePMIForUpdate);
    } else {
      manager().settingsFlow().prepareUserProfile(opened, false);
    }
    vnApptUIActionMgr::sharedInstance().cancelVNMeeting(window->bar, 0);
    EXPECT_THAT(client.names(), ElementsAre(row.asks, "3/3"));
    manager().apiMgr()->onMessageResponse(Value::dictionaryFromPairs({{"actionId", "3"}, {"content", kKey}}));
    test.runLoop.runFor(0.01);
    EXPECT_EQ(hostSaves, row.isSaved ? 1 : 0) << row.asks;
  }
}

TEST_F(Decisions, NoUpdateGoesOutBehindACancel) {
  manager().setState(VnStatePMIForUpdate);
  manager().apiMgr()->deleteMeeting(window->bar->ownWindow, Value::dictionaryFromPairs({{vn_MeetingKey, kKey}}));
  client.requests.clear();
  reply(VnCmdGetMeeting);
  EXPECT_THAT(client.names(), IsEmpty());
}

TEST_F(Decisions, TheAnswerToAnUpdateBeforeACancelIsNobodysNorThatToAFetch) {
  const Value asked = Value::dictionaryFromPairs({{vn_MeetingKey, kKey}});
  manager().apiMgr()->updateMeeting(window->bar->ownWindow, asked);
  manager().apiMgr()->getMeeting(window->bar->ownWindow, asked);
  EXPECT_TRUE(manager().apiMgr()->isWaitingForTheService());
  EXPECT_TRUE(manager().apiMgr()->isWaitingForMeeting());
  reply(VnCmdDelete);
  EXPECT_FALSE(manager().apiMgr()->isWaitingForTheService());
  EXPECT_FALSE(manager().apiMgr()->isWaitingForMeeting()) << "a new meeting would start from it";
}

// Until its first invitation stands in it, a body holds only the user's words, which an update must not replace.
TEST_F(Decisions, ASaveIsAnUpdateOnlyOfAnInvitationThatHasBeenWritten) {
  for (const char* invitation : {"", "Join the meeting"}) {
    openWindow();
    window->set(window->bar->bodyEditor, "bodyContent", "<p>mine</p>");
    reply(VnCmdSchedule, Value::dictionaryFromPairs({{vn_MeetingKey, kKey}}));
    manager().setMeetingAction(VnCmdUpdate);
    EXPECT_FALSE(manager().isUpdateVornMeetingEvent());
    Value read = meeting();
    read.set(vn_MeetingData_InvitationEmail, invitation);
    helper().setMeetingData(read, false);
    reply(VnCmdGetMeeting);
    EXPECT_EQ(manager().isUpdateVornMeetingEvent(), *invitation != 0) << invitation;
  }
}

// Its bar has left the lists and its editor is empty.
TEST_F(Decisions, AReplyForAWindowThatHasGoneShowsAndStoresNothing) {
  vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(window->bar.get());
  data().setSavedApptInfo(unchanged()[vn_Outlook_ApptInfo]);
  for (std::uint64_t number = VnCmdAdd; number <= VnCmdGetScheduleForList; ++number) {
    for (std::uint64_t state = VnStateIdle; state <= VnStateUpdateOnCalendar; ++state) {
      SCOPED_TRACE(testing::Message() << number << " in " << state);
      helper().setMeetingData(meeting(), false);
      manager().setState(state);
      reply(number);
    }
  }
  // What the appointment was when it was last seen is told all the same.
  Value renamed = unchanged()[vn_Outlook_ApptInfo];
  renamed.set(vn_ApptInfo_Subject, "Renamed");
  data().setSavedApptInfo(renamed);
  manager().setState(VnStateCommitting);
  reply(VnCmdGetMeeting);
  EXPECT_EQ(client.names().back(), "3/2");
  EXPECT_THAT(client.requests.back().second, testing::HasSubstr("Renamed"));
  EXPECT_EQ(window->bar->shown, VnUINotMeeting);
  EXPECT_FALSE(isWritten());
  EXPECT_EQ(hostSaves, 0);
  EXPECT_THAT(vnApptDataForSaveRecord::sharedInstance().windows(), IsEmpty());
}

TEST(LicencePolicy, KnowsEachUserTypeAndRefusesNothingToOneThatItDoesNotKnow) {
  for (const vnLicencePolicy::UserType& type : {vnLicencePolicy::UserType(), {0}, {1}, {2}, {3}}) {
    SCOPED_TRACE(type.value_or(-1));
    EXPECT_EQ(vnLicencePolicy::isPaidUser(type), type == 2 || type == 3);
    EXPECT_EQ(vnLicencePolicy::isNoMeetingLicenseUser(type), type == 0);
    EXPECT_EQ(vnLicencePolicy::isLongerThanPlanAllows(type, 41), type == 1);
    EXPECT_FALSE(vnLicencePolicy::isLongerThanPlanAllows(type, 40));
  }
}

TEST(CodeSignatures, AreNeitherGoodNorBadWhereNobodyCanTell) {
  UnknownCodeSignatures signatures;
  EXPECT_FALSE(signatures.checkAppCodeSign("/client.app") || signatures.checkCodeSignForVornPkg("/client.pkg"));
}

TEST_F(Decisions, AMeetingThatOneMayNotScheduleForOthersGoesOnlyWhenTheUserAgrees) {
  FakeBar& bar = *window->bar;
  const auto warns = [&](bool hasMeeting, std::size_t button) {
    bar.autoRemoves = 0;
    test.presenter.forgetAlerts();
    CommitRefusal::showWarningNotAllowScheduleForOthers(MeetingWindow::ofBar(window->bar));
    EXPECT_EQ(test.presenter.alerts().at(0).window, bar.ownWindow);
    // A warning of another editor, meanwhile, is another matter.
    vnAutoRemoveVornMeetingMessage::sharedInstance().setEditorViewCtrl({});
    bar.hasMeeting = hasMeeting;
    test.presenter.answerAlert(0, {button, false});
    return bar.autoRemoves;
  };
  EXPECT_EQ(warns(true, 0), 1);
  EXPECT_EQ(warns(true, 1), 0);
  EXPECT_EQ(warns(false, 0), 0) << "the meeting has gone meanwhile";
}

TEST_F(Decisions, TheResultOfASaveAndOfADeleteIsKeptForTheWindowAndForTheCalendar) {
  const vnCalendarActionMgr& calendar = vnCalendarActionMgr::sharedInstance();
  EXPECT_FALSE(calendar.getActionResultWithCalEventEditorViewCtrl({}));
  for (const std::uint64_t number : {VnCmdSchedule, VnCmdUpdate, VnCmdDelete}) {
    for (const bool succeeds : {false, true}) {
      window->bar->setActionResultData(Value());
      window->bar->dataStatus = succeeds ? VnDataNone : VnDataChanged;
      vnApptUIActionMgr::sharedInstance().handleVNMeeting(window->bar->editor, Value());
      EXPECT_TRUE(window->bar->getActionResult()) << "until the reply says otherwise";
      reply(number, Value::dictionaryFromPairs({{keyVNResult, succeeds ? "Success" : "Fail"}}));
      EXPECT_EQ(calendar.getActionResultWithCalEventEditorViewCtrl(window->bar->editor), succeeds) << number;
      EXPECT_EQ(calendar.getActionResult(), succeeds) << number;
    }
  }
}

TEST(Notices, AreTracedNotShownWithoutAPresenterAndNotHeardAfterTheEnd) {
  TestPlatform test;
  const auto showAll = [] {
    vnCommitWarning::sharedInstance().showCommitWarning({});
    vnAutoRemoveVornMeetingMessage::sharedInstance().showMessage({});
    VNDeletedMeetingWindowController::showSheet({});
    vnMeetingMgr::sharedInstance()->showNoMeetingLicenseWindow({});
    vnScheduleErrorMessage::sharedInstance().showMessage({});
  };
  showAll();
  const auto shown = test.presenter.alerts();
  std::vector<std::string> said;
  for (const auto& [window, alert, answer, answered] : shown) {
    const std::string text = alert.title.empty() ? alert.message : alert.title;
    EXPECT_EQ(test.trace.steps.at(said.size()).step, "alert");
    EXPECT_EQ(test.trace.steps.at(said.size()).facts["message"].text(), alert.message);
    said.push_back(text + ": ");
    for (const std::string& button : alert.buttons) said.back() += button + ", ";
    said.back() += alert.notAgainSwitch + alert.icon;
  }
  EXPECT_THAT(said, ElementsAre("LN_Schedule_Template_Notavailable_220900: "
                                "LN_Schedule_Template_ChooseAnotherTemplate_220900, "
                                "LN_Schedule_Template_NotUseTemplate_220900, warning.png",
                                "RemoveVornMeetingForOther: Button_OKGot, Button_Cancel, warning.png",
                                "LN_Schedule_DeleteMeetingTitle_120529: LN_Schedule_DeleteMeeting_120529, "
                                "Button_Cancel, LN_Schedule_DoNotRemind_120529",
                                "NoMeetingLicense: OK, warning.png",
                                "LN_Schedule_Limitation_Duration: Button_Continue, "
                                "LN_Schedule_ErrorMessage_BackToEdit_35312, "
                                "LN_Schedule_Limitation_NotShowAgainwarning.png"));
  Registry::reset();
  for (const auto& each : shown) each.answered(Presenter::Answer::defaultButton);
  test.platform().presenter = nullptr;
  test.reinstall();
  showAll();
  EXPECT_EQ(test.presenter.alerts().size(), 5U);
}

}  // namespace
}  // namespace vorn
