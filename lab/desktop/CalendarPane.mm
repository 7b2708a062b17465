#import "lab/desktop/CalendarPane.h"

#import "lab/desktop/Controls.h"

namespace {

constexpr double kWidth = 1200;
constexpr double kHeight = 700;
constexpr double kStrip = 56;
constexpr double kFirstHour = 8;

vnCalendarPane* shown = nil;

}  // namespace

@interface vnCalendarPane ()
- (double)addButton:(NSString*)title x:(double)x action:(SEL)action;
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
  x = [self addButton:@"New appointment" x:x action:@selector(newAppointment:)];
  x = [self addButton:@"‹" x:x + 14 action:@selector(previousWeek:)];
  x = [self addButton:@"›" x:x action:@selector(nextWeek:)];
  m_title = vornlab::label(@"", NSMakeRect(x + 8, kHeight - kStrip + 14, 360, 28));
  [m_title setFont:[NSFont boldSystemFontOfSize:17]];
  [m_title setAutoresizingMask:NSViewMinYMargin];
  [self addSubview:m_title];
  m_save = vornlab::pushButton(@"Save to file", self, @selector(saveFile:), NSMakePoint(0, kHeight - kStrip + 13));
  [m_save setFrameOrigin:NSMakePoint(kWidth - 20 - NSWidth([m_save frame]), NSMinY([m_save frame]))];
  [m_save setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
  [self addSubview:m_save];
  NSButton* client =
      vornlab::pushButton(@"Client", self, @selector(showClient:), NSMakePoint(0, NSMinY([m_save frame])));
  [client
      setFrameOrigin:NSMakePoint(NSMinX([m_save frame]) - 10 - NSWidth([client frame]), NSMinY([m_save frame]))];
  [client setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
  [self addSubview:client];
  [m_week scrollPoint:NSMakePoint(0, kFirstHour * 48)];
  shown = self;
  [self reload];
  return self;
}
- (void)dealloc {
  if (shown == self) shown = nil;
  [super dealloc];
}
- (double)addButton:(NSString*)title x:(double)x action:(SEL)action {
  NSButton* button = vornlab::pushButton(title, self, action, NSMakePoint(x, kHeight - kStrip + 13));
  [self addSubview:button];
  return NSMaxX([button frame]) + 6;
}
- (vnWeekView*)week {
  return m_week;
}
- (void)reload {
  [m_week reload];
  [self showTitle];
  const vornlab::CalendarFile* file = vornlab::shownCalendarFile();
  [m_save setHidden:!file];
  [m_save setEnabled:file && file->isChanged()];
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
  [[self window] makeFirstResponder:nil];
  if (vornlab::shownCalendarFile()) vornlab::shownCalendarFile()->save();
  [self reload];
}
- (void)showClient:(id)sender {
  (void)sender;
  const auto open = vornlab::showClientWindow();
  if (open) open();
}
@end

namespace vornlab {

vnCalendarPane* shownPane() { return shown; }

CalendarFile*& shownCalendarFile() {
  static CalendarFile* file = nullptr;
  return file;
}

std::function<void()>& showClientWindow() {
  static std::function<void()> open;
  return open;
}

}  // namespace vornlab
