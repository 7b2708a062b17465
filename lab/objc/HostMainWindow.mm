// The application and its main window, with the ribbon, the toolbar and the calendar's grid.

#import "lab/objc/HostControls.h"

namespace {

enum Tab : NSUInteger { kMailTab = 0, kCalendarTab = 2 };

}  // namespace

@implementation NSEvent
- (id)initWithWindow:(NSWindow*)window {
  if (!(self = [super init])) return nil;
  m_window = [window retain];
  return self;
}
- (void)dealloc {
  [m_window release];
  [super dealloc];
}
- (NSWindow*)window {
  return m_window;
}
@end

@implementation ErageAppDelegate
- (void)newCalendarMeeting:(id)argument {
  (void)argument;
  [ERCalendarEventEditorWindowController showWindowForNewMeeting];
}
@end

@implementation NSApplication
+ (NSApplication*)sharedApplication {
  static NSApplication* application = [[NSApplication alloc] init];
  return application;
}
- (id)init {
  if (!(self = [super init])) return nil;
  m_delegate = [[ErageAppDelegate alloc] init];
  return self;
}
- (BOOL)isActive {
  return YES;
}
- (NSArray*)windows {
  NSMutableArray* windows = [NSMutableArray array];
  if (m_mainWindow) [windows addObject:m_mainWindow];
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (NSWindowController* controller = [open nextObject]) [windows addObject:[controller window]];
  return windows;
}
- (void)setMainWindow:(NSWindow*)window {
  m_mainWindow = window;
}
- (NSEvent*)currentEvent {
  return m_currentEvent;
}
- (void)setCurrentEvent:(NSEvent*)event {
  [event retain];
  [m_currentEvent release];
  m_currentEvent = event;
}
- (ErageAppDelegate*)delegate {
  return m_delegate;
}
@end

@implementation CCGridViewController
- (id)init {
  if (!(self = [super init])) return nil;
  m_view = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 700)];
  return self;
}
- (void)dealloc {
  [m_view release];
  [m_selectedEvent release];
  [super dealloc];
}
- (NSView*)view {
  return m_view;
}
- (ECCalendarEvent*)selectedEvent {
  return m_selectedEvent;
}
- (void)setSelectedEvent:(ECCalendarEvent*)event {
  [event retain];
  [m_selectedEvent release];
  m_selectedEvent = event;
}
@end

@implementation OLCalendarGridViewWrapper
- (id)init {
  if (!(self = [super init])) return nil;
  m_controller = [[CCGridViewController alloc] init];
  return self;
}
- (void)dealloc {
  [m_controller release];
  [super dealloc];
}
- (CCGridViewController*)gridViewController {
  return m_controller;
}
- (BOOL)storeStart:(OLCalendarDate*)start seconds:(double)seconds inProgress:(BOOL*)inProgress {
  if (inProgress) *inProgress = NO;
  NSDictionary* times = [NSDictionary
      dictionaryWithObjectsAndKeys:start, @"startTime", [start dateByAddingTimeInterval:seconds], @"endTime", nil];
  return [[m_controller selectedEvent] storeChanges:times];
}
- (BOOL)dragResizedEvent:(ECCalendarEvent*)event
            withTileView:(NSView*)tile
           withStartDate:(OLCalendarDate*)start
                duration:(double)seconds
              inProgress:(BOOL*)inProgress
            partialStart:(BOOL)partialStart
              partialEnd:(BOOL)partialEnd {
  (void)event;
  (void)tile;
  (void)partialStart;
  (void)partialEnd;
  return [self storeStart:start seconds:seconds inProgress:inProgress];
}
- (BOOL)performDragFrom:(id)from to:(id)to forDate:(OLCalendarDate*)start inProgress:(BOOL*)inProgress {
  (void)from;
  (void)to;
  return [self storeStart:start seconds:[[m_controller selectedEvent] duration] inProgress:inProgress];
}
- (BOOL)subjectChanged:(NSString*)subject forEvent:(ECCalendarEvent*)event andTileView:(NSView*)tile {
  (void)event;
  (void)tile;
  return [[m_controller selectedEvent] storeChanges:[NSDictionary dictionaryWithObject:subject forKey:@"summary"]];
}
@end

@implementation OUIRibbonChunkView
- (id)initWithTitle:(NSString*)title frame:(NSRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  m_title = [title copy];
  return self;
}
- (void)dealloc {
  [m_title release];
  [super dealloc];
}
- (NSAttributedString*)attributedTitle {
  return [[[NSAttributedString alloc] initWithString:m_title] autorelease];
}
- (NSString*)title {
  return m_title;
}
@end

@implementation OUIRibbonChunkContainerView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
@end

@implementation OUIRibbonView
- (id)initWithAddins:(BOOL)hasAddins {
  if (!(self = [super initWithFrame:NSMakeRect(0, 700, 1200, 100)])) return nil;
  m_container = [[OUIRibbonChunkContainerView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 80)];
  m_hasAddins = hasAddins;
  [self addSubview:m_container];
  return self;
}
- (void)dealloc {
  [m_container release];
  [super dealloc];
}
- (OUIRibbonChunkContainerView*)container {
  return m_container;
}
- (NSUInteger)activeTabIndex {
  return m_tab;
}
- (void)setActiveTabIndex:(NSUInteger)tab {
  m_tab = tab;
  // The host takes out what it has put in, and nothing else.
  NSEnumerator* before = [[m_container subviews] objectEnumerator];
  while (NSView* view = [before nextObject]) {
    if ([view isMemberOfClass:[OUIRibbonChunkView class]]) [view removeFromSuperview];
  }
  NSArray* titles = tab == kMailTab ? [NSArray arrayWithObjects:@"New", @"Delete", @"Respond", nil]
                                    : [NSArray arrayWithObjects:@"New", @"Arrange", nil];
  if (tab == kMailTab && m_hasAddins) titles = [titles arrayByAddingObject:@"Add-ins"];
  constexpr CGFloat width = 120;
  CGFloat x = 0;
  NSEnumerator* wanted = [titles objectEnumerator];
  while (NSString* title = [wanted nextObject]) {
    [m_container addSubview:[[[OUIRibbonChunkView alloc] initWithTitle:title
                                                                 frame:NSMakeRect(x, 0, width, 80)] autorelease]];
    x += width;
  }
  [m_container drawRect:[m_container frame]];
}
@end

@implementation ERageMainWindowController
- (id)init {
  if (!(self = [super init])) return nil;
  m_window = [[NSWindow alloc] initWithController:self contentFrame:NSMakeRect(0, 0, 1200, 800)];
  m_grid = [[OLCalendarGridViewWrapper alloc] init];
  [[m_window contentView] addSubview:[[m_grid gridViewController] view]];
  NSToolbar* toolbar = [[[NSToolbar alloc] initWithDelegate:self] autorelease];
  [m_window setToolbar:toolbar];
  NSEnumerator* identifiers = [[self toolbarDefaultItemIdentifiers:toolbar] objectEnumerator];
  while (NSString* identifier = [identifiers nextObject]) {
    [toolbar insertItemWithItemIdentifier:identifier atIndex:static_cast<NSInteger>([[toolbar items] count])];
  }
  [self rebuildRibbonWithAddins:YES];
  [[NSApplication sharedApplication] setMainWindow:m_window];
  return self;
}
- (void)dealloc {
  [[NSApplication sharedApplication] setMainWindow:nil];
  [m_grid release];
  [m_ribbon release];
  [super dealloc];
}
- (OLCalendarGridViewWrapper*)grid {
  return m_grid;
}
- (OUIRibbonView*)ribbon {
  return m_ribbon;
}
- (void)rebuildRibbonWithAddins:(BOOL)hasAddins {
  const NSUInteger tab = m_ribbon ? [m_ribbon activeTabIndex] : kCalendarTab;
  [m_ribbon removeFromSuperview];
  [m_ribbon release];
  m_ribbon = [[OUIRibbonView alloc] initWithAddins:hasAddins];
  [[m_window contentView] addSubview:m_ribbon];
  [m_ribbon setActiveTabIndex:tab];
}
- (void)windowDidBecomeMain:(NSNotification*)notification {
  (void)notification;
}
- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
}
- (void)loadMailPane {
  [m_ribbon setActiveTabIndex:kMailTab];
}
- (void)loadCalendarPane {
  [m_ribbon setActiveTabIndex:kCalendarTab];
}
// The host knows its own items and makes no other.
- (NSArray*)toolbarDefaultItemIdentifiers:(id)toolbar {
  (void)toolbar;
  return [NSArray arrayWithObjects:@"OLNewItem", @"NSToolbarFlexibleSpaceItem", @"OLSearchItem", nil];
}
- (NSArray*)toolbarAllowedItemIdentifiers:(id)toolbar {
  return [self toolbarDefaultItemIdentifiers:toolbar];
}
- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)isInserted {
  (void)isInserted;
  const bool isKnown = [[self toolbarDefaultItemIdentifiers:toolbar] containsObject:identifier] ||
                       [identifier hasPrefix:@"NSToolbar"];
  return isKnown ? [[[NSToolbarItem alloc] initWithItemIdentifier:identifier] autorelease] : nil;
}
@end
