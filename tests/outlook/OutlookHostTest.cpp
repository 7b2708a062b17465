#include "lab/outlook/OutlookHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

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

  // Puts a function in front of a method, as a plug-in does. The function gets the receiver and the host's own
  // answer.
  void hook(vorn::ClassRef target, const std::string& selector,
            std::function<Value(const HostObject&, const std::function<Value()>&)> replacement) {
    const std::string added = "test_" + selector;
    runtime.class_addMethod(
        target, added,
        [this, added, replacement](const HostObject& self, const Arguments& arguments) {
          return replacement(self, [&] { return runtime.send(self, added, arguments); });
        },
        "");
    runtime.method_exchangeImplementations(runtime.class_getInstanceMethod(target, selector),
                                           runtime.class_getInstanceMethod(target, added));
  }

  HostObject application() {
    return send(runtime.classObject(runtime.NSClassFromString("NSApplication")), "sharedApplication").object();
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

TEST_F(OutlookHostTest, TypedValuesWaitUntilASaveMergesThem) {
  start();
  EXPECT_EQ(host->openEditor("nobody"), 0U);
  const auto editor = host->openEditor(kReview);
  EXPECT_FALSE(host->isDirty(editor));
  EXPECT_TRUE(host->body(editor).starts_with("<html><head>"));
  EXPECT_NE(host->body(editor).find("Agenda:<br>"), std::string::npos);
  host->typeSubject(editor, "");
  EXPECT_TRUE(send(host->viewController(editor), "uncommittedChanges")["content.summary"].isNull());
  host->save(editor);
  EXPECT_EQ(review().summary(), "");
  const std::string emptied = store.text();
  host->typeSubject(editor, "New subject");
  host->typeLocation(editor, "Here; and there");
  host->typeBody(editor, "<html><body><p>One</p><p>Two</p></body></html>");
  EXPECT_TRUE(host->isDirty(editor));
  EXPECT_EQ(store.text(), emptied);
  const Value changes = send(host->viewController(editor), "uncommittedChanges");
  EXPECT_EQ(changes["content.summary"], "New subject");
  EXPECT_EQ(changes["content.location"], "Here; and there");
  EXPECT_TRUE(changes.contains("content.body"));
  EXPECT_EQ(send(host->event(editor), "summary"), "") << "the event does not know yet";

  host->save(editor);
  EXPECT_FALSE(host->isDirty(editor));
  EXPECT_EQ(send(host->viewController(editor), "uncommittedChanges").count(), 0U);
  EXPECT_EQ(review().summary(), "New subject");
  EXPECT_EQ(review().location(), "Here; and there");
  EXPECT_EQ(review().description(), "One\nTwo");
  EXPECT_EQ(review().htmlDescription(), "<html><body><p>One</p><p>Two</p></body></html>");
}

TEST_F(OutlookHostTest, AHeaderIsBuiltWithInitWithFrameAndHoldsWhatAHookPutsIn) {
  const std::pair<const char*, const char*> headers[] = {
      {"OLCalendarHeaderContainerView", "OLAttachmentsAcceptingView"},
      {"OLAutoLayoutAttachmentsAcceptingView", "OLAutoLayoutAttachmentsAcceptingView"}};
  for (const auto& [name, owner] : headers) {
    const std::string header = name;
    SCOPED_TRACE(header);
    OutlookHost::Options options;
    options.headerViewClass = header;
    start(options);
    const auto make = [this](const char* name, const char* superclass) {
      const Value frame = Value::dictionaryFromPairs({{"x", 460}, {"y", 13}, {"width", 400}, {"height", 30}});
      return runtime.instantiate(runtime.defineClass(name, superclass), "initWithFrame:", {frame});
    };
    hook(runtime.NSClassFromString(owner), "initWithFrame:", [&](const HostObject& self, const auto& forward) {
      const Value made = forward();
      if (runtime.className(self) == header) {
        send(made.object(), "addSubview:", {make("vnActionAdditionView", "NSView")});
      }
      return made;
    });
    const auto editor = host->openEditor(kReview);
    const HostObject bar = host->barView(editor);
    ASSERT_TRUE(bar);
    EXPECT_EQ(send(bar, "superview").object(), host->headerView(editor));
    EXPECT_EQ(send(send(bar, "window").object(), "windowController").object(), host->windowController(editor));
    EXPECT_EQ(send(bar, "frame")["width"], 400);
    EXPECT_FALSE(host->clickBar(editor, "onClickNothing:"));
    HostObject sender;
    runtime.setInstanceMethod("vnActionAdditionView",
                              "onClickAddVornMeeting:", [&](const HostObject&, const Arguments& arguments) {
                                sender = arguments.at(0).object();
                                return Value();
                              });
    const HostObject button = make("NSButton", "NSView");
    send(button, "setTarget:", {bar});
    send(button, "setAction:", {"onClickAddVornMeeting:"});
    send(bar, "addSubview:", {button});
    for (const bool isHidden : {true, false}) {
      send(button, "setHidden:", {isHidden});
      send(button, "setEnabled:", {isHidden});
      EXPECT_FALSE(host->clickBar(editor, "onClickAddVornMeeting:"));
    }
    send(button, "setEnabled:", {true});
    EXPECT_TRUE(host->clickBar(editor, "onClickAddVornMeeting:"));
    EXPECT_EQ(sender, button);
  }
}

TEST_F(OutlookHostTest, EveryWayToOpenAnEditorPassesTheClassMethodThatHooksWatch) {
  start();
  std::vector<std::string> opened;
  const auto windows = runtime.objc_getMetaClass("ERCalendarEventEditorWindowController");
  for (const std::string selector : {"showWindowForEvent:", "showWindowForMeeting:"}) {
    hook(windows, selector, [&opened, selector](const HostObject&, const auto& forward) {
      opened.push_back(selector);
      return forward();
    });
  }
  host->openEditor(kReview);
  host->openEditor(kTalk);
  host->openNew(0);
  EXPECT_EQ(opened,
            (std::vector<std::string>{"showWindowForEvent:", "showWindowForMeeting:", "showWindowForEvent:"}));
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

TEST_F(OutlookHostTest, AnAppointmentOfSomebodyElseIsNotOnesOwn) {
  const std::tuple<const char*, const char*, bool> cases[] = {{"", kTalk, true},
                                                              {"MARA.lindt@calendar.example", kTalk, true},
                                                              {"jonas.weber@calendar.example", kTalk, false},
                                                              {"jonas.weber@calendar.example", kReview, true}};
  for (const auto& [user, uid, isOwner] : cases) {
    OutlookHost::Options options;
    options.userAddress = user;
    start(options);
    EXPECT_EQ(send(host->event(host->openEditor(uid)), "isOwner").boolValue(), isOwner) << user;
  }
}

TEST_F(OutlookHostTest, APlainTextBodyTakesTheHtmlOut) {
  start();
  const char* uid = "interview@calendar.example";
  const auto editor = host->openEditor(uid);
  host->typeBody(editor, "<html><body>Plain &amp; simple</body></html>");
  const HostObject plain = send(host->viewController(editor), "content").object();
  send(plain, "setIsBodyHTML:", {false});
  host->save(editor);
  EXPECT_EQ(store.find(uid)->description(), "Plain & simple");
  EXPECT_FALSE(store.find(uid)->htmlDescription());
}

TEST_F(OutlookHostTest, ADeletedEventIsGoneAndCannotBeStored) {
  start();
  const auto editor = host->openEditor(kReview);
  EXPECT_TRUE(send(host->event(editor), "deleteEventNow").boolValue());
  EXPECT_FALSE(store.find(kReview));
  host->typeSubject(editor, "Late");
  host->saveAndClose(editor);
  EXPECT_TRUE(host->isOpen(editor)) << "nothing was stored, so nothing may be lost";
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

TEST_F(OutlookHostTest, AnActThatIsTakenOverChangesNothing) {
  start();
  host->openMainWindow();
  const auto wrapper = runtime.NSClassFromString("OLCalendarGridViewWrapper");
  const auto takeOver = [](const HostObject&, const auto&) { return Value(true); };
  hook(wrapper, "performDragFrom:to:forDate:inProgress:", takeOver);
  hook(wrapper, "subjectChanged:forEvent:andTileView:", takeOver);
  hook(runtime.NSClassFromString("ECCalendarEvent"), "deleteEventNow",
       [](const HostObject&, const auto&) { return Value(false); });
  EXPECT_FALSE(host->drag(kReview, "", 0));
  EXPECT_FALSE(host->rename(kReview, "", "Other"));
  EXPECT_FALSE(host->deleteFromCalendar(kReview, ""));
  EXPECT_EQ(store.text(), before);
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

TEST_F(OutlookHostTest, AttendeesHearOfWhatTheTextOfChangesNamesAndSendingStoresAndCloses) {
  start();
  const auto editor = host->openEditor(kTalk);
  EXPECT_TRUE(host->hasAttendees(editor));
  EXPECT_FALSE(host->findsChangesForAttendees(editor));
  EXPECT_FALSE(send(host->event(editor), "recurrence").object()) << "a single appointment";
  host->typeSubject(editor, "Other");
  EXPECT_TRUE(host->findsChangesForAttendees(editor));
  host->send(editor);
  EXPECT_EQ(host->sentCount(), 1);
  EXPECT_FALSE(host->isOpen(editor));
  EXPECT_EQ(store.find(kTalk)->summary(), "Other");
}

TEST_F(OutlookHostTest, TheToolbarTakesWhatItsDelegateMakes) {
  start();
  host->openMainWindow();
  const std::vector<std::string> shown = host->toolbarItems();
  EXPECT_EQ(shown, OutlookHost::Options().toolbar);
  const HostObject toolbar = send(send(application(), "windows").at(0).object(), "toolbar").object();
  for (const std::int64_t index : {0, 4, -1}) {
    send(toolbar, "insertItemWithItemIdentifier:atIndex:", {"NotOurs", index});
    send(toolbar, "insertItemWithItemIdentifier:atIndex:", {"NSToolbarSpaceItem", index});
  }
  EXPECT_EQ(host->toolbarItems().size(), shown.size() + 2) << "nothing unknown, and nothing beyond the end";
  send(send(application(), "delegate").object(), "newCalendarMeeting:", {Value(nullptr)});
  EXPECT_EQ(host->editors().size(), 1U);
}

TEST_F(OutlookHostTest, TheMainWindowIsAmongTheWindowsOfTheApplication) {
  start();
  host->openMainWindow();
  host->openEditor(kReview);
  const Value windows = send(application(), "windows");
  ASSERT_EQ(windows.count(), 2U);
  const HostObject main = send(windows.at(0).object(), "windowController").object();
  EXPECT_TRUE(runtime.isKindOf(main, runtime.NSClassFromString("ERageMainWindowController")));
  host->closeMainWindow();
  loop.runDue();
  EXPECT_EQ(send(application(), "windows").count(), 1U);
  EXPECT_FALSE(runtime.isAlive(main));
}

}  // namespace
}  // namespace vornlab
