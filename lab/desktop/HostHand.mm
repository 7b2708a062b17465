// A person's hand on the controls of the host, where the toolkit is the real one.

#import "lab/objc/HostHand.h"

#include <algorithm>
#include <cmath>

#import "lab/desktop/CalendarPane.h"
#import "lab/desktop/EditorForm.h"
#import "lab/desktop/RealHand.h"
#import "lab/objc/HostControls.h"
#include "lab/shell/LabError.h"

namespace vornlab {

bool pressAsSeen(const FoundControl& control) {
  if (control.entry) {
    NSMenu* menu = [control.entry menu];
    [menu update];
    if (![control.entry isEnabled]) return false;
    [menu performActionForItemAtIndex:[menu indexOfItem:control.entry]];
    return true;
  }
  if (control.view) return clickOn(control.view);
  return [NSApp sendAction:[control.toolbarItem action] to:[control.toolbarItem target] from:control.toolbarItem];
}

// -- In an editor

namespace {

vnEditorForm* formOf(ERCalendarEventEditorWindowController* controller) {
  return [vnEditorForm formOf:[controller editorViewController]];
}

void need(bool isDone, const char* act) {
  if (!isDone) throw LabError(std::string("by hand this cannot be done: ") + act);
}

}  // namespace

void typeAsSeen(ERCalendarEventEditorWindowController* controller, EditorField field, NSString* text) {
  NSTextField* typed = field == EditorField::subject ? [formOf(controller) subjectField]
                                                     : [controller editorViewController]->m_locationField;
  need(typeOver(typed, text), "to type into a field of the editor");
}

void typeTimesAsSeen(ERCalendarEventEditorWindowController* controller, double start, double end) {
  vnEditorForm* form = formOf(controller);
  NSWindow* window = [controller window];
  const struct {
    NSTextField* field;
    double seconds;
  } times[] = {{[form startField], start}, {[form endField], end}};
  for (const auto& each : times) {
    need(typeOver(each.field, [form textFor:each.field ofSeconds:each.seconds]), "to type a time");
    pressKey(window, NSTabCharacter);
  }
}

void endAsSeen(ERCalendarEventEditorWindowController* controller, EndOfEditing end) {
  static NSString* const titles[] = {@"Save", @"Save & Close", @"Send", @"Close"};
  NSButton* button = shownButton(formOf(controller), titles[static_cast<std::size_t>(end)]);
  need(button && clickOn(button), "to press the button that ends the work in the editor");
}

// -- On the calendar's surface

namespace {

// Its place among the calendar's events; it is stored.
std::size_t placeOf(ECCalendarEvent* event) { return event->m_appointment.stored()->index(); }

// The week with the appointment in sight.
vnWeekView* weekWith(ECCalendarEvent* event) {
  vnWeekView* week = [shownPane() week];
  [week showWeekOf:[[event startTime] timeIntervalSince1970]];
  const NSRect place = [week placeOfEvent:placeOf(event)];
  need(week && !NSIsEmptyRect(place), "to find the appointment in the week");
  [week scrollRectToVisible:place];
  return week;
}

// Where it is taken hold of, to be moved as a whole: below its upper edge, for what is long goes on out of sight.
NSRect gripOf(vnWeekView* week, ECCalendarEvent* event) {
  const NSRect place = [week placeOfEvent:placeOf(event)];
  const double down = std::min(9.0, NSHeight(place) / 2);
  return NSMakeRect(NSMinX(place) + 4, NSMinY(place) + down - 1, NSWidth(place) - 8, 2);
}

vnWeekView* selectInWeek(ECCalendarEvent* event) {
  vnWeekView* week = weekWith(event);
  need(clickOn(week, gripOf(week, event)), "to click the appointment in the week");
  return week;
}

}  // namespace

void dragAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start) {
  (void)main;
  vnWeekView* week = weekWith(event);
  const double before = [[event startTime] timeIntervalSince1970];
  const NSSize way = [week wayFrom:before to:start];
  need(std::isfinite(way.height), "to drag to another week, or between quarters of an hour");
  const NSRect grip = gripOf(week, event);
  const NSPoint from = NSMakePoint(NSMidX(grip), NSMidY(grip));
  dragIn(week, from, NSMakePoint(from.x + way.width, from.y + way.height));
}

void resizeAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start, double seconds) {
  (void)main;
  vnWeekView* week = weekWith(event);
  const double before = [[event startTime] timeIntervalSince1970];
  const double end = before + [event duration];
  const bool isStart = start != before;
  need(!isStart || start + seconds == end, "to move both edges of an appointment at once");
  const NSSize way = isStart ? [week wayFrom:before to:start] : [week wayFrom:end to:start + seconds];
  need(std::isfinite(way.height) && way.width == 0, "to resize over a day, or between quarters of an hour");
  const NSRect place = [week placeOfEvent:placeOf(event)];
  const NSPoint edge = NSMakePoint(NSMidX(place), isStart ? NSMinY(place) + 2 : NSMaxY(place) - 2);
  dragIn(week, edge, NSMakePoint(edge.x, edge.y + way.height));
}

void renameAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, NSString* subject) {
  (void)main;
  NSWindow* window = [selectInWeek(event) window];
  pressKey(window, NSCarriageReturnCharacter);
  const id editor = [window firstResponder];
  need([editor isKindOfClass:[NSTextView class]], "to name the appointment in the week");
  [editor selectAll:nil];
  [editor insertText:subject];
  pressKey(window, NSCarriageReturnCharacter);
}

void deleteAsSeen(ERageMainWindowController* main, ECCalendarEvent* event) {
  if (!main) {
    [event deleteEventNow];
    return;
  }
  pressKey([selectInWeek(event) window], NSDeleteCharacter);
}

}  // namespace vornlab
