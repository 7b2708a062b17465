#include "lab/outlook/OutlookHost.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "lab/host/HostSelectors.h"
#include "platform/embedded/VirtualRunLoop.h"

namespace vornlab {
namespace {

using vorn::Arguments;
using vorn::HostObject;
using vorn::Value;

constexpr const char* kReview = "weekly-product-review@calendar.example";
constexpr const char* kTalk = "supplier-talk@calendar.example";

class OutlookHostTest : public testing::Test {
 protected:
  void start(OutlookHost::Options options = {}, const char* file = "demo.ics") {
    IcsProblem problem;
    ASSERT_TRUE(store.load(std::string(LAB_CALENDARS "/") + file, problem)) << problem.message;
    before = store.text();
    host = std::make_unique<OutlookHost>(runtime, loop, center, options);
    host->defineClasses();
    host->open(store);
  }

  Value send(const HostObject& receiver, std::string_view selector, const Arguments& arguments = {}) {
    return runtime.send(receiver, selector, arguments);
  }

  CalendarEvent review() { return *store.find(kReview); }

  vorn::EmbeddedClassRuntime runtime;
  vorn::VirtualRunLoop loop;
  vorn::NotificationCenter center;
  CalendarStore store;
  std::string before;
  std::unique_ptr<OutlookHost> host;
};

TEST_F(OutlookHostTest, AnswersEverySelectorOfAHost) {
  start();
  for (const auto& [className, ofTheClass, selector, types] : hostSelectors()) {
    const vorn::ClassRef found = runtime.NSClassFromString(className);
    const vorn::MethodRef method = ofTheClass ? runtime.class_getClassMethod(found, selector)
                                              : runtime.class_getInstanceMethod(found, selector);
    EXPECT_TRUE(method) << className << " " << selector << " " << types;
  }
}

TEST_F(OutlookHostTest, SavingWithoutAChangeLeavesTheBytesAlone) {
  for (const auto& entry : std::filesystem::directory_iterator(LAB_CALENDARS)) {
    if (entry.path().extension() != ".ics") continue;
    SCOPED_TRACE(entry.path());
    start({}, entry.path().filename().c_str());
    for (std::size_t index = 0; index < store.eventCount(); ++index) {
      const auto editor = host->openEditorAt(index);
      const vorn::OptionalText html = store.eventAt(index).htmlDescription();
      EXPECT_TRUE(!html || host->body(editor) == *html) << index;
      host->save(editor);
      host->saveAndClose(editor);
      EXPECT_FALSE(host->isOpen(editor));
    }
    EXPECT_EQ(store.text(), before);
    EXPECT_EQ(host->storedCount(), static_cast<int>(2 * store.eventCount()))
        << "each save stores a record all the same";
  }
}

TEST_F(OutlookHostTest, AClosedWindowIsToldAndItsObjectsDieWhenTheCloseHasUnwound) {
  start();
  const auto editor = host->openEditor(kReview);
  const HostObject window = host->window(editor);
  const HostObject objects[] = {window, host->windowController(editor), host->viewController(editor),
                                host->event(editor), host->headerView(editor)};
  int told = 0;
  const auto subscription = center.observe(
      "NSWindowWillCloseNotification",
      [&](const auto& notification) {
        ++told;
        EXPECT_EQ(notification.userInfo["object"].object(), window);
        EXPECT_TRUE(host->isOpen(editor)) << "the editor is still there while it is told";
      },
      reinterpret_cast<const void*>(window.address()));
  host->saveAndClose(editor);
  EXPECT_EQ(told, 1);
  for (const HostObject& object : objects) EXPECT_TRUE(runtime.isAlive(object));
  send(objects[1], "close");
  EXPECT_EQ(told, 1) << "a second close does nothing";
  loop.runDue();
  for (const HostObject& object : objects) EXPECT_FALSE(runtime.isAlive(object));
  EXPECT_TRUE(send(objects[2], "content").isAbsent());
  host->typeSubject(editor, "too late");
  host->saveAndClose(editor);
  EXPECT_EQ(host->subject(editor), "");
}

TEST_F(OutlookHostTest, DatesAnswerInTheirOwnZone) {
  start();
  const HostObject event = host->event(host->openEditor(kReview));
  const Value begin = send(event, "startTime");
  const std::pair<const char*, Value> answers[] = {
      {"dateUTC", 1904889600}, {"hourOfDay", 10}, {"dayOfMonth", 13}, {"monthOfYear", 5}};
  for (const auto& [selector, answer] : answers) EXPECT_EQ(send(begin.object(), selector), answer) << selector;
  EXPECT_EQ(send(send(begin.object(), "timeZone").object(), "name"), "Europe/Berlin");
  EXPECT_EQ(send(send(event, "endTime").object(), "timeIntervalSinceDate:", {begin}), 3600);
  EXPECT_EQ(send(send(begin.object(), "dateByAddingTimeInterval:", {86400}).object(), "dayOfMonth"), 14);
}

TEST_F(OutlookHostTest, AnActOnTheCalendarNeedsACalendarAndKeepsTheZoneAndTheLength) {
  start();
  const double begin = review().start()->seconds;
  EXPECT_FALSE(host->drag(kReview, "", begin)) << "there is no calendar on the screen yet";
  host->openMainWindow();
  EXPECT_TRUE(host->drag(kReview, "", begin + 7200));
  EXPECT_EQ(review().end()->seconds, begin + 7200 + 3600);
  EXPECT_EQ(review().start()->zone, "Europe/Berlin");
  for (const char* unknown : {"nobody", ""}) {
    EXPECT_FALSE(host->drag(unknown, "", begin));
    EXPECT_FALSE(host->deleteFromCalendar(unknown, ""));
    EXPECT_FALSE(host->cancelMeeting(unknown, ""));
  }
  EXPECT_TRUE(host->cancelMeeting(kTalk, ""));
  EXPECT_EQ(host->sentCount(), 1);
}

TEST_F(OutlookHostTest, AnOpenItemOfASeriesCanSwitchToItsSeries) {
  for (const bool byMenu : {true, false}) {
    start({}, "series.ics");
    const auto editor = host->openEditor("series@calendar.example", "20300401T090000");
    host->typeSubject(editor, "Dropped");
    host->answerSeriesQuestion(editor, 0);
    EXPECT_EQ(host->subject(editor), "Dropped");
    byMenu ? host->switchToSeries(editor) : host->answerSeriesQuestion(editor, 1);
    EXPECT_EQ(host->subject(editor), "Planning");
    EXPECT_FALSE(host->isDirty(editor));
    loop.runDue();
    host->typeSubject(editor, "Planning, all of it");
    host->saveAndClose(editor);
    loop.runDue();
    EXPECT_EQ(store.find("series@calendar.example")->summary(), "Planning, all of it");
    EXPECT_EQ(store.find("series@calendar.example", "20300401T090000")->summary(), "Planning (moved)");
  }
}

}  // namespace
}  // namespace vornlab
