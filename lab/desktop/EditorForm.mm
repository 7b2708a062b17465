#import "lab/desktop/EditorForm.h"

#include <algorithm>

#import "lab/desktop/Controls.h"
#import "lab/desktop/Questions.h"
#include "lab/desktop/WeekPlan.h"
#include "lab/host/InvitedPeople.h"
#include "util/Text.h"

namespace {

constexpr double kWidth = 900;
constexpr double kHeight = 680;
constexpr double kActions = 52;
constexpr double kHeader = 228;
constexpr double kMargin = 20;
constexpr double kNames = 80;
constexpr double kRow = 32;
constexpr double kField = 24;
NSString* const kTimeFormat = @"yyyy-MM-dd HH:mm";

NSDateFormatter* formatterOf(OLCalendarDate* date) {
  NSDateFormatter* formatter = [[[NSDateFormatter alloc] init] autorelease];
  [formatter setDateFormat:kTimeFormat];
  [formatter setTimeZone:[date timeZone]];
  [formatter setLenient:NO];
  return formatter;
}

vornlab::LocalClock clockAt(OLCalendarDate* date) {
  NSTimeZone* zone = [date timeZone];
  return vornlab::LocalClock([zone](double seconds) {
    return static_cast<double>([zone secondsFromGMTForDate:[NSDate dateWithTimeIntervalSince1970:seconds]]);
  });
}

NSString* textOf(OLCalendarDate* date) { return date ? [formatterOf(date) stringFromDate:[date dateUTC]] : @""; }

// As the host names a zone: its distance first.
NSString* zoneText(OLCalendarDate* date) {
  const NSInteger seconds = [[date timeZone] secondsFromGMTForDate:[date dateUTC]];
  const NSInteger minutes = (seconds < 0 ? -seconds : seconds) / 60;
  return [NSString stringWithFormat:@"(UTC%c%02ld:%02ld) %@", seconds < 0 ? '-' : '+',
                                    static_cast<long>(minutes / 60), static_cast<long>(minutes % 60),
                                    [[date timeZone] name]];
}

}  // namespace

@interface vnEditorForm ()
- (void)build;
- (void)addFrom;
- (void)addStyles;
- (void)takePeople;
- (void)endPeople;
- (void)showPeople;
- (void)showSend;
- (void)showTitle;
- (void)showFields;
- (vornlab::AppointmentChanges&)typed;
@end

@implementation vnEditorForm
+ (void)putInto:(ERCalendarEventEditorWindowController*)controller {
  NSWindow* window = [controller window];
  [window setContentSize:NSMakeSize(kWidth, kHeight)];
  [window setMinSize:NSMakeSize(kWidth, 480)];
  vnEditorForm* form = [[[vnEditorForm alloc] initWithFrame:[[window contentView] bounds]] autorelease];
  [form setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  form->m_controller = controller;
  // Below the header, which the plug-in looks for in the window's content.
  [[window contentView] addSubview:form positioned:NSWindowBelow relativeTo:controller->m_header];
  [form build];
  [window setDelegate:static_cast<id>(form)];
  [window center];
}
+ (vnEditorForm*)formOf:(ERCalendarEventEditorViewController*)editor {
  NSEnumerator* views = [[[editor view] subviews] objectEnumerator];
  while (NSView* view = [views nextObject]) {
    if ([view isKindOfClass:[vnEditorForm class]]) return static_cast<vnEditorForm*>(view);
  }
  return nil;
}
- (void)dealloc {
  [m_body end];
  [m_body release];
  [super dealloc];
}
- (ERCalendarEventEditorViewController*)editor {
  return [m_controller editorViewController];
}

- (NSPopUpButton*)fromPopUp {
  return m_from;
}
- (NSTextField*)peopleField {
  return m_people;
}
- (NSTextField*)subjectField {
  return m_subject;
}
- (NSTextField*)startField {
  return m_start;
}
- (NSTextField*)endField {
  return m_end;
}
- (vnBodyText*)bodyText {
  return m_body;
}

// -- Its parts
- (NSTextField*)addField:(NSString*)name row:(int)row width:(double)width {
  NSView* header = m_controller->m_header;
  const double y = kHeader - 10 - kField - row * kRow;
  [header addSubview:vornlab::label(name, NSMakeRect(kMargin, y - 2, kNames, kField))];
  NSTextField* field =
      [[[NSTextField alloc] initWithFrame:NSMakeRect(kMargin + kNames, y, width, kField)] autorelease];
  [field setDelegate:static_cast<id>(self)];
  [[field cell] setScrollable:YES];
  [header addSubview:field];
  return field;
}
- (NSTextField*)addTroubleAt:(NSPoint)at {
  NSTextField* trouble = vornlab::label(@"", NSMakeRect(at.x, at.y, kWidth - kMargin - at.x, kField));
  [trouble setTextColor:[NSColor redColor]];
  [m_controller->m_header addSubview:trouble];
  return trouble;
}
- (double)addAction:(NSString*)title x:(double)x action:(SEL)action {
  NSButton* button = vornlab::pushButton(title, self, action, NSMakePoint(x, kHeight - kActions + 11));
  [self addSubview:button];
  return NSMaxX([button frame]) + 10;
}
- (void)build {
  ERCalendarEventEditorViewController* editor = [self editor];
  ECCalendarEvent* event = [editor content];
  m_send = vornlab::pushButton(@"Send", self, @selector(send:), NSMakePoint(kMargin, kHeight - kActions + 11));
  [self addSubview:m_send];
  double x = [self addAction:@"Save & Close" x:NSMaxX([m_send frame]) + 10 action:@selector(saveAndClose:)];
  x = [self addAction:@"Save" x:x action:@selector(save:)];
  [self addAction:@"Close" x:x action:@selector(closeEditor:)];

  NSView* header = m_controller->m_header;
  [header setFrame:NSMakeRect(0, kHeight - kActions - kHeader, kWidth, kHeader)];
  [header setAutoresizingMask:NSViewWidthSizable | NSViewMinYMargin];
  const double wide = kWidth - 2 * kMargin - kNames;
  [self addFrom];
  m_people = [self addField:@"Invite" row:1 width:wide];
  [m_people setAutoresizingMask:NSViewWidthSizable];
  [[m_people cell] setPlaceholderString:@"Addresses, with commas between"];
  m_subject = [self addField:@"Subject" row:2 width:wide];
  [m_subject setAutoresizingMask:NSViewWidthSizable];
  // The location's field is the host's own, for the plug-in writes into it.
  NSTextField* location = [editor performSelector:@selector(locationTextField)];
  const double y = kHeader - 10 - kField - 3 * kRow;
  [header addSubview:vornlab::label(@"Location", NSMakeRect(kMargin, y - 2, kNames, kField))];
  [location setFrame:NSMakeRect(kMargin + kNames, y, wide, kField)];
  [location setAutoresizingMask:NSViewWidthSizable];
  [location setDelegate:static_cast<id>(self)];
  [[location cell] setScrollable:YES];
  m_start = [self addField:@"Starts" row:4 width:150];
  m_end = [self addField:@"Ends" row:5 width:150];
  const NSRect zone = NSMakeRect(kMargin + kNames + 160, kHeader - 12 - kField - 4 * kRow, 260, kField);
  [header addSubview:vornlab::label(zoneText([event startTime]), zone)];
  m_startTrouble = [self addTroubleAt:NSMakePoint(NSMaxX(zone), NSMinY(zone))];
  m_endTrouble = [self addTroubleAt:NSMakePoint(NSMinX(zone), NSMinY(zone) - kRow)];
  m_peopleTrouble = [self addTroubleAt:NSMakePoint(NSMaxX([m_from frame]) + 12, NSMinY([m_from frame]))];
  const NSRect rest = NSMakeRect(0, 0, kWidth, kHeight - kActions - kHeader);
  m_body = [[vnBodyText alloc] initIn:self frame:rest editor:editor];
  [self addStyles];
  NSView* const order[] = {m_from, m_people, m_subject, location, m_start, m_end, [m_body view]};
  for (std::size_t i = 0; i < std::size(order); ++i) [order[i] setNextKeyView:order[(i + 1) % std::size(order)]];
  [[m_controller window] setInitialFirstResponder:m_subject];
  [self showEvent];
}
// Of what is selected in the body; the keys are those of every editor.
- (void)addStyles {
  const struct {
    NSString* title;
    NSString* key;
    vornlab::TextStyle style;
    NSString* means;
  } styles[] = {{@"U", @"u", vornlab::kUnderlined, @"Underline"},
                {@"I", @"i", vornlab::kItalic, @"Italic"},
                {@"B", @"b", vornlab::kBold, @"Bold"}};
  double right = kWidth - kMargin;
  for (const auto& each : styles) {
    NSButton* button = vornlab::pushButton(each.title, self, @selector(turnStyle:), NSZeroPoint);
    [button setFrameOrigin:NSMakePoint(right - NSWidth([button frame]), kHeight - kActions + 11)];
    [button setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
    [button setTag:each.style];
    [button setToolTip:each.means];
    [button setKeyEquivalent:each.key];
    [button setKeyEquivalentModifierMask:NSCommandKeyMask];
    // Whoever presses it goes on typing.
    [button setRefusesFirstResponder:YES];
    [self addSubview:button];
    right = NSMinX([button frame]) - 6;
  }
}
- (void)turnStyle:(id)sender {
  [m_body turn:static_cast<vornlab::TextStyle>([sender tag])];
}
- (void)showEvent {
  [m_body show];
  if ([[self editor] content] != m_event) [self showFields];
}
- (void)addFrom {
  NSView* header = m_controller->m_header;
  const double y = kHeader - 10 - kField;
  [header addSubview:vornlab::label(@"From", NSMakeRect(kMargin, y - 2, kNames, kField))];
  m_from = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(kMargin + kNames, y, 300, kField)
                                       pullsDown:NO] autorelease];
  [m_from setTarget:self];
  [m_from setAction:@selector(chooseFrom:)];
  [header addSubview:m_from];
}
- (void)showPeople {
  const std::vector<vornlab::CalendarAttendee> people = m_event->m_appointment.attendees();
  [m_people setStringValue:vornlab::foundationText(vornlab::writtenPeople(people))];
  [m_peopleTrouble setStringValue:@""];
  [self showSend];
  [self showSenders];
}
- (void)showSenders {
  const vornlab::HostState& host = vornlab::hostState();
  const vornlab::Appointment& shown = m_event->m_appointment;
  const std::string chosen = shown.sender(host, [self typed].organizer);
  [m_from removeAllItems];
  for (const std::string& sender : shown.senders(host, [self typed].organizer)) {
    [m_from addItemWithTitle:vornlab::foundationText(sender)];
    if (vorn::equalIgnoringCase(sender, chosen)) [m_from selectItem:[m_from lastItem]];
  }
  // A host that knows nobody sends from its owner, who has no address then.
  if ([m_from numberOfItems] == 0) [m_from addItemWithTitle:@"Calendar Owner"];
  [m_from setEnabled:[m_from numberOfItems] > 1];
}
// Who is invited gets it sent.
- (void)showSend {
  [m_send setEnabled:[[[self editor] attendeeList] count] > 0];
}
- (void)showFields {
  m_event = [[self editor] content];
  m_typedTime = nil;
  [self showPeople];
  [m_subject setStringValue:[m_event summary] ? [m_event summary] : @""];
  [m_start setStringValue:textOf([m_event startTime])];
  [m_end setStringValue:textOf([m_event endTime])];
  [m_startTrouble setStringValue:@""];
  [m_endTrouble setStringValue:@""];
  [self showTitle];
}
- (void)showTitle {
  NSString* subject = [m_subject stringValue];
  [[m_controller window] setTitle:[subject length] > 0 ? subject : @"Untitled"];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect bounds = [self bounds];
  [[NSColor gridColor] set];
  NSRectFill(NSMakeRect(0, NSMaxY(bounds) - kActions, bounds.size.width, 1));
}

// -- What a person does
- (vornlab::AppointmentChanges&)typed {
  return [self editor]->m_state -> typed;
}
- (void)controlTextDidChange:(NSNotification*)notification {
  const id field = [notification object];
  if (field == m_start || field == m_end) {
    m_typedTime = field;
    return;
  }
  if (field == m_people) return [self takePeople];
  (field == m_subject ? [self typed].summary : [self typed].location) = vornlab::plainText([field stringValue]);
  if (field == m_subject) [self showTitle];
  [[self editor] setIsDirty:YES];
}
// Each address counts as soon as it is whole; what is none yet is told when the field is left.
- (void)takePeople {
  [m_peopleTrouble setStringValue:@""];
  const vornlab::InvitedPeople read =
      vornlab::readPeople(vornlab::plainText([m_people stringValue]), m_event->m_appointment.attendees());
  [self typed].attendees = read.people;
  // They hear from whoever is shown, also where there was nothing to choose.
  const std::string sender = m_event->m_appointment.sender(vornlab::hostState(), std::nullopt);
  const bool isCalled = [self typed].organizer || m_event->m_appointment.organizer();
  if (!isCalled && !sender.empty()) [self typed].organizer = sender;
  [[self editor] setIsDirty:YES];
  [self showSend];
}
- (void)endPeople {
  const auto& typed = [self typed].attendees;
  const auto known = typed ? *typed : m_event->m_appointment.attendees();
  const std::string text = vornlab::plainText([m_people stringValue]);
  // Nothing was typed, or a save has ended meanwhile and stored all of it.
  if (!typed && text == vornlab::writtenPeople(known)) return;
  const vornlab::InvitedPeople read = vornlab::readPeople(text, known);
  if (read.unread.empty()) {
    [m_people setStringValue:vornlab::foundationText(vornlab::writtenPeople(read.people))];
    return;
  }
  NSString* first = vornlab::foundationText(read.unread.front());
  [m_peopleTrouble
      setStringValue:[NSString stringWithFormat:@"“%@” is no address such as kim@vorn.example.", first]];
}
- (void)chooseFrom:(id)sender {
  [self typed].organizer = vornlab::plainText([m_from titleOfSelectedItem]);
  [[self editor] setIsDirty:YES];
  [[self editor] fromFieldModified:sender];
}
- (std::optional<vornlab::CalendarTime>&)typedTimeOf:(NSTextField*)field {
  return field == m_start ? [self typed].start : [self typed].end;
}
- (OLCalendarDate*)timeOf:(NSTextField*)field {
  if (const auto& typed = [self typedTimeOf:field]) return [OLCalendarDate dateWithTime:*typed];
  ECCalendarEvent* event = [[self editor] content];
  return field == m_start ? [event startTime] : [event endTime];
}
- (NSString*)textFor:(NSTextField*)field ofSeconds:(double)seconds {
  NSDate* date = [NSDate dateWithTimeIntervalSince1970:seconds];
  return [formatterOf([self timeOf:field]) stringFromDate:date];
}
- (void)change:(NSTextField*)field toSeconds:(double)seconds {
  OLCalendarDate* changed = [[[OLCalendarDate alloc] initWithSeconds:seconds
                                                                zone:[[self timeOf:field] timeZone]] autorelease];
  [self typedTimeOf:field] = [changed time];
  [[self editor] setIsDirty:YES];
}
// What stands in the field, as the time of the appointment. One that cannot be stays there with a word beside it,
// and the appointment keeps the former.
- (void)takeTimeOf:(NSTextField*)field {
  NSTextField* trouble = field == m_start ? m_startTrouble : m_endTrouble;
  [trouble setStringValue:@""];
  OLCalendarDate* before = [self timeOf:field];
  NSString* typed = [field stringValue];
  if ([typed isEqual:textOf(before)]) return;
  NSDate* date = [formatterOf(before) dateFromString:typed];
  if (!date) return [trouble setStringValue:@"This is no time such as 2030-03-18 09:00."];
  const double seconds = [date timeIntervalSince1970];
  const double start = [[[self timeOf:m_start] dateUTC] timeIntervalSince1970];
  if (field == m_end) {
    if (seconds < start) return [trouble setStringValue:@"The end is before the start."];
    return [self change:m_end toSeconds:seconds];
  }
  // It lasts as long as before by the clock, unless an end is waiting for its start.
  const vornlab::LocalClock clock = clockAt([self timeOf:m_start]);
  const vornlab::LocalClock clockAtEnd = clockAt([self timeOf:m_end]);
  const double end = clockAtEnd.local([[[self timeOf:m_end] dateUTC] timeIntervalSince1970]);
  [self change:m_start toSeconds:seconds];
  [self change:m_end toSeconds:clockAtEnd.seconds(end + clock.local(seconds) - clock.local(start))];
  if ([[m_endTrouble stringValue] length] > 0) return [self takeTimeOf:m_end];
  [m_end setStringValue:textOf([self timeOf:m_end])];
}
// A time counts when it has been typed whole.
- (void)controlTextDidEndEditing:(NSNotification*)notification {
  const id field = [notification object];
  if (field == m_people) return [self endPeople];
  // Who only passes through a field has typed nothing.
  if (field != m_typedTime) return;
  m_typedTime = nil;
  [self takeTimeOf:field];
}
// Ends what is being typed. NO, and heard, when a time cannot be stored as it stands.
- (BOOL)endTyping {
  [[m_controller window] makeFirstResponder:nil];
  NSTextField* const troubles[] = {m_startTrouble, m_endTrouble, m_peopleTrouble};
  if (std::all_of(std::begin(troubles), std::end(troubles),
                  [](NSTextField* each) { return [[each stringValue] length] == 0; }))
    return YES;
  NSBeep();
  return NO;
}
- (void)send:(id)sender {
  (void)sender;
  if ([self endTyping]) [[self editor] sendMeetingPostValidate];
}
- (void)saveAndClose:(id)sender {
  if ([self endTyping]) [[self editor] saveAndClose:sender];
}
- (void)save:(id)sender {
  if ([self endTyping]) [[self editor] save:sender];
}
- (BOOL)askToClose {
  [[self retain] autorelease];
  const BOOL canBeSaved = [self endTyping];
  if (canBeSaved && ![[self editor] isDirty]) {
    [m_controller close];
    return YES;
  }
  NSWindow* window = [m_controller window];
  [window makeKeyAndOrderFront:nil];
  NSString* message = [NSString stringWithFormat:@"“%@” has changes", [window title]];
  switch (vornlab::askWhatToSave(message)) {
    case vornlab::WhatToSave::save:
      if (!canBeSaved) return NO;
      [[self editor] saveAndClose:nil];
      return YES;
    case vornlab::WhatToSave::dontSave: [m_controller close]; return YES;
    case vornlab::WhatToSave::cancel: break;
  }
  return NO;
}
- (void)closeEditor:(id)sender {
  (void)sender;
  [self askToClose];
}
- (BOOL)windowShouldClose:(id)window {
  (void)window;
  [self askToClose];
  return NO;
}
@end
