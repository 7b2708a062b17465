#include "channel/transport/vnIPCConstants.h"
#include "tests/commands/CommandWorld.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using RequestLife = CommandWorld;

Value withSheet(bool shows) {
  return Value::dictionaryFromPairs({{vn_API_Call_Para_ShowCommunicationDlg, shows}});
}

TEST_F(RequestLife, TheClientIsWokenThreeTimesAndNotAfterAReply) {
  mgr->getScheduleForList(window);
  EXPECT_EQ(activations(), 1u);
  runFor(1.9);
  EXPECT_EQ(activations(), 1u);
  runFor(0.2);
  EXPECT_EQ(activations(), 2u);
  runFor(2.0);
  EXPECT_EQ(activations(), 3u);
  runFor(100);
  EXPECT_EQ(activations(), 3u);
  EXPECT_EQ(world.runLoop.waiting(), 0u);
  mgr->getScheduleForList(window);
  reply("11", "{}");
  runFor(100);
  EXPECT_EQ(activations(), 4u);
}

TEST_F(RequestLife, ASecondRequestGetsItsOwnSixtySecondsAndItsOwnActivations) {
  mgr->getUserProfile(window, withSheet(true));
  runFor(30);
  EXPECT_EQ(activations(), 3u);
  mgr->getUserProfile(window, withSheet(true));
  runFor(31);
  EXPECT_TRUE(world.presenter.showsProgress());
  runFor(30);
  EXPECT_FALSE(world.presenter.showsProgress());
  EXPECT_EQ(activations(), 6u);
  EXPECT_EQ(world.presenter.progress().begun(), 1u) << "the sheet that is there is the second's too";
}

TEST_F(RequestLife, ATimerOfAnEarlierRequestNeitherWakesTheClientNorTouchesADestroyedCommand) {
  mgr->getUserProfile(window, withSheet(true));
  runFor(1);
  mgr->getUserProfile(window, withSheet(true));
  EXPECT_EQ(activations(), 2u);
  runFor(1.5);  // the first request's two seconds are over
  EXPECT_EQ(activations(), 2u);
  mgr.reset();
  EXPECT_FALSE(world.presenter.showsProgress());
  runFor(100);
  EXPECT_EQ(activations(), 2u);
  EXPECT_EQ(world.runLoop.waiting(), 0u);
}

TEST_F(RequestLife, TheSheetIsShownAsEachRequestSays) {
  const Value commit = Value::dictionary();
  const Value key = Value::dictionaryFromPairs({{"meetingKey", "987"}});
  const struct {
    const char* name;
    std::function<void()> request;
    bool shows;
  } cases[] = {
      {"schedule", [&] { mgr->scheduleMeeting(window, withSheet(false)); }, true},
      {"update", [&] { mgr->updateMeeting(window, commit); }, true},
      {"update in silence", [&] { mgr->updateMeeting(window, withSheet(false)); }, false},
      {"delete", [&] { mgr->deleteMeeting(window, key); }, true},
      {"get meeting", [&] { mgr->getMeeting(window, key); }, false},
      {"get meeting, shown", [&] { mgr->getMeeting(window, withSheet(true)); }, true},
      {"by UUID", [&] { mgr->getMeetingByApptUUID(window, Value()); }, false},
      {"by UUID, shown", [&] { mgr->getMeetingByApptUUID(window, withSheet(true)); }, true},
      {"profile", [&] { mgr->getUserProfile(window, Value()); }, false},
      {"profile, shown", [&] { mgr->getUserProfile(window, withSheet(true)); }, true},
      {"audio", [&] { mgr->getPAC(window, Value()); }, false},
      {"audio, shown", [&] { mgr->getPAC(window, withSheet(true)); }, true},
      {"new meeting", [&] { mgr->getNewMeetingDefault(window); }, false},
      {"schedule-for list", [&] { mgr->getScheduleForList(window); }, false},
      {"start", [&] { mgr->startMeeting(true); }, false},
  };
  for (const auto& [name, request, shows] : cases) {
    mgr = std::make_unique<vnAPIMgr>();
    mgr->setMeetingMgrInstance(&owner);
    request();
    EXPECT_EQ(world.presenter.showsProgress(), shows) << name;
  }
}

TEST_F(RequestLife, TwoRequestsAtOnceShowASheetEachAndEachReplyEndsItsOwn) {
  mgr->getUserProfile(window, withSheet(true));
  mgr->getPAC(window, withSheet(true));
  EXPECT_THAT(world.presenter.progress().open(),
              ElementsAre("CommunicationProgressTitle", "CommunicationProgressTitle"));
  reply("9", "{}");
  EXPECT_EQ(world.presenter.progress().open().size(), 1u);
  reply("6", "{}");
  EXPECT_FALSE(world.presenter.showsProgress());
}

TEST_F(RequestLife, AStrayReplyIsTakenAsTheAnswerToARefusedRequest) {
  runClient(false);
  mgr->getScheduleForList(window);
  runClient();
  reply("11", "{}");
  EXPECT_EQ(owner.finished.size(), 1u);
}

TEST_F(RequestLife, ARequestFromAnAbsentWindowIsSentButItsReplyIsDropped) {
  EXPECT_EQ(mgr->getScheduleForList(HostObject()), 0);
  EXPECT_EQ(sent().size(), 1u);
  reply("11", "{}");
  EXPECT_THAT(owner.finished, IsEmpty());
}

TEST_F(RequestLife, AReplyThatNobodyWaitsForReachesNobody) {
  const std::string meeting = meetingReply({packed(Value::dictionaryFromPairs({{"meetingKey", "987"}}))});
  for (const char* action : {"1", "2", "3", "4", "6", "9", "10", "11"}) {
    for (const std::string& content : {meeting, std::string("{}"), std::string("0;Error 3001")}) {
      reply(action, content);
    }
  }
  EXPECT_THAT(owner.finished, IsEmpty());
  EXPECT_THAT(owner.told, IsEmpty());
  EXPECT_FALSE(owner.helper.hasMeetingInfo());
  EXPECT_THAT(alertTexts(), IsEmpty());
}

TEST_F(RequestLife, OnlyTheRoutedActionsReachACommand) {
  mgr->scheduleMeeting(window, Value::dictionary());
  mgr->getScheduleForList(window);
  for (const char* action : {"", "0", "5", "7", "8", "12", "-1", "200", "eleven", "99999999999999999999"}) {
    reply(action, "987;text");
  }
  reply("2", "987;text");  // no update is pending
  EXPECT_THAT(owner.finished, IsEmpty());
  mgr->onMessageResponse(Value());
  reply("1", "987;text");
  reply("11", "{}");
  EXPECT_EQ(owner.finished.size(), 2u);
}

TEST_F(RequestLife, TheManagerMayEndItsCommandsWhileItHearsOfAReply) {
  owner.whenFinished = [&] { mgr.reset(); };
  mgr->scheduleMeeting(window, Value::dictionary());
  reply("1", "987;text");
  EXPECT_EQ(owner.finished.size(), 1u);
}

// A sheet may run the loop until it has its answer.
TEST_F(RequestLife, WhatHappensBehindTheSheetOfADeleteDoesNotChangeWhoHearsOfItAndWhat) {
  const Value key = Value::dictionaryFromPairs({{"meetingKey", "987"}});
  world.presenter.setAlertObserver([&](const auto&) {
    if (world.presenter.alerts().size() > 1) return;
    runClient(false);
    EXPECT_NE(mgr->deleteMeeting(window, key), 0);
    runClient();
  });
  mgr->deleteMeeting(window, key);
  reply("3", "987");
  ASSERT_EQ(owner.finished.size(), 1u);
  EXPECT_EQ(owner.finished[0].data[keyVnAPIResponse][keyVNResult], Value("Success"));

  // The window closes, and the next one opens in its place.
  world.presenter.setAlertObserver([&](const auto&) {
    mgr.reset();
    mgr = std::make_unique<vnAPIMgr>();
    mgr->setMeetingMgrInstance(&owner);
  });
  mgr->deleteMeeting(window, key);
  reply("3", "987");
  EXPECT_EQ(owner.finished.size(), 1u);
}

TEST_F(RequestLife, AfterCleanupNothingIsSentAndNothingIsHeard) {
  mgr->getScheduleForList(window);
  mgr->cleanup();
  reply("11", "{}");
  EXPECT_THAT(owner.finished, IsEmpty());
  const std::size_t before = sent().size();
  EXPECT_EQ(mgr->scheduleMeeting(window, Value()) + mgr->updateMeeting(window, Value()) +
                mgr->deleteMeeting(window, Value::dictionaryFromPairs({{"meetingKey", "987"}})) +
                mgr->getMeeting(window, Value()) + mgr->getMeetingByApptUUID(window, Value()) +
                mgr->getUserProfile(window, Value()) + mgr->getPAC(window, Value()) +
                mgr->getNewMeetingDefault(window) + mgr->getScheduleForList(window),
            0);
  EXPECT_EQ(sent().size(), before);
}

TEST_F(RequestLife, OnAnOlderSystemRepliesComeAsDistributedNotifications) {
  world.surroundings.version = {10, 14, 6};
  mgr = std::make_unique<vnAPIMgr>();
  mgr->setMeetingMgrInstance(&owner);
  vnAPIMgr other;
  mgr->getScheduleForList(window);
  EXPECT_THAT(sent(), IsEmpty());
  reply("11", "{}");
  EXPECT_THAT(owner.finished, IsEmpty());
  world.trace.steps.clear();
  world.distributedNotifications.deliver(kIPCNotifyVornClientToOutlookPlugin,
                                         Value::dictionaryFromPairs({{"actionId", "11"}, {"content", "{}"}}));
  EXPECT_EQ(owner.finished.size(), 1u);
  EXPECT_EQ(world.trace.steps.size(), 1u);  // one envelope, however many observe it
}

}  // namespace
}  // namespace vorn
