// What an account may not do: hold meetings without a licence, and hold long ones without a paid plan.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/Localization.h"
#include "tests/road/world/RoadWorld.h"
#include "util/PropertyList.h"
#include "workflow/vnScheduleErrorMessage.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using EditorId = RoadWorld::EditorId;
using Answer = Presenter::Answer;

constexpr int kWithoutLicence = 0;
constexpr int kWithoutPaidPlan = 1;
constexpr int kPaid = 2;

constexpr const char* kAnHour = "SUMMARY:Review\r\n";

class Licence : public testing::Test {
 protected:
  // The appointment of an hour with a meeting, by an account that may do everything, and then the account's type.
  void storeMeetingThen(int userType) {
    const EditorId editor = world.openEditor("one");
    world.clickAdd(editor);
    world.saveAndClose(editor);
    ASSERT_FALSE(world.host.isOpen(editor));
    becomes(userType);
    before = world.calendarText();
  }

  void becomes(int userType) {
    vornlab::Account account = world.service.account();
    account.type = userType;
    world.service.setAccount(account);
    world.client->forgetRequests();
  }

  EditorId openAndType() {
    const EditorId editor = world.openEditor("one");
    world.host.typeSubject(editor, "Renamed");
    world.client->forgetRequests();
    return editor;
  }

  void expectNothingLost(EditorId editor) {
    EXPECT_TRUE(world.host.isOpen(editor));
    EXPECT_TRUE(world.host.isDirty(editor));
    EXPECT_EQ(world.host.subject(editor), "Renamed");
    EXPECT_EQ(world.calendarText(), before);
    EXPECT_FALSE(world.test.presenter.showsProgress());
  }

  RoadWorld world{calendarWith(kAnHour)};
  std::string before = world.calendarText();
};

TEST_F(Licence, IsWhatEveryMeetingCommandNeeds) {
  storeMeetingThen(kWithoutLicence);
  const auto cancel = [this](EditorId editor) { world.clickCancel(editor); };
  const auto change = [this](EditorId editor) {
    world.host.clickBar(editor, "onClickChangeSettings:");
    world.settle();
  };
  const auto save = [this](EditorId editor) { world.saveAndClose(editor); };
  const auto cancelMode = [this](EditorId editor) {
    world.test.classRuntime.send(world.host.viewController(editor), "setIsCancelMode:", {true});
    world.saveAndClose(editor);
  };
  const struct {
    const char* name;
    std::function<void(EditorId)> command;
  } rows[] = {{"cancel", cancel}, {"change", change}, {"update", save}, {"delete at a save", cancelMode}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const EditorId editor = openAndType();
    world.test.presenter.alerts.clear();
    row.command(editor);
    ASSERT_THAT(world.test.presenter.alerts, SizeIs(1));
    EXPECT_EQ(world.lastAlert(), localizedString("NoMeetingLicense"));
    EXPECT_THAT(world.client->requestNames(), IsEmpty());
    expectNothingLost(editor);
    world.abandon(editor);
  }

  const EditorId fresh = world.host.openNew(1795514400);
  world.settle();
  world.clickAdd(fresh);
  EXPECT_EQ(world.lastAlert(), localizedString("NoMeetingLicense"));
  EXPECT_TRUE(world.offersAdd(fresh));
  // An appointment without a meeting is nobody's business but the host's.
  world.saveAndClose(fresh);
  EXPECT_FALSE(world.host.isOpen(fresh));
  for (const auto& request : world.client->requests()) EXPECT_NE(request.action, vornlab::action::kMeetings);
}

TEST_F(Licence, ThatComesLaterLetsTheSaveGoOn) {
  storeMeetingThen(kWithoutLicence);
  EditorId editor = openAndType();
  world.saveAndClose(editor);
  expectNothingLost(editor);
  world.abandon(editor);
  becomes(kPaid);
  editor = openAndType();
  world.saveAndClose(editor);
  EXPECT_FALSE(world.host.isOpen(editor));
  EXPECT_EQ(world.store.find("one")->summary(), "Renamed");
}

TEST_F(Licence, APlanThatIsTooSmallAsksBeforeASave) {
  storeMeetingThen(kWithoutPaidPlan);
  const EditorId editor = openAndType();
  world.saveAndClose(editor);
  ASSERT_THAT(world.test.presenter.alerts, SizeIs(1));
  const Presenter::Alert& alert = world.test.presenter.alerts[0].alert;
  EXPECT_EQ(alert.message, formatText(localizedString("LN_Schedule_Limitation_Duration"), {"40"}));
  EXPECT_THAT(alert.buttons, ElementsAre(localizedString("Button_Continue"),
                                         localizedString("LN_Schedule_ErrorMessage_BackToEdit_35312")));
  EXPECT_THAT(world.client->requestNames(), IsEmpty());
  expectNothingLost(editor);

  world.test.presenter.answerAlert(0, Answer::alternateButton);
  world.settle();
  EXPECT_THAT(world.client->requestNames(), IsEmpty());
  expectNothingLost(editor);

  // Whoever goes on gets the save that was stopped.
  world.saveAndClose(editor);
  world.test.presenter.answerAlert(1, Answer::defaultButton);
  world.settle();
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/4", "3/2", "3/4"));
  EXPECT_FALSE(world.host.isOpen(editor));
  EXPECT_EQ(world.store.find("one")->summary(), "Renamed");
}

TEST_F(Licence, TheSwitchOfTheNoticeIsKeptByWhoeverGoesOnAndByNobodyElse) {
  storeMeetingThen(kWithoutPaidPlan);
  const EditorId editor = openAndType();
  for (const Answer answer : {Answer{1, true}, Answer{0, true}}) {
    EXPECT_FALSE(vnScheduleErrorMessage::notShowMessageAgain());
    world.test.presenter.scriptedAnswers.push_back(answer);
    world.saveAndClose(editor);
  }
  EXPECT_FALSE(world.host.isOpen(editor));
  world.saveAndClose(openAndType());
  EXPECT_THAT(world.test.presenter.alerts, SizeIs(2)) << "it is not shown again";
}

TEST_F(Licence, AnAnswerDuringTheSaveItselfWorksLikeALaterOne) {
  storeMeetingThen(kWithoutPaidPlan);
  const EditorId editor = openAndType();
  world.test.presenter.scriptedAnswers.push_back(Answer::defaultButton);
  world.saveAndClose(editor);
  EXPECT_FALSE(world.host.isOpen(editor));
  EXPECT_EQ(world.store.find("one")->summary(), "Renamed");
}

TEST_F(Licence, AnAnswerForAClosedWindowReachesNobody) {
  storeMeetingThen(kWithoutPaidPlan);
  const EditorId editor = openAndType();
  world.saveAndClose(editor);
  world.abandon(editor);
  const EditorId other = openAndType();
  world.test.presenter.answerAlert(0, Answer::defaultButton);
  world.settle();
  EXPECT_THAT(world.client->requestNames(), IsEmpty());
  expectNothingLost(other);
}

TEST_F(Licence, APlanAsksOnlyAboutMeetingsThatAreTooLongForIt) {
  const struct {
    const char* name;
    int userType;
    double minutes;
    bool isSilenced;
    bool asks;
  } rows[] = {
      {"at the limit", kWithoutPaidPlan, 40, false, false},
      {"beyond the limit", kWithoutPaidPlan, 41, false, true},
      {"a whole day", kWithoutPaidPlan, 1440, false, true},
      {"beyond, but the user wants no such notice", kWithoutPaidPlan, 41, true, false},
      {"beyond, with a paid plan", kPaid, 41, false, false},
  };
  storeMeetingThen(kPaid);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    becomes(row.userType);
    Value text = Value::array();
    text.append(row.isSilenced ? R"({"notShowMeAgain": true, "notShowUpgradeMessageAgain": true})"
                               : R"({"notShowMeAgain": true})");
    writePropertyList(text, world.test.surroundings.documentsDirectory() + "/VornOutlookPlugin/" +
                                world.service.account().userId + ".txt");
    world.test.presenter.alerts.clear();
    const EditorId editor = openAndType();
    constexpr double start = 1795514400;
    world.host.typeTimes(editor, start, start + row.minutes * 60);
    world.saveAndClose(editor);
    EXPECT_THAT(world.test.presenter.alerts, SizeIs(row.asks ? 1 : 0));
    EXPECT_EQ(world.host.isOpen(editor), row.asks);
    if (row.asks) world.abandon(editor);
  }
}

// The three answers to the host, and any other, which also stops it, for each of its four ways to save.
TEST(SaveContract, TheHostGoesOnOnlyWhenItIsToldTo) {
  enum Outcome { passOn, blocked, notice, errorCode };
  const struct {
    const char* selector;
    Arguments arguments;
    bool givesResult;
  } hooks[] = {
      {"save:", {Value()}, false},
      {"saveAndCloseWindow:", {true}, true},
      {"sendMeetingPostValidate", {}, false},
      {"saveAndCloseWindow:andReturnError:", {true, Value()}, true},
  };
  for (const bool hasAttendees : {false, true}) {
    for (const auto& hook : hooks) {
      for (const Outcome outcome : {passOn, blocked, notice, errorCode}) {
        SCOPED_TRACE(std::string(hook.selector) + (hasAttendees ? " with attendees, " : ", ") +
                     std::to_string(outcome));
        RoadWorld world(
            calendarWith(std::string(kAnHour) + (hasAttendees ? "ORGANIZER:mailto:me@vorn.example\r\n"
                                                                "ATTENDEE;CN=Ada:mailto:ada@vorn.example\r\n"
                                                              : "")));
        vornlab::Account account = world.service.account();
        account.type = outcome == notice ? kWithoutPaidPlan : kPaid;
        world.service.setAccount(account);
        const EditorId editor = world.openEditor("one");
        if (outcome != passOn) world.clickAdd(editor);
        world.host.typeSubject(editor, "Renamed");
        if (outcome == errorCode) {
          world.test.classRuntime.send(world.host.viewController(editor), "setIsCancelMode:", {true});
          world.quitClient();
        }
        const int storedBefore = world.host.storedCount();
        world.test.presenter.alerts.clear();
        const Value result =
            world.test.classRuntime.send(world.host.viewController(editor), hook.selector, hook.arguments);
        EXPECT_EQ(world.host.storedCount() - storedBefore, outcome == passOn ? 1 : 0);
        EXPECT_EQ(result.integerValue(), hook.givesResult && outcome != passOn ? -1 : 0);
        EXPECT_EQ(!world.test.presenter.alerts.empty(), outcome == notice || outcome == errorCode);
      }
    }
  }
}

}  // namespace
}  // namespace vorn
