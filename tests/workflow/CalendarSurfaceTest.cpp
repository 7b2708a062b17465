#include "host/proxies/vnECCalendarEvent.h"
#include "tests/workflow/MeetingFixture.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

class CalendarEdit : public WorkflowFixture {
 protected:
  // An edit of a meeting with this number; 0 or the code for which its request is refused.
  static int edit(const FakeWindow& window, const char* key) {
    return window.manager->calendarEdits().getMeetingByApptUUIDForUpdateOnCalendar(
        VnCmdUpdate, Value::dictionaryFromPairs(
                         {{vn_Outlook_ApptInfo, Value::dictionaryFromPairs({{vn_ApptInfo_OlApptUUID, "uuid"}})},
                          {vn_MeetingKey, key},
                          {keyEventOwnerWindow, window.bar->ownWindow},
                          {keyApptWindowID, window.bar->ownWindow.windowId()},
                          {keyDragAndMoveOnCalendar, true}}));
  }
  static void reply(const FakeWindow& window) {
    window.manager->onExcuteCommandFinished(VnCmdGetMeetingByApptUUID, Value::dictionary());
  }
  // The client's answer is an error, of which the manager does not hear.
  static void refuse(const FakeWindow& window) {
    window.manager->apiMgr()->handleMessageRespose(
        Value::dictionaryFromPairs({{"actionId", "10"}, {"content", "0;Error 3001"}}));
  }
};

// The reply has no number of its request, so what it names decides whether it is believed.
TEST_F(CalendarEdit, GoesToTheMeetingThatTheServiceKnowsByTheUUIDAndToNoOther) {
  RecordingClient::install(test);
  struct Row {
    const char *name, *toldKey, *toldUUID;
    enum { alone, behindOne, behindARefusedOne, behindAnAnsweredOne } edit;
    const char* key;
    const char* originalNumber = "0";
  };
  const Row rows[] = {
      {"of this appointment", "88", "uuid", Row::alone, "88"},
      {"of another appointment", "88", "other", Row::alone, "77"},
      {"of none, to the only edit", "88", nullptr, Row::alone, "88"},
      {"of none, to one of two edits", "88", nullptr, Row::behindOne, "77"},
      {"of none, to the second of two edits, the first refused", "88", nullptr, Row::behindARefusedOne, "88"},
      {"of none, to the second of two edits, the first answered", "88", nullptr, Row::behindAnAnsweredOne, "88"},
      {"of this appointment, to one of two edits", "88", "uuid", Row::behindOne, "88"},
      {"without a meeting", "", "uuid", Row::alone, "77"},
      {"of a personal meeting with a number of its own", "88", "uuid", Row::alone, "99", "99"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    FakeWindow window(test);
    com::tidemar::webapp::proto::MeetingProto message;
    if (row.toldUUID) message.set_extinfo(R"({"olApptUUID":")" + std::string(row.toldUUID) + "\"}");
    if (row.edit != Row::alone) {
      if (row.edit == Row::behindARefusedOne) test.workspace.running.clear();
      edit(window, "66");
      test.workspace.running.insert("us.vorn.xos");
    }
    if (row.edit == Row::behindAnAnsweredOne) refuse(window);
    edit(window, "77");
    // The end of another edit forgets what was known of this one.
    window.manager->clearAllSavedData();
    window.bar->action = 0;
    vnGetMeetingHelper& helper = *window.manager->getMeetingHelper();
    helper.setMeetingData(
        Value::dictionaryFromPairs(
            {{vn_MeetingKey, row.toldKey}, {"usePMI", 1}, {"originalMeetingNumber", row.originalNumber}}),
        false);
    helper.setPBMeetingData(encoded(message));
    reply(window);
    EXPECT_EQ(window.manager->getVornMeetingKey(), row.key);
    EXPECT_TRUE(window.manager->isDragAndMove() && window.manager->isForceUpdate());
    EXPECT_EQ(window.bar->action, VnApptActionCalendarEdit);
    EXPECT_EQ(window.manager->meetingDataMgr()->getSavedApptInfo()[vn_ApptInfo_OlApptUUID], Value("uuid"));
  }
}

TEST_F(CalendarEdit, ThatIsRefusedIsNotMadeLater) {
  RecordingClient& client = RecordingClient::install(test);
  FakeWindow window(test);
  const Value data =
      Value::dictionaryFromPairs({{vn_MeetingKey, "77"}, {keyEventOwnerWindow, window.bar->ownWindow}});
  for (const auto& [command, action, reply] :
       {std::tuple(VnCmdDelete, "3", "77"), {VnCmdUpdate, "4", ";;;;;;;;;;;;;eyJtZWV0aW5nS2V5IjoiNzcifQ=="}}) {
    if (command == VnCmdUpdate) window.manager->calendarEdits().sendVnMeetingCommand(command, data);
    test.workspace.running.clear();
    EXPECT_EQ(window.manager->calendarEdits().sendVnMeetingCommand(command, data), 1);
    test.workspace.running.insert("us.vorn.xos");
    client.requests.clear();
    const std::uint64_t state = window.manager->state();
    window.manager->apiMgr()->handleMessageRespose(
        Value::dictionaryFromPairs({{"actionId", action}, {"content", reply}}));
    EXPECT_THAT(client.names(), testing::IsEmpty()) << "another window's answer";
    EXPECT_EQ(window.manager->getVornMeetingKey(), "77");
    EXPECT_EQ(window.manager->state(), state);
  }
}

TEST_F(CalendarEdit, WhoseDeleteWaitsHearsOfItThoughOthersAreRefused) {
  RecordingClient::install(test);
  FakeWindow window(test);
  const Value data =
      Value::dictionaryFromPairs({{vn_MeetingKey, "77"}, {keyEventOwnerWindow, window.bar->ownWindow}});
  const auto answer = [&] {
    test.workspace.running.insert("us.vorn.xos");
    test.presenter.forgetAlerts();
    window.manager->apiMgr()->handleMessageRespose(
        Value::dictionaryFromPairs({{"actionId", "3"}, {"content", "0;Error 3002"}}));
    return test.presenter.alerts().size();
  };
  EXPECT_EQ(window.manager->calendarEdits().sendVnMeetingCommand(VnCmdDelete, data), 0);
  test.workspace.running.clear();
  for (const char* refused : {"second", "third"}) {
    EXPECT_EQ(window.manager->calendarEdits().sendVnMeetingCommand(VnCmdDelete, data), 1) << refused;
  }
  EXPECT_EQ(answer(), 1u) << "the service keeps the meeting";
  EXPECT_EQ(window.manager->getVornMeetingKey(), "");
  EXPECT_EQ(answer(), 0u) << "another window's";
}

TEST_F(CalendarEdit, IsParkedNowhereAfterTheEndOfItsManager) {
  FakeWindow window(test);
  window.manager->cleanup();
  EXPECT_EQ(edit(window, "77"), 0);
  reply(window);
  EXPECT_EQ(window.manager->state(), VnStateUpdateOnCalendar);
  EXPECT_TRUE(window.manager->isDragAndMove()) << "it waits";
}

TEST_F(CalendarEdit, AnAppointmentThatSupportsNoMeetingIsLeftAlone) {
  vnCalendarActionMgr& calendar = vnCalendarActionMgr::sharedInstance();
  EXPECT_EQ(calendar.updateAppointmentOnCalendar(Value::dictionary(), HostObject(), false, VnCmdUpdate, "77"), 0);
  EXPECT_EQ(calendar.deleteMeeting(HostObject()), 0);
  EXPECT_EQ(calendar.updateSubject(HostObject(), "Renamed"), 0);
  EXPECT_EQ(vnMeetingMgr::sharedInstance()->state(), VnStateIdle);

  // Any other goes to the manager of the window that it is edited in.
  FakeWindow window(test);
  const Value apptInfo = Value::dictionaryFromPairs({{vn_ApptInfo_OlApptUUID, "uuid"}});
  EXPECT_EQ(calendar.updateAppointmentOnCalendar(apptInfo, window.bar->ownWindow, true, VnCmdUpdate, "77"), 1);
  EXPECT_TRUE(window.manager->isDragAndMove());
  EXPECT_EQ(window.manager->meetingKey(), "77");
}

TEST_F(CalendarEdit, InAWindowWithABarAndNoManagerNothingIsSent) {
  FakeWindow window(test);
  vnMeetingMgrMonitor::sharedInstance().removeInstanceByVnView(window.bar.get());
  EXPECT_EQ(vnCalendarActionMgr::sharedInstance().updateAppointmentOnCalendar(
                Value::dictionary(), window.bar->ownWindow, true, VnCmdUpdate, "77"),
            0);
}

}  // namespace
}  // namespace vorn
