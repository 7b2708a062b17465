// The host in real windows, as a person uses it: by the mouse, by keys and by buttons. One laboratory serves all
// tests, for there is one in a process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#import "lab/desktop/CalendarPane.h"
#include "lab/desktop/DesktopSession.h"
#import "lab/desktop/EditorForm.h"
#include "lab/desktop/JournalTail.h"
#import "lab/desktop/OwnAlert.h"
#include "lab/desktop/OwnPasteboard.h"
#import "lab/desktop/Questions.h"
#import "lab/desktop/RealHand.h"
#include "lab/desktop/WeekPlan.h"

// A person who waits for the next question, and presses a button.
@interface vnAnswerer : NSObject {
 @public
  // Nil for whatever there is.
  NSString* m_button;
  // Pressed in place of a button; 0 for none.
  unichar m_key;
  std::string* m_asked;
  BOOL m_isPressing;
}
- (void)look:(NSTimer*)timer;
@end

@implementation vnAnswerer
- (void)look:(NSTimer*)timer {
  NSWindow* asking = [NSApp modalWindow];
  // A press runs the loop, and this with it, while the button is drawn as pressed.
  if (!asking || m_isPressing) return;
  std::vector<NSView*> views{[asking contentView]};
  NSButton* wanted = nil;
  std::string said;
  for (std::size_t i = 0; i < views.size(); ++i) {
    NSView* view = views[i];
    NSEnumerator* below = [[view subviews] objectEnumerator];
    while (NSView* each = [below nextObject]) views.push_back(each);
    if ([view isHiddenOrHasHiddenAncestor]) continue;
    if ([view isKindOfClass:[NSButton class]]) {
      NSButton* button = static_cast<NSButton*>(static_cast<id>(view));
      if (!m_button || [[button title] isEqual:m_button]) wanted = button;
    } else if ([view isKindOfClass:[NSTextField class]]) {
      said += vornlab::plainText([static_cast<NSTextField*>(static_cast<id>(view)) stringValue]) + "\n";
    }
  }
  if (!wanted) return;
  (void)timer;
  if (m_asked->empty()) *m_asked = said;
  m_isPressing = YES;
  if (m_key != 0) {
    vornlab::pressKey(asking, m_key);
  } else if (!vornlab::clickOn(wanted)) {
    [wanted performClick:nil];
  }
  m_isPressing = NO;
  // The question's loop looks at its answer after the next event only, and a mouse would have made one.
  vornlab::wakeLoop();
}
@end

@interface vnAlertListener : NSObject {
 @public
  NSInteger m_code;
  id m_alert;
}
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context;
@end

@implementation vnAlertListener
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context {
  m_code = context == self ? code : 0;
  m_alert = alert;
}
@end

namespace vornlab {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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
  useOwnPasteboards();
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
    return NSMakePoint(62 + (day + 0.5) * width, bounds.size.height - (24 - hour) * kHourHeight + 10);
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

  // Does it, with that answer to the question that comes, and gives what was asked.
  static std::string answering(NSString* button, const std::function<void()>& act, unichar key = 0) {
    vnAnswerer* person = [[[vnAnswerer alloc] init] autorelease];
    person->m_button = button;
    person->m_key = key;
    std::string asked;
    person->m_asked = &asked;
    NSTimer* timer = [NSTimer timerWithTimeInterval:0.02
                                             target:person
                                           selector:@selector(look:)
                                           userInfo:nil
                                            repeats:YES];
    for (NSString* mode : {NSDefaultRunLoopMode, NSModalPanelRunLoopMode})
      [[NSRunLoop currentRunLoop] addTimer:timer forMode:mode];
    act();
    [timer invalidate];
    return asked;
  }

  // Opens its editor, and waits until the plug-in has looked at it.
  ERCalendarEventEditorWindowController* openEditor(const std::string& uid) {
    const CalendarEvent shown = event(uid);
    session().openEditor(&shown);
    EXPECT_TRUE(session().waitForQuiet());
    return [[ERCalendarEventEditorWindowController openControllers] lastObject];
  }
  static std::size_t editors() { return [[ERCalendarEventEditorWindowController openControllers] count]; }
  // Of those with that text, the last one. Nil for none.
  static NSTextField* fieldWith(NSView* view, NSString* text) {
    NSTextField* found = nil;
    if ([view isKindOfClass:[NSTextField class]] &&
        [[static_cast<NSTextField*>(static_cast<id>(view)) stringValue] isEqual:text])
      found = static_cast<NSTextField*>(static_cast<id>(view));
    NSEnumerator* below = [[view subviews] objectEnumerator];
    while (NSView* each = [below nextObject]) {
      if (NSTextField* inside = fieldWith(each, text)) found = inside;
    }
    return found;
  }
  void typeInto(NSWindow* window, NSString* before, NSString* text) {
    [window makeFirstResponder:fieldWith([window contentView], before)];
    NSTextView* editor = static_cast<NSTextView*>(static_cast<id>([window firstResponder]));
    [editor selectAll:nil];
    [editor insertText:text];
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
  // Its edges, of which none passes the other.
  drag(NSMakePoint(at(0, 9).x, at(0, 10).y - 13), NSMakePoint(at(0, 9).x, at(0, 11).y - 13));
  EXPECT_EQ(event("a").end()->seconds, kNine + 2 * kHour);
  drag(NSMakePoint(at(0, 9).x, at(0, 9).y - 7), NSMakePoint(at(0, 9).x, at(0, 9.5).y - 7));
  EXPECT_EQ(event("a").start()->seconds, kNine + kHour / 2);
  drag(NSMakePoint(at(0, 9).x, at(0, 9.5).y - 7), NSMakePoint(at(0, 9).x, at(0, 15).y - 7));
  EXPECT_EQ(event("a").start()->seconds, kNine + 1.75 * kHour);
  EXPECT_EQ(event("a").end()->seconds, kNine + 2 * kHour);
  click(NSMakePoint(at(0, 9).x, at(0, 10.75).y - 5));
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

TEST_F(Desk, AnEmptyCalendarStaysInTheWeekThatWasLookedAtOrElseShowsThatOfItsFirstAppointment) {
  load("");
  vnWeekView* untouched = [[[vnWeekView alloc] initWithController:nil] autorelease];
  [week() nextWeek:nil];
  NSString* before = [week() title];
  [week() reload];
  EXPECT_EQ(plainText([week() title]), plainText(before));
  load(eventText("a", kPlain));
  [untouched reload];
  EXPECT_EQ(plainText([untouched title]), plainText([week() title]));
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

TEST_F(Desk, AnEditorWithChangesAsksBeforeItCloses) {
  load(eventText("a", kPlain));
  const struct {
    NSString* button;
    const char* left;
    std::size_t open;
  } answers[] = {{@"Cancel", "Plain", 1}, {@"Don’t Save", "Plain", 0}, {@"Save", "Mine", 0}};
  for (const auto& each : answers) {
    NSWindow* window = [openEditor("a") window];
    typeInto(window, @"Plain", @"Mine");
    const std::string asked = answering(each.button, [&] { [window performClose:nil]; });
    EXPECT_THAT(asked, HasSubstr("“Mine” has changes"));
    session().waitUntil([&] { return editors() == each.open; }, 5);
    EXPECT_EQ(editors(), each.open) << [each.button UTF8String];
    EXPECT_EQ(summary("a"), each.left);
    session().closeEditors();
  }
  [[openEditor("a") window] performClose:nil];
  EXPECT_EQ(editors(), 0u) << "nothing to ask about";
}

TEST_F(Desk, AQuestionHasAnyNumberOfButtonsASwitchAndKeys) {
  session();
  // Two of them do not stand beside each other.
  NSString* const longOne = @"Keep the meeting at the service and take it off this calendar alone";
  constexpr unichar escape = 0x1b;
  const struct {
    NSArray* buttons;
    // Nil for a key.
    NSString* pressed;
    unichar key;
    NSInteger code;
  } rows[] = {
      {[NSArray arrayWithObjects:@"Save", @"Save As…", @"Cancel", @"Don’t Save", nil], @"Don’t Save", 0, 1003},
      {[NSArray arrayWithObjects:@"Save", @"Cancel", @"Don’t Save", nil], nil, escape, 1001},
      {[NSArray arrayWithObjects:@"Yes", @"No", nil], nil, escape, 1001},
      {[NSArray arrayWithObjects:@"Yes", @"No", nil], nil, NSCarriageReturnCharacter, 1000},
      {[NSArray arrayWithObjects:longOne, @"2", longOne, @"4", @"5", nil], @"4", 0, 1003},
      {[NSArray array], @"OK", 0, 1000}};
  for (const bool isSheet : {false, true}) {
    for (const auto& row : rows) {
      vnOwnAlert* alert = static_cast<vnOwnAlert*>([[[NSAlert alloc] init] autorelease]);
      [alert setMessageText:[@"" stringByPaddingToLength:10000 withString:@"Title " startingAtIndex:0]];
      [alert setInformativeText:[@"" stringByPaddingToLength:10000 withString:@"reasons " startingAtIndex:0]];
      [alert setShowsSuppressionButton:YES];
      NSEnumerator* titles = [row.buttons objectEnumerator];
      while (NSString* title = [titles nextObject]) [alert addButtonWithTitle:title];
      vnAlertListener* listener = [[[vnAlertListener alloc] init] autorelease];
      const std::string asked = answering(
          row.pressed,
          [&] {
            if (!isSheet) {
              listener->m_code = [alert runModal];
            } else {
              [alert beginSheetModalForWindow:session().mainWindow()
                                modalDelegate:listener
                               didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                                  contextInfo:listener];
            }
          },
          row.key);
      EXPECT_EQ(listener->m_code, row.code) << [[row.buttons description] UTF8String];
      EXPECT_EQ(listener->m_alert, isSheet ? alert : nil);
      EXPECT_THAT(asked, AllOf(HasSubstr("Title Title"), HasSubstr("reasons reasons")));
      const NSRect screen = [[NSScreen mainScreen] visibleFrame];
      EXPECT_TRUE(NSContainsRect(screen, [[alert window] frame]));
      NSView* const pressed[] = {[[alert buttons] objectAtIndex:0], [[alert buttons] lastObject],
                                 [alert suppressionButton]};
      for (NSView* button : pressed)
        EXPECT_TRUE(NSContainsRect([[[alert window] contentView] bounds], [button frame]));
      EXPECT_FALSE([[alert window] isVisible]);
    }
  }
  FilePerson::Answer answer = FilePerson::Answer::cancel;
  answering(@"Save As…", [&] { answer = FileQuestions().askAboutChanges(true); });
  EXPECT_EQ(answer, FilePerson::Answer::saveAs) << "a fourth button, and what it means";
}

TEST_F(Desk, TheEndWaitsForEditorsAndForWhoeverWantsToGoOn) {
  load(eventText("a", kPlain));
  typeInto([openEditor("a") window], @"Plain", @"Mine");
  const auto close = [&] { [session().mainWindow() performClose:nil]; };
  // Saved in the editor, then cancelled where the calendar is asked about.
  int questions = 0;
  close();
  answering(@"Save", [&] {
    session().run([&] {
      if (++questions == 1) close();
      return questions == 2;
    });
  });
  EXPECT_EQ(questions, 2);
  EXPECT_EQ(summary("a"), "Mine");
  EXPECT_EQ(editors(), 0u);
}

TEST_F(Desk, TheStartTakesTheEndAlongAndATimeThatCannotBeIsTold) {
  load(eventText("a", kPlain));
  NSWindow* window = [openEditor("a") window];
  const auto says = [&](NSString* words) { return fieldWith([window contentView], words) != nil; };
  const auto save = [&] {
    [shownButton([window contentView], @"Save") performClick:nil];
    session().passTime(0.2);
    return (event("a").start()->seconds - kNine) / kHour;
  };
  typeInto(window, @"2030-03-18 09:00", @"2030-03-19 12:30");
  [window makeFirstResponder:nil];
  EXPECT_TRUE(says(@"2030-03-19 13:30"));
  typeInto(window, @"2030-03-19 13:30", @"2030-03-17 08:00");
  EXPECT_EQ(save(), 0);
  EXPECT_TRUE(says(@"The end is before the start."));
  typeInto(window, @"2030-03-17 08:00", @"noon");
  EXPECT_EQ(save(), 0);
  EXPECT_TRUE(says(@"noon") && says(@"This is no time such as 2030-03-18 09:00."));
  answering(@"Save", [&] { [window performClose:nil]; });
  EXPECT_EQ(editors(), 1u) << "it cannot be saved as it stands";
  typeInto(window, @"noon", @"2030-03-19 15:00");
  EXPECT_EQ(save(), 27.5);
  EXPECT_FALSE(says(@"This is no time such as 2030-03-18 09:00."));
  EXPECT_EQ((event("a").end()->seconds - kNine) / kHour, 30);
}

TEST_F(Desk, WhoIsInvitedAndBySomebodyElseStandsInTheFile) {
  const std::string answered = "ATTENDEE;CN=\"Lee, Jo\";PARTSTAT=ACCEPTED:mailto:jo@vorn.example\r\n";
  load(eventText("a", kPlain + answered + "ATTENDEE:mailto:gone@vorn.example\r\n"));
  ERCalendarEventEditorWindowController* controller = openEditor("a");
  NSWindow* window = [controller window];
  vnEditorForm* form = [vnEditorForm formOf:[controller editorViewController]];
  EXPECT_EQ(plainText([[form peopleField] stringValue]), "\"Lee, Jo\" <jo@vorn.example>, gone@vorn.example");
  ASSERT_TRUE(typeOver([form peopleField], @"jo@vorn.example; Kim <kim@vorn.example>, nobody"));
  [shownButton([window contentView], @"Save") performClick:nil];
  EXPECT_NE(fieldWith([window contentView], @"“nobody” is no address such as kim@vorn.example."), nil);
  EXPECT_EQ(event("a").attendees().size(), 2u) << "it cannot be saved as it stands";
  ASSERT_TRUE(typeOver([form peopleField], @"jo@vorn.example, Kim <kim@vorn.example>"));
  NSPopUpButton* from = [form fromPopUp];
  EXPECT_FALSE([from isEnabled]) << "one account, and nothing to choose";
  NSString* sender = [from titleOfSelectedItem];
  [shownButton([window contentView], @"Save") performClick:nil];
  session().waitUntil([&] { return ![[controller editorViewController] isDirty]; }, 5);
  const std::string text = event("a").calendarText();
  EXPECT_THAT(text, HasSubstr(answered)) << "what was answered stays";
  EXPECT_THAT(text, HasSubstr("ATTENDEE;CN=\"Kim\";RSVP=TRUE:mailto:kim@vorn.example\r\n"));
  EXPECT_THAT(text, Not(HasSubstr("gone@")));
  EXPECT_THAT(text, HasSubstr("ORGANIZER:mailto:" + plainText(sender) + "\r\n"));
  ASSERT_TRUE(typeOver([form peopleField], @"nobody"));
  [controller editorViewController]->m_state -> saved(true);
  [shownButton([window contentView], @"Save") performClick:nil];
  EXPECT_NE(fieldWith([window contentView], @"“nobody” is no address such as kim@vorn.example."), nil)
      << "a save that waited has ended meanwhile";
  ASSERT_TRUE(typeOver([form peopleField], @""));
  EXPECT_FALSE([shownButton([window contentView], @"Send") isEnabled]) << "nobody is left to hear of it";
}

TEST_F(Desk, WhoIsChosenBeforeAnybodyIsInvitedInvitesThem) {
  load(eventText("a", kPlain));
  std::vector<std::string>& accounts = hostState().options.otherAccounts;
  const std::vector<std::string> before = std::exchange(accounts, {"first@vorn.example", "second@vorn.example"});
  ERCalendarEventEditorWindowController* controller = openEditor("a");
  vnEditorForm* form = [vnEditorForm formOf:[controller editorViewController]];
  const auto asked = [&] {
    return plainText([[[controller editorViewController] currentEmailAccount] emailAddress]);
  };
  EXPECT_EQ(asked(), "first@vorn.example") << "the one that is shown";
  [[[form fromPopUp] menu] performActionForItemAtIndex:1];
  [shownButton([[controller window] contentView], @"Save") performClick:nil];
  session().waitUntil([&] { return ![[controller editorViewController] isDirty]; }, 5);
  accounts.push_back("third@vorn.example");
  [form showSenders];
  EXPECT_EQ([[form fromPopUp] numberOfItems], 3);
  EXPECT_EQ(plainText([[form fromPopUp] titleOfSelectedItem]), "second@vorn.example");
  EXPECT_EQ(asked(), "second@vorn.example");
  ASSERT_TRUE(typeOver([form peopleField], @"jo@vorn.example"));
  [shownButton([[controller window] contentView], @"Save") performClick:nil];
  session().waitUntil([&] { return ![[controller editorViewController] isDirty]; }, 5);
  EXPECT_THAT(event("a").calendarText(), HasSubstr("ORGANIZER:mailto:second@vorn.example\r\n"));
  accounts = before;
}

TEST_F(Desk, TheBodyIsTypedAndWhatIsNotShownStays) {
  load(eventText("a",
                 std::string(kPlain) +
                     "X-ALT-DESC;FMTTYPE=text/html:<p>See <b>this</b><!--k--></p><p><img src=\"x\">end</p>\r\n"));
  ERCalendarEventEditorWindowController* controller = openEditor("a");
  NSWindow* window = [controller window];
  NSTextView* body = [[[vnEditorForm formOf:[controller editorViewController]] bodyText] view];
  const auto boldAt = [&](NSUInteger place) {
    return [[[body textStorage] attribute:NSFontAttributeName atIndex:place
                           effectiveRange:nullptr] isEqual:[NSFont boldSystemFontOfSize:[NSFont systemFontSize]]];
  };
  ASSERT_EQ(plainText([body string]), "See this\nend");
  EXPECT_TRUE(boldAt(4) && !boldAt(3));
  ASSERT_TRUE(clickOn(body));
  [body setSelectedRange:NSMakeRange(8, 0)];
  typeKeys(window, @" now <é😀 ");
  pressKey(window, NSCarriageReturnCharacter);
  typeKeys(window, @"x");
  EXPECT_TRUE(boldAt(9)) << "as what stands before it";
  [body setSelectedRange:NSMakeRange(0, 3)];
  [shownButton([window contentView], @"I") performClick:nil];
  pressKey(window, NSDeleteCharacter);
  EXPECT_EQ(plainText([body string]), " this now <é😀 \nx\nend");
  [body setSelectedRange:NSMakeRange(1, 0)];
  typeKeys(window, @"\t");
  EXPECT_NE([window firstResponder], body) << "the tab key goes on";
  [shownButton([window contentView], @"Save") performClick:nil];
  session().waitUntil([&] { return ![[controller editorViewController] isDirty]; }, 5);
  EXPECT_EQ(event("a").htmlDescription().value_or(""),
            "<p><i>&nbsp;</i><b>this now &lt;é😀&nbsp;<br>x</b><!--k--></p><p><img src=\"x\">end</p>");
}

TEST_F(Desk, WordsAroundAnInvitationAreTypedInTheirOrderAndOutsideOfIt) {
  load(eventText("a", std::string(kPlain) +
                          "X-ALT-DESC;FMTTYPE=text/html:<a name=MacVnBookmarkBegin></a><p>Help</p>"
                          "<a name=MacVnBookmarkEnd></a>\r\n"));
  ERCalendarEventEditorWindowController* controller = openEditor("a");
  NSTextView* body = [[[vnEditorForm formOf:[controller editorViewController]] bodyText] view];
  ASSERT_TRUE(clickOn(body));
  [body setSelectedRange:NSMakeRange(4, 0)];
  typeKeys([controller window], @"Yours, R");
  [body setSelectedRange:NSMakeRange(0, 0)];
  typeKeys([controller window], @"Hi all");
  EXPECT_EQ(plainText([body string]), "Hi all\nHelp\nYours, R");
  EXPECT_EQ(plainText([[controller editorViewController]->m_wordEditor->m_content bodyContent]),
            "Hi all<a name=MacVnBookmarkBegin></a><p>Help</p><a name=MacVnBookmarkEnd></a>Yours, R");
}

TEST_F(Desk, ManyWholeDaysAreCountedAndShownByAClick) {
  std::string events;
  for (int i = 0; i < 50; ++i) {
    events += eventText("day" + std::to_string(i), "DTSTART;VALUE=DATE:20300318\r\nSUMMARY:Day\r\n");
  }
  load(events);
  constexpr double names = 42;
  constexpr double line = 22;
  const auto inLine = [&](int number, double top) {
    return NSMakePoint(100, top + names + (number + 0.5) * line);
  };
  const double before = [week() bounds].size.height;
  click(inLine(3, [week() visibleRect].origin.y));
  EXPECT_EQ([week() bounds].size.height, before + 46 * line);
  EXPECT_EQ([week() visibleRect].origin.y, 0);
  [[week() window] display];
  click(inLine(49, 0));
  press(NSDeleteCharacter);
  EXPECT_EQ(calendar().events().size(), 49u);
  click(NSMakePoint(30, [week() visibleRect].origin.y + 27));
  EXPECT_EQ([week() bounds].size.height, before);
}

TEST_F(Desk, LettersOfOtherScriptsAreDrawn) {
  session();
  const auto drawn = [](NSString* text) {
    NSImage* image = [[[NSImage alloc] initWithSize:NSMakeSize(24, 24)] autorelease];
    [image lockFocus];
    [text drawAtPoint:NSMakePoint(2, 2)
        withAttributes:[NSDictionary dictionaryWithObject:[NSFont systemFontOfSize:14]
                                                   forKey:NSFontAttributeName]];
    NSBitmapImageRep* seen =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:NSMakeRect(0, 0, 24, 24)] autorelease];
    [image unlockFocus];
    return [seen TIFFRepresentation];
  };
  // Nobody has given that number a letter.
  NSData* missing = drawn(@"\u0378");
  std::vector<NSString*> letters = {@"א", @"ב", @"ا", @"س"};
  if ([NSFont fontWithName:@"DroidSansFallback" size:14]) letters.insert(letters.end(), {@"東", @"で"});
  for (std::size_t i = 0; i < letters.size(); ++i) {
    EXPECT_FALSE([drawn(letters[i]) isEqual:missing]) << [letters[i] UTF8String];
    EXPECT_FALSE(i > 0 && [drawn(letters[i]) isEqual:drawn(letters[i - 1])]) << [letters[i] UTF8String];
  }
}

class DeskAndClient : public Desk {
 protected:
  DeskAndClient() { load(eventText("a", kPlain)); }
  ~DeskAndClient() override {
    session().misbehave("");
    if (!session().isClientRunning()) session().startClientAgain();
  }

  // After a start of the client, the first click only connects.
  NSWindow* openPanel() {
    openEditor("a");
    NSWindow* panel = nil;
    for (int clicks = 0; !panel && clicks < 3; ++clicks) {
      EXPECT_TRUE(session().pressInBar("onClickAddVornMeeting:"));
      session().waitUntil([&] { return (panel = [[session().editorWindow() childWindows] lastObject]) != nil; },
                          2);
    }
    return panel;
  }
};

TEST_F(DeskAndClient, ProgressIsShownAndARefusalIsToldInAnAlert) {
  NSWindow* panel = openPanel();
  ASSERT_TRUE(panel);
  session().misbehave("every reply to action 3: delay 1 s, error 3000");
  NSWindow* progress = nil;
  const std::string asked = answering(nil, [&] {
    [shownButton([panel contentView], @"Continue") performClick:nil];
    session().waitUntil([&] { return (progress = [[NSApp modalWindow] retain]) != nil; }, 1);
    EXPECT_TRUE([progress isVisible]);
    session().passTime(1.5);
  });
  EXPECT_THAT(asked, HasSubstr("Error 3000"));
  EXPECT_FALSE([progress isVisible]);
  [progress release];
  EXPECT_EQ([NSApp modalWindow], nil);
}

TEST_F(DeskAndClient, APanelWhoseClientHasDiedCanBeEndedInEachWay) {
  for (NSString* button : {@"Cancel", @"Continue"}) {
    NSWindow* panel = openPanel();
    ASSERT_TRUE(panel);
    session().endClient();
    const std::string asked = answering(nil, [&] {
      [shownButton([panel contentView], button) performClick:nil];
      session().passTime(0.5);
    });
    EXPECT_THAT(asked, [button isEqual:@"Cancel"] ? HasSubstr("") : HasSubstr("not running"));
    EXPECT_FALSE([panel isVisible]);
    EXPECT_EQ(editors(), 1u);
    EXPECT_EQ([NSApp modalWindow], nil);
    session().closeEditors();
    session().startClientAgain();
  }
}

TEST_F(DeskAndClient, AnotherAccountIsThatOfTheNextPanel) {
  const auto canChangeWaitingRoom = [&] {
    NSWindow* panel = openPanel();
    NSButton* waitingRoom = shownButton([panel contentView], @"Waiting room");
    EXPECT_TRUE(waitingRoom);
    [[waitingRoom retain] autorelease];
    session().closeEditors();
    session().passTime(0.1);
    return [waitingRoom isEnabled];
  };
  EXPECT_TRUE(canChangeWaitingRoom());
  const std::filesystem::path file = std::filesystem::path(VORNLAB_ACCOUNTS) / "everything-locked.json";
  session().signIn(file);
  EXPECT_FALSE(canChangeWaitingRoom());
  const std::string email = Account::fromFile(file.string()).email;
  EXPECT_NE(email, Account::plain().email);
  EXPECT_THAT(hostState().options.otherAccounts, ElementsAre(email));
  EXPECT_THROW(session().signIn("/nowhere.json"), std::exception);
  EXPECT_EQ(session().account().stem(), "everything-locked");
  EXPECT_THROW(session().misbehave("reply 1: juggle"), std::exception);
  session().signIn("");
}

TEST_F(Desk, ATailTellsWholeLinesOnly) {
  const std::filesystem::path file = std::filesystem::path(worldFolder()) / "tail";
  JournalTail tail(file);
  EXPECT_THAT(tail.takeLines(), ElementsAre());
  std::ofstream(file) << R"({"event":"request","seconds":1.5,"action":3,"operation":4,"content":"a\nb"})"
                      << "\nnoise\n{\"ev";
  EXPECT_THAT(tail.takeLines(), ElementsAre("    1.50  → 3.4  a b"));
  EXPECT_THAT(tail.takeLines(), ElementsAre());
  std::ofstream(file, std::ios::app) << R"(ent":"closed","seconds":2})"
                                     << "\n";
  EXPECT_THAT(tail.takeLines(), ElementsAre("    2.00  · closed"));
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
