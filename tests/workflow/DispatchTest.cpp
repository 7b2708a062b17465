#include <gtest/gtest.h>

#include <regex>

#include "tests/workflow/MeetingFixture.h"
#include "util/AtomicFile.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using Dispatch = WorkflowFixture;

TEST(MeetingNumbers, HaveTheNamesThatTheyAreDeclaredWith) {
  const auto check = [](const char* header, const char* name, const auto& nameOf, std::size_t count) {
    const std::string source = readFile(std::string(VORN_PLUGIN_FOLDER) + header).value_or("");
    const std::regex declared(name + std::string(R"((\w+) = (\d+),)"));
    std::size_t found = 0;
    for (std::sregex_iterator at(source.begin(), source.end(), declared), end; at != end; ++at, ++found) {
      EXPECT_EQ(nameOf(std::stoull((*at)[2])), name + (*at)[1].str());
    }
    EXPECT_EQ(found, count);
    EXPECT_STREQ(nameOf(1000), "");
  };
  check("/channel/commands/vnMeetingCommand.h", "VnCmd", nameOfMeetingCommand, 15);
  check("/workflow/MeetingNumbers.h", "VnState", nameOfMeetingState, 11);
}

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

// Nothing comes back then, and a click does nothing.
TEST_F(Dispatch, ABarThatIsNotListedHasNoManagerToSendACommand) {
  vnApptUIActionMgr& door = vnApptUIActionMgr::sharedInstance();
  const auto unlisted = std::make_shared<FakeBar>();
  EXPECT_EQ(door.addVNMeeting(unlisted) + door.cancelVNMeeting(unlisted, 0) + door.changeVNMeeting(unlisted, 0) +
                door.addPACMeeting(unlisted, 1),
            0);
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

TEST_F(Dispatch, ManagersAndBarsGoWhenTheirPairIsRemoved) {
  const FakeWindow other(test);
  vnApptDataForSaveRecord& left = vnApptDataForSaveRecord::sharedInstance();
  vnMeetingMgrMonitor& pairs = vnMeetingMgrMonitor::sharedInstance();
  for (const bool byBar : {true, false}) {
    std::weak_ptr<vnMeetingMgr> manager;
    {
      FakeWindow window(test);
      manager = window.manager;
      vnUserProfileHelper::sharedInstance().setData(Value::dictionaryFromPairs({{"userId", "me"}}));
      left.of(window.bar).setOLNewBody("<p>mine</p>");
      left.setOLWordMailEditor(window.bar->editor, window.bar->bodyEditor);
      window.manager->setOpenFromVornClient(true);
      window.manager->cleanup();
      EXPECT_FALSE(window.manager->openFromVornClient() || window.manager->meetingKey());
      EXPECT_TRUE(left.windows().empty());
      EXPECT_FALSE(left.olWordMailEditor(window.bar->editor));
      EXPECT_FALSE(vnUserProfileHelper::sharedInstance().hasUserProfile()) << "each end forgets it";
      byBar ? pairs.removeInstanceByVnView(window.bar.get())
            : pairs.removeInstanceByVnMeetingMgr(window.manager.get());
      vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(window.bar.get());
      window.manager->freeAllObjects();
      EXPECT_FALSE(window.manager->meetingDataMgr() || window.manager->emailBodyMgr() ||
                   window.manager->pacMeetingMgr() || window.manager->apiMgr() ||
                   window.manager->getMeetingHelper());
    }
    test.runLoop.runFor(61);
    EXPECT_TRUE(manager.expired());
    EXPECT_EQ(pairs.getMeetingMgrByVnView(other.bar.get()), other.manager);
  }
}

}  // namespace
}  // namespace vorn
