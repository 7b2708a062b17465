#import "lab/desktop/WeekView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "lab/desktop/WeekPlan.h"

namespace {

using vornlab::CalendarEvent;
using vornlab::foundationText;
using vornlab::LocalClock;
using vornlab::WeekItem;
using vornlab::WeekPiece;

constexpr double kHourHeight = 48;
constexpr double kTimes = 62;
// The names of the days, and below them a line for each appointment of whole days. Of more than so many the last
// line tells how many more there are.
constexpr double kNames = 42;
constexpr double kLine = 22;
constexpr int kMostLines = 4;
// Of an appointment, by which its start or its end is moved; of a low one no more than a quarter each.
constexpr double kEdge = 6;
constexpr double kHour = 3600;
constexpr double kStep = 900;
constexpr double kLeastHeight = 16;
constexpr int kDaysShown = 7;
constexpr int kHoursOfDay = 24;
constexpr double kNarrow = 20;

// What follows the mouse.
enum class Hold { whole, start, end };

struct Dragged {
  WeekItem before;
  WeekItem now;
  Hold hold = Hold::whole;
  NSPoint from;
  // It was somewhere else meanwhile; a press that never moved it is none of the host's business.
  bool hasMoved = false;
};

struct State {
  std::vector<WeekItem> byStart;
  double longest = 0;
  // The first date of each.
  std::vector<WeekItem> series;
  // Of the first appointment; of this machine for an empty calendar.
  vorn::OptionalText zone;
  // The Monday, counted from the first day of 1970.
  long week = 0;
  // What may stand in that week.
  std::vector<WeekItem> ofWeek;
  std::vector<WeekPiece> pieces;
  int lines = 0;
  // Whether all the lines are shown, which then scroll with the hours.
  bool isWide = false;
  // Of the first appointments, or one that somebody has looked for.
  bool hasWeek = false;
  // Of each day.
  std::array<int, kDaysShown> hidden{};
  std::optional<std::size_t> selected;
  // The date of a series was clicked, and not its first.
  bool isRepeatedSelected = false;
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

LocalClock clockOf(NSTimeZone* zone) {
  return LocalClock([zone](double seconds) {
    return static_cast<double>([zone secondsFromGMTForDate:[NSDate dateWithTimeIntervalSince1970:seconds]]);
  });
}

long dayOf(double seconds, double offset) {
  return static_cast<long>(std::floor((seconds + offset) / LocalClock::kDay));
}

WeekItem itemOf(const CalendarEvent& event, const vornlab::CalendarTime& start, const vornlab::CalendarTime& end) {
  WeekItem item;
  item.index = event.index();
  item.start = start.seconds;
  item.end = std::max(end.seconds, start.seconds);
  item.isAllDay = start.isAllDay;
  // A date is the same day everywhere, whatever zone the calendar is looked at in.
  item.firstDay = dayOf(start.seconds, start.offset);
  item.endDay = std::max(dayOf(end.seconds, end.offset), item.firstDay + 1);
  return item;
}

WeekItem movedTo(WeekItem item, double start) {
  const double days = std::round((start - item.start) / LocalClock::kDay);
  item.end += start - item.start;
  item.start = start;
  item.firstDay += static_cast<long>(days);
  item.endDay += static_cast<long>(days);
  return item;
}

}  // namespace

@interface vnWeekView ()
// Finds what stands in the week, and puts it into its places.
- (void)gather;
- (void)arrange;
- (void)beginNaming;
// Stores what was typed, and takes the field away.
- (void)endNaming;
- (void)dropNaming;
@end

@implementation vnWeekView
- (id)initWithController:(CCGridViewController*)controller {
  if (!(self = [super initWithFrame:NSMakeRect(0, 0, 1200, kNames + kLine + kHoursOfDay * kHourHeight)]))
    return nil;
  m_controller = controller;
  m_state = std::make_unique<State>().release();
  [self reload];
  return self;
}
- (void)dealloc {
  [m_named release];
  std::unique_ptr<State>(static_cast<State*>(m_state)).reset();
  [super dealloc];
}
- (State&)state {
  return *static_cast<State*>(m_state);
}
- (BOOL)isFlipped {
  return YES;
}
- (BOOL)acceptsFirstResponder {
  return YES;
}

// -- What it shows
- (void)reload {
  State& state = [self state];
  state.byStart.clear();
  state.series.clear();
  state.longest = 0;
  state.zone.reset();
  vornlab::CalendarStore* store = vornlab::shownStore();
  const std::vector<CalendarEvent> events = store ? store->events() : std::vector<CalendarEvent>();
  for (const CalendarEvent& event : events) {
    const auto start = event.start();
    const auto end = event.end();
    if (!start || !end) continue;
    if (!state.zone) state.zone = start->zone;
    const WeekItem item = itemOf(event, *start, *end);
    state.byStart.push_back(item);
    state.longest = std::max(state.longest, item.end - item.start);
    if (event.isRecurring() && !event.isException()) state.series.push_back(item);
  }
  std::sort(state.byStart.begin(), state.byStart.end(),
            [](const WeekItem& one, const WeekItem& other) { return one.start < other.start; });
  // An empty calendar has no week of its own until somebody looks for one.
  if (!state.hasWeek) {
    state.hasWeek = !state.byStart.empty();
    const double first =
        state.byStart.empty() ? [[NSDate date] timeIntervalSince1970] : state.byStart.front().start;
    state.week = clockOf([self zone]).monday(first);
  }
  [self gather];
}
- (void)showWeekOf:(double)seconds {
  [self endNaming];
  [self state].isWide = false;
  [self state].hasWeek = true;
  [self state].week = clockOf([self zone]).monday(seconds);
  [self gather];
}
- (NSTimeZone*)zone {
  const vorn::OptionalText& name = [self state].zone;
  NSTimeZone* zone = name ? [NSTimeZone timeZoneWithName:foundationText(name)] : nil;
  return zone ? zone : [NSTimeZone defaultTimeZone];
}
// The middle of a day of the week, in seconds since 1970.
- (double)noonOf:(int)day {
  return clockOf([self zone])
      .seconds(static_cast<double>([self state].week + day) * LocalClock::kDay + LocalClock::kDay / 2);
}
- (NSString*)title {
  return [NSString stringWithFormat:@"%@ – %@", formatted([self zone], [self noonOf:0], @"d MMMM"),
                                    formatted([self zone], [self noonOf:kDaysShown - 1], @"d MMMM yyyy")];
}
- (double)dayWidth {
  return ([self bounds].size.width - kTimes) / kDaysShown;
}
// The lines in which whole days stand themselves.
- (int)shownLines {
  const State& state = [self state];
  return state.isWide || state.lines <= kMostLines ? state.lines : kMostLines - 1;
}
- (double)daysHeight {
  const State& state = [self state];
  return kNames + kLine * std::clamp(state.lines, 1, state.isWide ? state.lines : kMostLines) + 4;
}
// The names of the days stay in sight, and as long as they are few the whole days with them.
- (double)wholeDaysTop {
  return ([self state].isWide ? 0 : [self visibleRect].origin.y) + kNames;
}
- (NSRect)placeOfMore:(int)day {
  return NSMakeRect(kTimes + day * [self dayWidth] + 2, [self wholeDaysTop] + [self shownLines] * kLine,
                    [self dayWidth] - 6, kLine - 2);
}
- (NSRect)placeOfFewer {
  return NSMakeRect(4, [self visibleRect].origin.y + 16, kTimes - 8, kLine);
}
- (BOOL)isSeen:(const WeekPiece&)piece {
  return !piece.item.isAllDay || piece.column < [self shownLines];
}
- (NSRect)placeOf:(const WeekPiece&)piece {
  const double left = kTimes + piece.day * [self dayWidth] + 2;
  if (piece.item.isAllDay) {
    return NSMakeRect(left, [self wholeDaysTop] + piece.column * kLine, piece.days * [self dayWidth] - 6,
                      kLine - 2);
  }
  const double width = ([self dayWidth] - 4) / piece.columns;
  return NSMakeRect(left + piece.column * width, [self daysHeight] + piece.top / kHour * kHourHeight + 1,
                    std::max(width - 2, 1.0), (piece.bottom - piece.top) / kHour * kHourHeight - 2);
}
- (void)gather {
  State& state = [self state];
  const LocalClock clock = clockOf([self zone]);
  // A day more on both sides, for days that begin elsewhere at another time.
  const double from = clock.seconds(static_cast<double>(state.week - 1) * LocalClock::kDay);
  const double until = clock.seconds(static_cast<double>(state.week + kDaysShown + 1) * LocalClock::kDay);
  std::vector<WeekItem>& items = state.ofWeek;
  items.clear();
  auto next = std::lower_bound(state.byStart.begin(), state.byStart.end(), from - state.longest,
                               [](const WeekItem& each, double start) { return each.start < start; });
  for (; next != state.byStart.end() && next->start < until; ++next) {
    if (next->end >= from) items.push_back(*next);
  }
  for (const WeekItem& first : state.series) {
    CalendarEvent event = vornlab::shownStore()->eventAt(first.index);
    for (const double start : event.startsWithin(from - (first.end - first.start), until)) {
      if (start == first.start) continue;
      items.push_back(movedTo(first, start));
      items.back().isRepeated = true;
    }
  }
  [self arrange];
}
- (void)arrange {
  State& state = [self state];
  const LocalClock clock = clockOf([self zone]);
  std::vector<WeekItem> items = state.ofWeek;
  for (WeekItem& item : items) {
    if (state.dragged && !item.isRepeated && state.dragged->before.index == item.index) item = state.dragged->now;
  }
  state.pieces = arrangeWeek(items, clock, state.week, (kLeastHeight + 2) / kHourHeight * kHour);
  state.lines = 0;
  for (const WeekPiece& piece : state.pieces) {
    if (piece.item.isAllDay) state.lines = std::max(state.lines, piece.columns);
  }
  state.isWide = state.isWide && state.lines > kMostLines;
  state.hidden = hiddenWholeDays(state.pieces, [self shownLines]);
  [self setFrameSize:NSMakeSize([self frame].size.width, [self daysHeight] + kHoursOfDay * kHourHeight)];
  [self setNeedsDisplay:YES];
}
- (void)drawGrid:(NSRect)dirty {
  const NSRect bounds = [self bounds];
  [[NSColor whiteColor] set];
  NSRectFill(dirty);
  for (int hour = 0; hour <= kHoursOfDay; ++hour) {
    const double y = [self daysHeight] + hour * kHourHeight;
    if (y + kLine < NSMinY(dirty) || y - kLine > NSMaxY(dirty)) continue;
    [gray(0.92) set];
    NSRectFill(NSMakeRect(kTimes, y, bounds.size.width - kTimes, 1));
    if (hour == 0 || hour == kHoursOfDay) continue;
    NSString* time = [NSString stringWithFormat:@"%d:00", hour];
    const double width = [time sizeWithAttributes:look(11, false, gray(0.5))].width;
    [time drawAtPoint:NSMakePoint(kTimes - width - 10, y - 8) withAttributes:look(11, false, gray(0.5))];
  }
  for (int day = 0; day < kDaysShown; ++day) {
    [gray(0.9) set];
    NSRectFill(NSMakeRect(kTimes + day * [self dayWidth] - 1, NSMinY(dirty), 1, NSHeight(dirty)));
  }
}
// The names of the days stay where they are while the hours scroll below them.
- (void)drawDays {
  const double top = [self visibleRect].origin.y;
  [[NSColor whiteColor] set];
  NSRectFill(NSMakeRect(0, top, [self bounds].size.width, kNames));
  if ([self state].isWide) {
    [gray(0.85) set];
    NSRectFill(NSMakeRect(0, top + kNames - 1, [self bounds].size.width, 1));
    [@"fewer" drawInRect:NSInsetRect([self placeOfFewer], 9, 2) withAttributes:look(11, false, accent())];
  }
  for (int day = 0; day < kDaysShown; ++day) {
    const double x = kTimes + day * [self dayWidth];
    const double noon = [self noonOf:day];
    [formatted([self zone], noon, @"EEE") drawAtPoint:NSMakePoint(x + 8, top + 4)
                                       withAttributes:look(11, false, gray(0.45))];
    [formatted([self zone], noon, @"d") drawAtPoint:NSMakePoint(x + 8, top + 18)
                                     withAttributes:look(15, true, gray(0.15))];
  }
}
- (void)drawAppointment:(const WeekPiece&)piece {
  const State& state = [self state];
  const CalendarEvent event = vornlab::shownStore()->eventAt(piece.item.index);
  const bool isSelected = state.selected == piece.item.index;
  const NSRect place = [self placeOf:piece];
  [(isSelected ? accent() : [accent() colorWithAlphaComponent:0.15]) set];
  if (place.size.width < kNarrow) {
    // Too narrow for a word among so many.
    NSRectFillUsingOperation(place, NSCompositeSourceOver);
    return;
  }
  NSBezierPath* shape = [NSBezierPath bezierPathWithRoundedRect:place xRadius:4 yRadius:4];
  [shape fill];
  // The dates of a series that have no event of their own bear a lighter mark.
  [(piece.item.isRepeated ? [accent() colorWithAlphaComponent:0.4] : accent()) set];
  NSRectFillUsingOperation(NSMakeRect(place.origin.x, place.origin.y + 2, 3, place.size.height - 4),
                           NSCompositeSourceOver);
  NSColor* ink = isSelected ? [NSColor whiteColor] : gray(0.12);
  NSRect text = NSInsetRect(place, 9, place.size.height < 24 ? 0.5 : 3);
  text.size.width += 6;
  [[NSGraphicsContext currentContext] saveGraphicsState];
  [NSBezierPath clipRect:text];
  NSString* subject = foundationText(event.summary());
  if (!subject) subject = @"Untitled";
  // What cannot fit need not be measured either.
  constexpr NSUInteger mostShown = 200;
  if ([subject length] > mostShown) {
    subject = [subject substringToIndex:[subject rangeOfComposedCharacterSequenceAtIndex:mostShown].location];
  }
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
- (void)drawWholeDays:(NSRect)dirty {
  const double top = [self wholeDaysTop];
  const NSRect place = NSMakeRect(0, top, [self bounds].size.width, [self daysHeight] - kNames);
  if (!NSIntersectsRect(dirty, place)) return;
  [[NSColor whiteColor] set];
  NSRectFill(NSIntersectionRect(dirty, place));
  [gray(0.85) set];
  NSRectFill(NSMakeRect(0, NSMaxY(place) - 1, NSWidth(place), 1));
  for (const WeekPiece& piece : [self state].pieces) {
    if (piece.item.isAllDay && [self isSeen:piece] && NSIntersectsRect(dirty, [self placeOf:piece]))
      [self drawAppointment:piece];
  }
  for (int day = 0; day < kDaysShown; ++day) {
    const int more = [self state].hidden[static_cast<std::size_t>(day)];
    if (more == 0) continue;
    const NSRect cell = [self placeOfMore:day];
    [[NSString stringWithFormat:@"and %d more", more] drawInRect:NSInsetRect(cell, 9, 2)
                                                  withAttributes:look(11, false, accent())];
  }
}
- (void)drawRect:(NSRect)dirty {
  [self drawGrid:dirty];
  for (const WeekPiece& piece : [self state].pieces) {
    if (!piece.item.isAllDay && NSIntersectsRect(dirty, [self placeOf:piece])) [self drawAppointment:piece];
  }
  [self drawWholeDays:dirty];
  if (NSMinY(dirty) < [self visibleRect].origin.y + kNames) [self drawDays];
}

// -- What a person does
- (ECCalendarEvent*)eventOf:(std::size_t)index {
  return [ECCalendarEvent eventOf:vornlab::Appointment(vornlab::shownStore(), index)];
}
- (OLCalendarGridViewWrapper*)wrapper {
  NSEnumerator* windows = [[NSApp windows] objectEnumerator];
  while (NSWindow* window = [windows nextObject]) {
    const id controller = [window windowController];
    if ([controller isKindOfClass:[ERageMainWindowController class]]) return [controller grid];
  }
  return nil;
}
// The uppermost at the point; null for none. Good until the week is arranged anew.
- (const WeekPiece*)pieceAt:(NSPoint)point {
  const std::vector<WeekPiece>& pieces = [self state].pieces;
  const double names = [self visibleRect].origin.y + kNames;
  if (point.y < names) return nullptr;
  const bool isAmongDays = point.y < [self wholeDaysTop] + [self daysHeight] - kNames;
  const auto found = std::find_if(pieces.rbegin(), pieces.rend(), [&](const WeekPiece& piece) {
    return piece.item.isAllDay == isAmongDays && [self isSeen:piece] && NSPointInRect(point, [self placeOf:piece]);
  });
  return found == pieces.rend() ? nullptr : &*found;
}
// One that goes over midnight has its start on the first day alone, and its end on the last.
- (Hold)holdAt:(NSPoint)point of:(const WeekPiece&)piece {
  if (piece.item.isAllDay) return Hold::whole;
  const NSRect place = [self placeOf:piece];
  const double edge = std::min(kEdge, NSHeight(place) / 4);
  const LocalClock clock = clockOf([self zone]);
  const double midnight = static_cast<double>([self state].week + piece.day) * LocalClock::kDay;
  if (point.y < NSMinY(place) + edge && clock.local(piece.item.start) >= midnight) return Hold::start;
  if (point.y > NSMaxY(place) - edge && clock.local(piece.item.end) <= midnight + LocalClock::kDay)
    return Hold::end;
  return Hold::whole;
}
- (NSRect)placeOfEvent:(std::size_t)index {
  for (const WeekPiece& piece : [self state].pieces) {
    if (piece.item.index == index && [self isSeen:piece]) return [self placeOf:piece];
  }
  return NSZeroRect;
}
// NO for a click on something else than what tells of more or fewer lines.
- (BOOL)widensAt:(NSPoint)point {
  State& state = [self state];
  bool isMeant = state.isWide && NSPointInRect(point, [self placeOfFewer]);
  for (int day = 0; day < kDaysShown; ++day) {
    isMeant |= state.hidden[static_cast<std::size_t>(day)] > 0 && NSPointInRect(point, [self placeOfMore:day]);
  }
  if (!isMeant) return NO;
  state.isWide = !state.isWide;
  [self arrange];
  if (state.isWide) [self scrollPoint:NSMakePoint(0, 0)];
  return YES;
}
- (NSSize)wayFrom:(double)seconds to:(double)otherSeconds {
  const LocalClock clock = clockOf([self zone]);
  const double way = clock.local(otherSeconds) - clock.local(seconds);
  const double days = std::floor(clock.local(otherSeconds) / LocalClock::kDay) -
                      std::floor(clock.local(seconds) / LocalClock::kDay);
  const double down = way - days * LocalClock::kDay;
  const bool isInWeek = clock.monday(otherSeconds) == [self state].week;
  if (!isInWeek || std::fmod(down, kStep) != 0) return NSMakeSize(0, HUGE_VAL);
  return NSMakeSize(days * [self dayWidth], down / kHour * kHourHeight);
}
- (void)mouseDown:(NSEvent*)event {
  [[self window] makeFirstResponder:self];
  // What is stored may move what lies under the mouse.
  [self endNaming];
  State& state = [self state];
  // Of a drag whose end was heard by somebody else, such as an alert.
  state.dragged.reset();
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  if ([self widensAt:point]) return;
  state.selected.reset();
  if (const WeekPiece* piece = [self pieceAt:point]) {
    state.selected = piece->item.index;
    state.isRepeatedSelected = piece->item.isRepeated;
    // A date of a series cannot be stored by itself.
    if (!piece->item.isRepeated)
      state.dragged = Dragged{piece->item, piece->item, [self holdAt:point of:*piece], point};
  }
  [m_controller setSelectedEvent:state.selected ? [self eventOf:*state.selected] : nil];
  [self setNeedsDisplay:YES];
  if ([event clickCount] < 2 || !state.selected) return;
  state.dragged.reset();
  vornlab::openEditorOf([m_controller selectedEvent]);
}
- (void)mouseDragged:(NSEvent*)event {
  State& state = [self state];
  if (!state.dragged) return;
  Dragged& dragged = *state.dragged;
  const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
  const double days = std::round((point.x - dragged.from.x) / [self dayWidth]) * LocalClock::kDay;
  double down = std::round((point.y - dragged.from.y) / kHourHeight * kHour / kStep) * kStep;
  const WeekItem& before = dragged.before;
  dragged.now = before;
  // It keeps its time by the clock, also on a day that has an hour more or less; whole days have their own zone.
  NSTimeZone* zone = before.isAllDay ? [[[m_controller selectedEvent] startTime] timeZone] : [self zone];
  const LocalClock clock = clockOf(zone);
  switch (dragged.hold) {
    // It gets no shorter than a step, and one that is shorter already stays as it is.
    case Hold::start:
      dragged.now.start =
          std::min(clock.seconds(clock.local(before.start) + down), std::max(before.start, before.end - kStep));
      break;
    case Hold::end:
      dragged.now.end =
          std::max(clock.seconds(clock.local(before.end) + down), std::min(before.end, before.start + kStep));
      break;
    case Hold::whole:
      if (before.isAllDay) down = 0;
      dragged.now = movedTo(before, clock.seconds(clock.local(before.start) + days + down));
      break;
  }
  dragged.hasMoved = dragged.hasMoved || dragged.now.start != before.start || dragged.now.end != before.end;
  [self arrange];
}
- (void)mouseUp:(NSEvent*)event {
  (void)event;
  State& state = [self state];
  if (!state.dragged) return;
  const Dragged dragged = *std::exchange(state.dragged, std::nullopt);
  if (!dragged.hasMoved) return;
  BOOL inProgress = YES;
  OLCalendarDate* was = [[m_controller selectedEvent] startTime];
  OLCalendarDate* start = [[[OLCalendarDate alloc] initWithSeconds:dragged.now.start
                                                              zone:[was timeZone]] autorelease];
  if (dragged.hold != Hold::whole) {
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
  // Where the host has not done it, it stands where it stood.
  [self arrange];
}
- (void)keyDown:(NSEvent*)event {
  const unichar key = [[event characters] length] > 0 ? [[event characters] characterAtIndex:0] : 0;
  if (![m_controller selectedEvent]) return [super keyDown:event];
  if (key == NSDeleteCharacter || key == NSDeleteFunctionKey || key == NSBackspaceCharacter) {
    // Nobody who looks at one date means all of them.
    if ([self state].isRepeatedSelected) return NSBeep();
    [[m_controller selectedEvent] deleteEventNow];
    [self state].selected.reset();
    [m_controller setSelectedEvent:nil];
  } else if (key == NSCarriageReturnCharacter) {
    [self beginNaming];
  } else {
    [super keyDown:event];
  }
}
- (void)beginNaming {
  const State& state = [self state];
  NSRect place = state.selected ? [self placeOfEvent:*state.selected] : NSZeroRect;
  if (NSIsEmptyRect(place)) return;
  constexpr double height = 24;
  constexpr double leastWidth = 80;
  place.size = NSMakeSize(std::max(place.size.width, leastWidth), height);
  m_named = [[m_controller selectedEvent] retain];
  m_nameField = [[[NSTextField alloc] initWithFrame:place] autorelease];
  NSString* subject = [m_named summary];
  [m_nameField setStringValue:subject ? subject : @""];
  [m_nameField setDelegate:static_cast<id>(self)];
  [m_nameField setTarget:self];
  [m_nameField setAction:@selector(named:)];
  [self addSubview:m_nameField];
  [[self window] makeFirstResponder:m_nameField];
}
- (void)dropNaming {
  // It may be in the middle of telling what was typed.
  NSTextField* field = [[m_nameField retain] autorelease];
  m_nameField = nil;
  [field setDelegate:nil];
  [field removeFromSuperview];
  [[m_named retain] autorelease];
  [m_named release];
  m_named = nil;
}
- (void)endNaming {
  if (!m_nameField) return;
  ECCalendarEvent* named = [[m_named retain] autorelease];
  [m_nameField validateEditing];
  NSString* subject = [[[m_nameField stringValue] retain] autorelease];
  [self dropNaming];
  NSString* before = [named summary];
  if ([subject isEqual:before ? before : @""]) return;
  // The host stores it for the one that is selected, which is another when the person has gone on already.
  ECCalendarEvent* selected = [[[m_controller selectedEvent] retain] autorelease];
  [m_controller setSelectedEvent:named];
  [[self wrapper] subjectChanged:subject forEvent:named andTileView:nil];
  [m_controller setSelectedEvent:selected];
}
- (void)named:(id)sender {
  (void)sender;
  [self endNaming];
  [[self window] makeFirstResponder:self];
}
// Whoever clicks elsewhere has typed all the same.
- (void)controlTextDidEndEditing:(NSNotification*)notification {
  if ([notification object] == m_nameField) [self endNaming];
}
- (BOOL)control:(NSControl*)control textView:(NSTextView*)view doCommandBySelector:(SEL)selector {
  (void)control;
  (void)view;
  if (!sel_isEqual(selector, @selector(cancelOperation:))) return NO;
  [self dropNaming];
  [[self window] makeFirstResponder:self];
  return YES;
}
- (IBAction)previousWeek:(id)sender {
  (void)sender;
  [self showWeekOf:[self noonOf:-kDaysShown]];
}
- (IBAction)nextWeek:(id)sender {
  (void)sender;
  [self showWeekOf:[self noonOf:kDaysShown]];
}
@end
