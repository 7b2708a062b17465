#import "lab/desktop/WeekView.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

namespace {

using vornlab::CalendarEvent;
using vornlab::foundationText;

constexpr double kHourHeight = 48;
constexpr double kTimes = 62;
constexpr double kDays = 68;
constexpr double kAllDayTop = 42;
constexpr double kAllDayHeight = 20;
constexpr double kEdge = 7;
constexpr double kSecondsOfDay = 86400;
constexpr double kStep = 900;
constexpr int kDaysShown = 7;
constexpr int kHoursOfDay = 24;

struct Shown {
  std::size_t index = 0;
  double start = 0;
  double end = 0;
  bool isAllDay = false;
};

// What follows the mouse: an appointment that moves, or whose end does.
struct Dragged {
  Shown before;
  Shown now;
  bool isResized = false;
  NSPoint from;
};

struct State {
  std::vector<Shown> byStart;
  // Of the first appointment; of this machine for an empty calendar.
  vorn::OptionalText zone;
  double week = 0;
  std::optional<std::size_t> selected;
  std::optional<Dragged> dragged;
};

NSColor* gray(double white) { return [NSColor colorWithCalibratedWhite:white alpha:1]; }
// In components, for a colour of the system has no other strength.
NSColor* accent() {
  return [[NSColor alternateSelectedControlColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
}

NSDictionary* look(double size, bool isBold, NSColor* color) {
  NSFont* font = isBold ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
  NSMutableParagraphStyle* style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineBreakMode:NSLineBreakByWordWrapping];
  return
      [NSDictionary dictionaryWithObjectsAndKeys:font, NSFontAttributeName, color, NSForegroundColorAttributeName,
                                                 style, NSParagraphStyleAttributeName, nil];
}

NSString* formatted(NSTimeZone* zone, double seconds, NSString* format) {
  NSDateFormatter* formatter = [[[NSDateFormatter alloc] init] autorelease];
  [formatter setTimeZone:zone];
  [formatter setDateFormat:format];
  return [formatter stringFromDate:[NSDate dateWithTimeIntervalSince1970:seconds]];
}

double zoneShift(NSTimeZone* zone, double seconds) {
  return static_cast<double>([zone secondsFromGMTForDate:[NSDate dateWithTimeIntervalSince1970:seconds]]);
}

double mondayOf(NSTimeZone* zone, double seconds) {
  const double local = seconds + zoneShift(zone, seconds);
  const double day = std::floor(local / kSecondsOfDay);
  // The first day of 1970 was a Thursday.
  const double weekday = std::fmod(std::fmod(day + 3, 7) + 7, 7);
  const double monday = (day - weekday) * kSecondsOfDay;
  return monday - zoneShift(zone, monday);
}

}  // namespace

@interface vnWeekView ()
- (void)beginNaming;
- (void)endNaming;
@end

@implementation vnWeekView
- (id)initWithController:(CCGridViewController*)controller {
  if (!(self = [super initWithFrame:NSMakeRect(0, 0, 1200, kDays + kHoursOfDay * kHourHeight)])) return nil;
  m_controller = controller;
  m_state = std::make_unique<State>().release();
  [self reload];
  return self;
}
- (void)dealloc {
  std::unique_ptr<State>(static_cast<State*>(m_state)).reset();
  [super dealloc];
}
- (BOOL)isFlipped {
  return YES;
}
- (BOOL)acceptsFirstResponder {
  return YES;
}

// -- What it shows
- (void)reload {
  State& state = *static_cast<State*>(m_state);
  const bool isFirst = state.byStart.empty();
  state.byStart.clear();
  vornlab::CalendarStore* store = vornlab::shownStore();
  const std::vector<CalendarEvent> events = store ? store->events() : std::vector<CalendarEvent>();
  for (const CalendarEvent& event : events) {
    const auto start = event.start();
    const auto end = event.end();
    if (!start || !end) continue;
    if (!state.zone) state.zone = start->zone;
    const double shownEnd = std::max(end->seconds, start->seconds + kStep);
    state.byStart.push_back({event.index(), start->seconds, shownEnd, event.isAllDay()});
  }
  std::sort(state.byStart.begin(), state.byStart.end(),
            [](const Shown& one, const Shown& other) { return one.start < other.start; });
  if (isFirst) {
    const double first =
        state.byStart.empty() ? [[NSDate date] timeIntervalSince1970] : state.byStart.front().start;
    state.week = mondayOf([self zone], first);
  }
  [self setNeedsDisplay:YES];
}
- (void)showWeekOf:(double)seconds {
  static_cast<State*>(m_state)->week = mondayOf([self zone], seconds);
  [self setNeedsDisplay:YES];
}
- (NSTimeZone*)zone {
  const vorn::OptionalText& name = static_cast<State*>(m_state)->zone;
  NSTimeZone* zone = name ? [NSTimeZone timeZoneWithName:foundationText(name)] : nil;
  return zone ? zone : [NSTimeZone defaultTimeZone];
}
- (NSString*)title {
  const double week = static_cast<State*>(m_state)->week;
  return [NSString stringWithFormat:@"%@ – %@", formatted([self zone], week, @"d MMMM"),
                                    formatted([self zone], week + 6.5 * kSecondsOfDay, @"d MMMM yyyy")];
}
- (double)dayWidth {
  return ([self bounds].size.width - kTimes) / kDaysShown;
}
- (NSRect)placeOf:(const Shown&)each {
  const double week = static_cast<State*>(m_state)->week;
  const double from = each.start - week;
  const double day = std::floor(from / kSecondsOfDay);
  const double top = (from - day * kSecondsOfDay) / 3600 * kHourHeight;
  const double height = std::min((each.end - each.start) / 3600 * kHourHeight, kHoursOfDay * kHourHeight - top);
  const double width = [self dayWidth];
  if (each.isAllDay) {
    const double days = std::max(1.0, std::round((each.end - each.start) / kSecondsOfDay));
    const double shown = std::min(days, kDaysShown - day);
    return NSMakeRect(kTimes + day * width + 2, [self visibleRect].origin.y + kAllDayTop, shown * width - 6,
                      kAllDayHeight);
  }
  return NSMakeRect(kTimes + day * width + 2, kDays + top + 1, width - 6, std::max(height - 2, 16.0));
}
- (std::vector<Shown>)inWeek {
  const State& state = *static_cast<const State*>(m_state);
  const double end = state.week + kDaysShown * kSecondsOfDay;
  auto from = std::lower_bound(state.byStart.begin(), state.byStart.end(), state.week,
                               [](const Shown& each, double start) { return each.start < start; });
  std::vector<Shown> found;
  for (; from != state.byStart.end() && from->start < end; ++from) {
    const bool isDragged = state.dragged && state.dragged->before.index == from->index;
    found.push_back(isDragged ? state.dragged->now : *from);
  }
  return found;
}
- (void)drawGrid {
  const NSRect bounds = [self bounds];
  [[NSColor whiteColor] set];
  NSRectFill(bounds);
  for (int hour = 0; hour <= kHoursOfDay; ++hour) {
    const double y = kDays + hour * kHourHeight;
    [gray(0.92) set];
    NSRectFill(NSMakeRect(kTimes, y, bounds.size.width - kTimes, 1));
    if (hour == 0 || hour == kHoursOfDay) continue;
    NSString* time = [NSString stringWithFormat:@"%d:00", hour];
    const double width = [time sizeWithAttributes:look(11, false, gray(0.5))].width;
    [time drawAtPoint:NSMakePoint(kTimes - width - 10, y - 8) withAttributes:look(11, false, gray(0.5))];
  }
  for (int day = 0; day < kDaysShown; ++day) {
    [gray(0.9) set];
    NSRectFill(NSMakeRect(kTimes + day * [self dayWidth] - 1, 0, 1, bounds.size.height));
  }
}
// The names of the days stay where they are while the hours scroll below them.
- (void)drawDays {
  const double top = [self visibleRect].origin.y;
  const double week = static_cast<State*>(m_state)->week;
  [[NSColor whiteColor] set];
  NSRectFill(NSMakeRect(0, top, [self bounds].size.width, kDays));
  [gray(0.85) set];
  NSRectFill(NSMakeRect(0, top + kDays - 1, [self bounds].size.width, 1));
  for (int day = 0; day < kDaysShown; ++day) {
    const double x = kTimes + day * [self dayWidth];
    const double noon = week + (day + 0.5) * kSecondsOfDay;
    [formatted([self zone], noon, @"EEE") drawAtPoint:NSMakePoint(x + 8, top + 4)
                                       withAttributes:look(11, false, gray(0.45))];
    [formatted([self zone], noon, @"d") drawAtPoint:NSMakePoint(x + 8, top + 18)
                                     withAttributes:look(15, true, gray(0.15))];
  }
}
- (void)drawAppointment:(const Shown&)each {
  const State& state = *static_cast<const State*>(m_state);
  const CalendarEvent event = vornlab::shownStore()->eventAt(each.index);
  const bool isSelected = state.selected == each.index;
  const NSRect place = [self placeOf:each];
  NSBezierPath* shape = [NSBezierPath bezierPathWithRoundedRect:place xRadius:4 yRadius:4];
  [(isSelected ? accent() : [accent() colorWithAlphaComponent:0.15]) set];
  [shape fill];
  [accent() set];
  NSRectFill(NSMakeRect(place.origin.x, place.origin.y + 2, 3, place.size.height - 4));
  NSColor* ink = isSelected ? [NSColor whiteColor] : gray(0.12);
  NSRect text = NSInsetRect(place, 9, place.size.height < 24 ? 0.5 : 3);
  [[NSGraphicsContext currentContext] saveGraphicsState];
  [NSBezierPath clipRect:text];
  NSString* subject = foundationText(event.summary());
  if (!subject) subject = @"Untitled";
  NSDictionary* bold = look(12, true, ink);
  [subject drawInRect:text withAttributes:bold];
  const double used = std::ceil([subject boundingRectWithSize:NSMakeSize(text.size.width, 1e4)
                                                      options:NSStringDrawingUsesLineFragmentOrigin
                                                   attributes:bold]
                                    .size.height);
  NSString* location = foundationText(event.location());
  if (location && text.size.height >= used + 14) {
    text.origin.y += used;
    text.size.height -= used;
    [location drawInRect:text withAttributes:look(11, false, isSelected ? ink : gray(0.4))];
  }
  [[NSGraphicsContext currentContext] restoreGraphicsState];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [self drawGrid];
  const std::vector<Shown> week = [self inWeek];
  for (const Shown& each : week) {
    if (!each.isAllDay) [self drawAppointment:each];
  }
  [self drawDays];
  for (const Shown& each : week) {
    if (each.isAllDay) [self drawAppointment:each];
  }
}

// -- What a person does
- (ECCalendarEvent*)eventOf:(std::size_t)index {
  return [[[ECCalendarEvent alloc] initWithStore:vornlab::shownStore()
                                           index:static_cast<NSInteger>(index)] autorelease];
}
- (OLCalendarGridViewWrapper*)wrapper {
  NSEnumerator* windows = [[NSApp windows] objectEnumerator];
  while (NSWindow* window = [windows nextObject]) {
    const id controller = [window windowController];
    if ([controller isKindOfClass:[ERageMainWindowController class]]) return [controller grid];
  }
  return nil;
}
- (void)mouseDown:(NSEvent*)event {
  [[self window] makeFirstResponder:self];
  [self endNaming];
  State& state = *static_cast<State*>(m_state);
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  state.selected.reset();
  for (const Shown& each : [self inWeek]) {
    const NSRect place = [self placeOf:each];
    if (!NSPointInRect(point, place)) continue;
    state.selected = each.index;
    state.dragged = Dragged{each, each, point.y > NSMaxY(place) - kEdge, point};
  }
  [m_controller setSelectedEvent:state.selected ? [self eventOf:*state.selected] : nil];
  [self setNeedsDisplay:YES];
  if ([event clickCount] < 2 || !state.selected) return;
  state.dragged.reset();
  vornlab::openEditorOf([m_controller selectedEvent]);
}
- (void)mouseDragged:(NSEvent*)event {
  State& state = *static_cast<State*>(m_state);
  if (!state.dragged) return;
  Dragged& dragged = *state.dragged;
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  const double down = std::round((point.y - dragged.from.y) / kHourHeight * 3600 / kStep) * kStep;
  const double days = std::round((point.x - dragged.from.x) / [self dayWidth]);
  dragged.now = dragged.before;
  if (dragged.isResized) {
    dragged.now.end = std::max(dragged.before.end + down, dragged.before.start + kStep);
  } else {
    dragged.now.start += down + days * kSecondsOfDay;
    dragged.now.end += down + days * kSecondsOfDay;
  }
  [self setNeedsDisplay:YES];
}
- (void)mouseUp:(NSEvent*)event {
  (void)event;
  State& state = *static_cast<State*>(m_state);
  if (!state.dragged) return;
  const Dragged dragged = *state.dragged;
  state.dragged.reset();
  [self setNeedsDisplay:YES];
  if (dragged.now.start == dragged.before.start && dragged.now.end == dragged.before.end) return;
  BOOL inProgress = YES;
  OLCalendarDate* was = [[m_controller selectedEvent] startTime];
  OLCalendarDate* start = [[[OLCalendarDate alloc] initWithSeconds:dragged.now.start
                                                              zone:[was timeZone]] autorelease];
  if (dragged.isResized) {
    [[self wrapper] dragResizedEvent:[m_controller selectedEvent]
                        withTileView:nil
                       withStartDate:start
                            duration:dragged.now.end - dragged.now.start
                          inProgress:&inProgress
                        partialStart:NO
                          partialEnd:NO];
  } else {
    [[self wrapper] performDragFrom:nil to:nil forDate:start inProgress:&inProgress];
  }
}
- (void)keyDown:(NSEvent*)event {
  const unichar key = [[event characters] length] > 0 ? [[event characters] characterAtIndex:0] : 0;
  if (![m_controller selectedEvent]) return [super keyDown:event];
  if (key == NSDeleteCharacter || key == NSDeleteFunctionKey || key == NSBackspaceCharacter) {
    [[m_controller selectedEvent] deleteEventNow];
    static_cast<State*>(m_state)->selected.reset();
    [m_controller setSelectedEvent:nil];
  } else if (key == NSCarriageReturnCharacter) {
    [self beginNaming];
  } else {
    [super keyDown:event];
  }
}
- (void)beginNaming {
  const State& state = *static_cast<const State*>(m_state);
  for (const Shown& each : [self inWeek]) {
    if (state.selected != each.index) continue;
    NSRect place = [self placeOf:each];
    place.size.height = 24;
    m_nameField = [[[NSTextField alloc] initWithFrame:place] autorelease];
    NSString* subject = [[m_controller selectedEvent] summary];
    [m_nameField setStringValue:subject ? subject : @""];
    [m_nameField setTarget:self];
    [m_nameField setAction:@selector(named:)];
    [self addSubview:m_nameField];
    [[self window] makeFirstResponder:m_nameField];
  }
}
- (void)endNaming {
  // It may be in the middle of telling what was typed.
  [[m_nameField retain] autorelease];
  [m_nameField removeFromSuperview];
  m_nameField = nil;
}
- (void)named:(id)sender {
  NSString* subject = [[[sender stringValue] retain] autorelease];
  [self endNaming];
  [[self wrapper] subjectChanged:subject forEvent:[m_controller selectedEvent] andTileView:nil];
  [[self window] makeFirstResponder:self];
}
- (IBAction)previousWeek:(id)sender {
  (void)sender;
  [self showWeekOf:static_cast<State*>(m_state)->week - 3 * kSecondsOfDay];
}
- (IBAction)nextWeek:(id)sender {
  (void)sender;
  [self showWeekOf:static_cast<State*>(m_state)->week + 10 * kSecondsOfDay];
}
@end
