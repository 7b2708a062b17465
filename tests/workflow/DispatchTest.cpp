#include <gtest/gtest.h>

#include "tests/workflow/MeetingFixture.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using Dispatch = WorkflowFixture;

TEST_F(Dispatch, NumbersThatNobodyAnswersDoNothingButAreNotedAsTheLastAction) {
  FakeWindow window(test);
  for (const std::uint64_t number : {0, 7, 8, 13, 14, 16, 17, 1000}) {
    window.manager->setState(VnStatePMIForSettings);
    EXPECT_EQ(window.manager->sendVnMeetingCommand(number, window.bar->editor), 0) << number;
    EXPECT_EQ(window.manager->getMeetingAction(), number);
    EXPECT_EQ(window.manager->state(), VnStatePMIForSettings) << number;
  }
  for (const std::uint64_t reply : {0, 9, 10, 11, 12, 14, 17}) {
    EXPECT_EQ(window.manager->onExcuteCommandFinished(reply, Value::dictionary()), 0) << reply;
    EXPECT_EQ(window.manager->state(), VnStatePMIForSettings) << reply;
  }
  EXPECT_TRUE(test.presenter.alerts().empty());
}

TEST_F(Dispatch, AnyAccountButTheSecondIsTheFirst) {
  FakeWindow window(test);
  for (const auto& [account, command] : {std::pair{0, 11}, {1, 11}, {2, 12}, {3, 11}}) {
    vnApptUIActionMgr::sharedInstance().addPACMeeting(window.bar, account);
    EXPECT_EQ(window.manager->getMeetingAction(), static_cast<std::uint64_t>(command)) << account;
  }
}

// Nothing comes back then, and a click does nothing.
TEST_F(Dispatch, ABarThatIsNotListedHasNoManagerToSendACommand) {
  vnApptUIActionMgr& door = vnApptUIActionMgr::sharedInstance();
  const auto unlisted = std::make_shared<FakeBar>();
  EXPECT_EQ(door.addVNMeeting(unlisted), 0);
  EXPECT_EQ(door.cancelVNMeeting(unlisted, 0), 0);
  EXPECT_EQ(door.changeVNMeeting(unlisted, 0), 0);
  EXPECT_EQ(door.addPACMeeting(unlisted, 1), 0);
  EXPECT_EQ(vnMeetingMgr::sharedInstance()->getMeetingAction(), 0u);
}

// An event without a window belongs to the shared manager, whose key is another appointment's during a drag.
TEST_F(Dispatch, AnEventWithoutAWindowHasTheSharedManagersKeyButNotDuringAnEditOnTheCalendar) {
  const HostObject event = hostObject("ECCalendarEvent");
  vnMeetingMgr& shared = *vnMeetingMgr::sharedInstance();
  shared.setMeetingKey("77");
  EXPECT_EQ(WorkflowDirectory::sharedInstance().meetingKeyForEvent(event), "77");
  shared.setIsDragAndMove(true);
  EXPECT_EQ(WorkflowDirectory::sharedInstance().meetingKeyForEvent(event), "");
}

TEST_F(Dispatch, ASaveIsPassedOnUnlessTheMeetingHasSomethingToTell) {
  vnApptUIActionMgr& door = vnApptUIActionMgr::sharedInstance();
  EXPECT_EQ(door.handleVNMeeting(hostObject("ERCalendarEventEditorViewController"), Value()), VnHandlePassOn);

  FakeWindow window(test);
  // What stands in the location field is noted, whatever becomes of the save.
  const auto expectLocationNoted = [&](const char* what) {
    EXPECT_EQ(vnApptDataForSaveRecord::sharedInstance().take(window.bar).getOLNewLocation(), "Room 7") << what;
  };
  window.showLocation("Room 7");
  for (const int status : {VnDataNone, VnDataAdded}) {
    window.bar->dataStatus = status;
    window.bar->result.setActionResult(false);
    EXPECT_EQ(door.handleVNMeeting(window.bar->editor, Value::dictionaryFromPairs({{keyApptViewActionID, 2}})),
              VnHandlePassOn);
    EXPECT_TRUE(window.bar->getActionResult());
    EXPECT_EQ(window.bar->action, VnApptActionSaveAndClose);
    EXPECT_EQ(window.manager->getMeetingAction(), 0u);
    expectLocationNoted("passed on");
  }
  window.bar->dataStatus = VnDataChanged;
  EXPECT_EQ(door.handleVNMeeting(window.bar->editor, Value()), VnHandleBlocked);
  EXPECT_EQ(window.manager->getMeetingAction(), VnCmdUpdate);
  expectLocationNoted("blocked");
  window.bar->dataStatus = VnDataDeleted;
  door.handleVNMeeting(window.bar->editor, Value());
  EXPECT_EQ(window.manager->getMeetingAction(), VnCmdDelete);
}

TEST_F(Dispatch, TheLookupsFallBackToTheSharedManagerExceptForAnUnlistedBar) {
  FakeWindow first(test), second(test);
  const HostObject unknown(0x1234);
  const auto shared = vnMeetingMgr::sharedInstance();
  using Monitor = vnMeetingMgrMonitor;
  for (const FakeWindow* window : {&first, &second}) {
    EXPECT_EQ(Monitor::getMeetingMgrByVnView(window->bar.get()), window->manager);
    EXPECT_EQ(Monitor::getMeetingMgrByOlWindow(window->bar->ownWindow), window->manager);
    EXPECT_EQ(Monitor::getMeetingMgrByApptWindowID(window->bar->ownWindow.windowId()), window->manager);
    EXPECT_EQ(Monitor::getMeetingMgrByECCalendarEvent(window->bar->event), window->manager);
    EXPECT_EQ(Monitor::getMeetingMgrByEditorViewCtrl(window->bar->editor), window->manager);
    EXPECT_EQ(Monitor::getVnViewByMeetingMgr(window->manager.get()), window->bar);
    EXPECT_EQ(vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorWinCtrl(
                  window->bar->windowController),
              window->bar);
  }
  EXPECT_EQ(Monitor::getMeetingMgrByVnView(nullptr), shared);
  EXPECT_EQ(Monitor::getMeetingMgrByOlWindow(unknown), shared);
  EXPECT_EQ(Monitor::getMeetingMgrByApptWindowID(std::nullopt), shared);
  EXPECT_EQ(Monitor::getMeetingMgrByECCalendarEvent(unknown), shared);
  EXPECT_EQ(Monitor::getMeetingMgrByEditorViewCtrl(unknown), shared);
  FakeBar unlisted;
  EXPECT_EQ(Monitor::getMeetingMgrByVnView(&unlisted), nullptr);
}

TEST_F(Dispatch, TheWindowOfACommandIsFoundThroughTheDirectory) {
  FakeWindow window(test);
  const Value data = window.manager->getVornMeetingData(window.bar->editor);
  EXPECT_EQ(data[keyApptWindowID].text(), window.bar->ownWindow.windowId());
  EXPECT_EQ(data[keyEventOwnerWindow].object(), window.bar->ownWindow);
  EXPECT_TRUE(data[vn_Outlook_ApptInfo].isDictionary());
}

TEST_F(Dispatch, OnlyAResponseThatSaysSuccessIsOne) {
  vnActionResultMgr result;
  for (const Value& told : {Value(keyVNSuccess), Value(keyVNFail), Value("success"), Value()}) {
    const bool isSuccess = told == Value(keyVNSuccess);
    result.setActionResult(!isSuccess);
    result.setActionResultData(Value::dictionaryFromPairs({{keyVNResult, told}}));
    EXPECT_EQ(result.getActionResult(), isSuccess);
  }
}

TEST_F(Dispatch, ManagersAndBarsGoWhenTheirPairIsRemoved) {
  std::weak_ptr<vnMeetingMgr> manager;
  {
    FakeWindow window(test);
    manager = window.manager;
    vnUserProfileHelper::sharedInstance().setData(Value::dictionaryFromPairs({{"userId", "me"}}));
    vnApptDataForSaveRecord::sharedInstance().of(window.bar).setOLNewBody("<p>mine</p>");
    window.manager->cleanup();
    EXPECT_TRUE(vnApptDataForSaveRecord::sharedInstance().windows().empty());
    EXPECT_FALSE(vnUserProfileHelper::sharedInstance().hasUserProfile()) << "each end forgets it";
    vnMeetingMgrMonitor::sharedInstance().removeInstanceByVnView(window.bar.get());
    vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(window.bar.get());
  }
  test.runLoop.runFor(61);
  EXPECT_TRUE(manager.expired());
}

}  // namespace
}  // namespace vorn
