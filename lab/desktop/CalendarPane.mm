#import "lab/desktop/CalendarPane.h"

namespace {

constexpr double kWidth = 1200;
constexpr double kHeight = 700;
constexpr double kStrip = 56;
constexpr double kFirstHour = 8;

vnCalendarPane* shown = nil;

}  // namespace

@interface vnCalendarPane ()
- (double)addButton:(NSString*)title x:(double)x target:(id)target action:(SEL)action;
- (void)showTitle;
@end

@implementation vnCalendarPane
- (id)initWithController:(CCGridViewController*)controller {
  if (!(self = [super initWithFrame:NSMakeRect(0, 0, kWidth, kHeight)])) return nil;
  [self setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  NSScrollView* scroll =
      [[[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, kWidth, kHeight - kStrip)] autorelease];
  [scroll setBorderType:NSNoBorder];
  [scroll setHasVerticalScroller:YES];
  [[scroll verticalScroller] setArrowsPosition:NSScrollerArrowsNone];
  [scroll setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  [[scroll contentView] setCopiesOnScroll:NO];
  m_week = [[[vnWeekView alloc] initWithController:controller] autorelease];
  [m_week setFrameSize:NSMakeSize([scroll contentSize].width, [m_week frame].size.height)];
  [m_week setAutoresizingMask:NSViewWidthSizable];
  [scroll setDocumentView:m_week];
  [self addSubview:scroll];
  double x = 20;
  x = [self addButton:@"New appointment" x:x target:self action:@selector(newAppointment:)];
  x = [self addButton:@"‹" x:x + 14 target:self action:@selector(previousWeek:)];
  x = [self addButton:@"›" x:x target:self action:@selector(nextWeek:)];
  m_title = [[[NSTextField alloc] initWithFrame:NSMakeRect(x + 8, kHeight - kStrip + 14, 360, 28)] autorelease];
  [m_title setEditable:NO];
  [m_title setBezeled:NO];
  [m_title setBordered:NO];
  [m_title setDrawsBackground:NO];
  [m_title setFont:[NSFont boldSystemFontOfSize:17]];
  [m_title setAutoresizingMask:NSViewMinYMargin];
  [self addSubview:m_title];
  m_save = [[[NSButton alloc] initWithFrame:NSMakeRect(kWidth - 150, kHeight - kStrip + 13, 130, 30)] autorelease];
  [m_save setTitle:@"Save to file"];
  [m_save setBezelStyle:NSRoundedBezelStyle];
  [m_save setTarget:self];
  [m_save setAction:@selector(saveFile:)];
  [m_save setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
  [self addSubview:m_save];
  [m_week scrollPoint:NSMakePoint(0, kFirstHour * 48)];
  shown = self;
  [self reload];
  return self;
}
- (void)dealloc {
  if (shown == self) shown = nil;
  [super dealloc];
}
- (double)addButton:(NSString*)title x:(double)x target:(id)target action:(SEL)action {
  NSButton* button = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
  [button setTitle:title];
  [button setBezelStyle:NSRoundedBezelStyle];
  [button setTarget:target];
  [button setAction:action];
  const double width = [[button cell] cellSize].width + 22;
  [button setFrame:NSMakeRect(x, kHeight - kStrip + 13, width, 30)];
  [button setAutoresizingMask:NSViewMinYMargin];
  [self addSubview:button];
  return x + width + 6;
}
- (vnWeekView*)week {
  return m_week;
}
- (void)reload {
  [m_week reload];
  [self showTitle];
  vornlab::CalendarStore* store = vornlab::shownStore();
  [m_save setHidden:!vornlab::saveCalendarFile()];
  [m_save setEnabled:store && store->isChanged()];
}
- (void)showTitle {
  [m_title setStringValue:[m_week title]];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [[NSColor gridColor] set];
  NSRectFill(NSMakeRect(0, [self bounds].size.height - kStrip, [self bounds].size.width, 1));
}
- (void)newAppointment:(id)sender {
  [[NSApp delegate] performSelector:@selector(newCalendarMeeting:) withObject:sender];
}
- (void)previousWeek:(id)sender {
  [m_week previousWeek:sender];
  [self showTitle];
}
- (void)nextWeek:(id)sender {
  [m_week nextWeek:sender];
  [self showTitle];
}
- (void)saveFile:(id)sender {
  (void)sender;
  const auto save = vornlab::saveCalendarFile();
  if (save) save();
  [self reload];
}
@end

namespace vornlab {

vnCalendarPane* shownPane() { return shown; }

std::function<void()>& saveCalendarFile() {
  static std::function<void()> save;
  return save;
}

}  // namespace vornlab
