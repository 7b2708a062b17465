// The host in real windows, as a person uses it: by the mouse, by keys and by buttons. One laboratory serves all
// tests, for there is one in a process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#import "lab/desktop/CalendarPane.h"
#include "lab/desktop/DesktopSession.h"
#include "lab/desktop/WeekPlan.h"

namespace vornlab {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double kHour = 3600;
constexpr double kHourHeight = 48;
// Monday the 18th of March 2030, 9 o'clock UTC.
constexpr double kNine = 1900054800;

CalendarStore& calendar() {
  static CalendarStore store;
  return store;
}

std::string& worldFolder() {
  static std::string folder;
  return folder;
}

std::unique_ptr<DesktopSession>& runningSession() {
  static std::unique_ptr<DesktopSession> running;
  return running;
}

DesktopSession& session() {
  std::unique_ptr<DesktopSession>& running = runningSession();
  if (running) return *running;
  DesktopSession::beginApplication();
  LabOptions options;
  options.programs = VORNLAB_PROGRAMS;
  options.world = worldFolder();
  options.panelIsOff = false;
  running = std::make_unique<DesktopSession>(options, calendar(), "");
  return *running;
}

std::string eventText(const std::string& uid, const std::string& properties) {
  return "BEGIN:VEVENT\r\nUID:" + uid + "\r\n" + properties + "END:VEVENT\r\n";
}

class Desk : public testing::Test {
 protected:
  ~Desk() override {
    session().closeEditors();
    session().passTime(0.05);
  }

  void load(const std::string& events) {
    IcsProblem problem;
    ASSERT_TRUE(calendar().loadText("BEGIN:VCALENDAR\r\n" + events + "END:VCALENDAR\r\n", problem))
        << problem.message;
    session();
    calendarHasChanged();
    [week() showWeekOf:kNine];
  }
  vnWeekView* week() { return [shownPane() week]; }
  CalendarEvent event(const std::string& uid) { return *calendar().find(uid); }
  std::string summary(const std::string& uid) { return event(uid).summary().value_or(""); }

  // Where an hour of a day of the week is drawn.
  NSPoint at(int day, double hour) {
    const NSRect bounds = [week() bounds];
    const double width = (bounds.size.width - 62) / 7;
    return NSMakePoint(62 + (day + 0.5) * width, bounds.size.height - (24 - hour) * kHourHeight + 4);
  }
  NSEvent* mouse(NSEventType type, NSPoint point, int clicks = 1) {
    return [NSEvent mouseEventWithType:type
                              location:[week() convertPoint:point toView:nil]
                         modifierFlags:0
                             timestamp:0
                          windowNumber:[[week() window] windowNumber]
                               context:nil
                           eventNumber:0
                            clickCount:clicks
                              pressure:1];
  }
  void click(NSPoint point, int clicks = 1) {
    [week() mouseDown:mouse(NSLeftMouseDown, point, clicks)];
    [week() mouseUp:mouse(NSLeftMouseUp, point, clicks)];
  }
  void drag(NSPoint from, NSPoint to) {
    [week() mouseDown:mouse(NSLeftMouseDown, from)];
    [week() mouseDragged:mouse(NSLeftMouseDragged, to)];
    [week() mouseUp:mouse(NSLeftMouseUp, to)];
  }
  void press(unichar key) {
    NSString* text = [NSString stringWithCharacters:&key length:1];
    [week() keyDown:[NSEvent keyEventWithType:NSKeyDown
                                           location:NSZeroPoint
                                      modifierFlags:0
                                          timestamp:0
                                       windowNumber:[[week() window] windowNumber]
                                            context:nil
                                         characters:text
                        charactersIgnoringModifiers:text
                                          isARepeat:NO
                                            keyCode:0]];
  }

  Pool pool;
};

const char* const kBerlin =
    "DTSTART;TZID=Europe/Berlin:20300330T100000\r\nDTEND;TZID=Europe/Berlin:20300330T110000\r\n";
const char* const kPlain = "DTSTART:20300318T090000Z\r\nDTEND:20300318T100000Z\r\nSUMMARY:Plain\r\n";

TEST_F(Desk, WhatIsDraggedKeepsItsTimeWhenTheClockIsPutForward) {
  load(eventText("a", kBerlin));
  // Its own Monday comes before the night in question, which is the one to Sunday.
  [week() showWeekOf:event("a").start()->seconds];
  const double before = event("a").start()->seconds;
  drag(at(5, 10), at(6, 12));
  EXPECT_EQ(event("a").start()->seconds, before + 25 * kHour);
  EXPECT_EQ(event("a").end()->seconds, before + 26 * kHour);
}

TEST_F(Desk, AnAppointmentIsDraggedResizedAndDeletedWithTheMouse) {
  load(eventText("a", kPlain) + eventText("b", kPlain));
  // They share their time, and so the width of the day; the second stands on the right.
  drag(NSMakePoint(at(0, 9).x + 30, at(0, 9).y), NSMakePoint(at(2, 9).x + 30, at(2, 10.5).y));
  EXPECT_EQ(event("a").start()->seconds, kNine);
  EXPECT_EQ(event("b").start()->seconds, kNine + 49.5 * kHour);
  drag(NSMakePoint(at(0, 9).x, at(0, 10).y - 7), NSMakePoint(at(0, 9).x, at(0, 11).y - 7));
  EXPECT_EQ(event("a").end()->seconds, kNine + 2 * kHour);
  click(at(0, 9));
  press(NSDeleteCharacter);
  EXPECT_FALSE(calendar().find("a"));
}

TEST_F(Desk, ANameThatIsBeingTypedIsKeptByAClickElsewhereAndDroppedByEscape) {
  load(eventText("a", kPlain));
  const auto type = [&](NSString* text) {
    click(at(0, 9));
    press(NSCarriageReturnCharacter);
    NSTextView* editor = static_cast<NSTextView*>(static_cast<id>([[week() window] firstResponder]));
    ASSERT_TRUE([editor isKindOfClass:[NSTextView class]]);
    [editor insertText:text];
  };
  type(@"Café");
  click(at(4, 15));
  EXPECT_EQ(summary("a"), "Café");
  type(@"Nobody");
  [static_cast<NSTextView*>(static_cast<id>([[week() window] firstResponder]))
      doCommandBySelector:@selector(cancelOperation:)];
  click(at(4, 15));
  EXPECT_EQ(summary("a"), "Café");
  type(@"Another week");
  [week() nextWeek:nil];
  EXPECT_EQ(summary("a"), "Another week");
}

TEST_F(Desk, TheDatesOfASeriesAreSeenAndMoveNothing) {
  load(eventText("a", std::string(kPlain) + "RRULE:FREQ=DAILY\r\n"));
  drag(at(3, 9), at(4, 11));
  click(at(3, 9));
  press(NSDeleteCharacter);
  ASSERT_TRUE(calendar().find("a"));
  EXPECT_EQ(event("a").start()->seconds, kNine);
  click(at(3, 9), 2);
  EXPECT_EQ([[ERCalendarEventEditorWindowController openControllers] count], 1u);
}

}  // namespace
}  // namespace vornlab

// The program starts itself anew in a world of its own, which goes at the end.
int main(int argc, char** argv) {
  vornlab::worldFolder() = vornlab::enterOwnWorld(argv).string();
  testing::InitGoogleTest(&argc, argv);
  const vornlab::Pool pool;
  const int result = RUN_ALL_TESTS();
  vornlab::runningSession().reset();
  std::filesystem::remove_all(vornlab::worldFolder());
  return result;
}
