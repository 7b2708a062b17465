#include <functional>
#include <stdexcept>

#include "tests/workflow/MeetingFixture.h"

namespace vorn {
namespace {

using testing::ElementsAre;

constexpr const char* kAddedPrefix = "vn_ERCalendarEventEditorViewController_";

// What the host is told when the work behind a save is over.
class Finish : public WorkflowFixture {
 protected:
  Finish() {
    for (const char* selector : {"save", "save:", "saveAndCloseWindow:", "saveAndCloseWindow:andReturnError:",
                                 "sendMeetingPostValidate"}) {
      hostDoes(selector, [] {});
    }
    test.classRuntime.setInstanceMethod("ERCalendarEventEditorWindowController", "close",
                                        [this](const HostObject&, const Arguments&) {
                                          calls.push_back("close");
                                          return Value();
                                        });
  }

  void hostDoes(const std::string& selector, const std::function<void()>& effect) {
    test.classRuntime.setInstanceMethod("ERCalendarEventEditorViewController", kAddedPrefix + selector,
                                        [this, selector, effect](const HostObject&, const Arguments& arguments) {
                                          const bool isTrue = !arguments.empty() && arguments[0].boolValue();
                                          calls.push_back(isTrue ? selector + " true" : selector);
                                          effect();
                                          return Value();
                                        });
  }

  void finish(FakeWindow& window, int action) {
    window.bar->action = action;
    window.manager->finish().closeOLAppointment(window.bar->editor);
    test.runLoop.runFor(0.005);
  }

  std::vector<std::string> calls;
};

TEST_F(Finish, AWindowThatTheHostsOwnSaveHasClosedIsNotClosedAgain) {
  FakeWindow window(test);
  hostDoes("saveAndCloseWindow:", [&] { window.bar->windowController = {}; });
  finish(window, VnApptActionSaveAndClose);
  EXPECT_THAT(calls, ElementsAre("saveAndCloseWindow: true"));
}

// The other account may not be able to store what the body was written in.
TEST_F(Finish, ABodyTakesTheFormOfTheAccountThatItIsClosedOrSentFrom) {
  const struct {
    int action;
    bool hasAttendees, fromChanged, isPlainAccount;
    const char* format;
  } rows[] = {
      {VnApptActionSaveAndClose, false, true, false, "switchToHTMLText"},
      {VnApptActionSaveAndClose, false, true, true, "switchToPlainText"},
      {VnApptActionSaveAndClose, false, false, true, ""},
      {VnApptActionSaveAndCloseReturnError, false, true, true, "switchToPlainText"},
      {VnApptActionSend, true, true, true, "switchToPlainText"},
      {VnApptActionSave, false, true, true, ""},
      {VnApptActionAutoUpdate, false, true, true, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.action);
    FakeWindow window(test);
    window.sendFrom("me@vorn.example", false);
    window.set(window.get(window.bar->event, "account").object(), "shouldDisableCalendarHTMLBodyForAccount",
               row.isPlainAccount);
    if (row.hasAttendees) window.invite("ada", 1);
    window.bar->fromChanged = row.fromChanged;
    finish(window, row.action);
    EXPECT_EQ(window.bodySwitch(), row.format);
  }
}

TEST_F(Finish, WhatADelayedStepNeedsOfTheHostLivesUntilThen) {
  FakeWindow window(test);
  window.bar->action = VnApptActionSaveAndClose;
  window.manager->finish().scheduleCloseOLAppointment(window.bar->editor);
  test.classRuntime.destroy(window.bar->editor);
  hostDoes("saveAndCloseWindow:",
           [&] { test.runLoop.post([&] { test.classRuntime.destroy(window.bar->windowController); }); });
  test.runLoop.runFor(0.005);
  EXPECT_THAT(calls, ElementsAre("saveAndCloseWindow: true", "close"));
  EXPECT_FALSE(test.classRuntime.isAlive(window.bar->editor));
  EXPECT_FALSE(test.classRuntime.isAlive(window.bar->windowController));
}

TEST_F(Finish, ASaveThatRaisesInTheHostLeavesTheWindowOpen) {
  const std::pair<int, const char*> closing[] = {
      {VnApptActionSaveAndClose, "saveAndCloseWindow:"},
      {VnApptActionSaveAndCloseReturnError, "saveAndCloseWindow:andReturnError:"}};
  for (const auto& [action, selector] : closing) {
    FakeWindow window(test);
    hostDoes(selector, [] { throw std::runtime_error("host"); });
    calls.clear();
    finish(window, action);
    EXPECT_THAT(calls, ElementsAre(std::string(selector) + " true"));
  }
}

TEST_F(Finish, ADragThatIsOverForgetsItsAppointmentAndAWindowThatHasGoneNothing) {
  FakeWindow window(test);
  for (const bool isDrag : {false, true}) {
    window.manager->meetingDataMgr()->setMeetingKey("77");
    window.manager->setIsDragAndMove(isDrag);
    window.manager->finish().scheduleCloseOLAppointment({});
    test.runLoop.runFor(0.005);
    EXPECT_EQ(window.manager->meetingKey(), isDrag ? "" : "77");
  }
  EXPECT_FALSE(window.manager->isDragAndMove());
  window.bar->action = VnApptActionSave;
  window.manager->finish().scheduleCloseOLAppointment(window.bar->editor);
  window.manager->cleanup();
  test.runLoop.runFor(0.005);
  EXPECT_THAT(calls, testing::IsEmpty());
}

}  // namespace
}  // namespace vorn
