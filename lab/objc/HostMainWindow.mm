// The application and its main window, with the ribbon, the toolbar and the calendar's grid.

#import "lab/objc/HostClasses.h"

using vornlab::HostState;

@implementation ErageAppDelegate
- (void)newCalendarMeeting:(id)argument {
  (void)argument;
  [ERCalendarEventEditorWindowController showWindowForNewMeeting];
}
@end

@implementation CCGridViewController
- (id)init {
  if (!(self = [super init])) return nil;
  m_view = vornlab::newCalendarView(self);
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
  vornlab::AppointmentChanges changes;
  changes.start = [start time];
  changes.end = [[start dateByAddingTimeInterval:seconds] time];
  return [[m_controller selectedEvent] storeChanges:changes];
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
  vornlab::AppointmentChanges changes;
  changes.summary = vornlab::plainText(subject);
  return [[m_controller selectedEvent] storeChanges:changes];
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
- (id)init {
  if (!(self = [super initWithFrame:NSMakeRect(0, 700, 1200, 100)])) return nil;
  m_container = [[OUIRibbonChunkContainerView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 80)];
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
  constexpr CGFloat width = 120;
  CGFloat x = 0;
  for (const char* title : vornlab::hostState().ribbonChunks(static_cast<std::uint32_t>(tab))) {
    const NSRect frame = NSMakeRect(x, 0, width, 80);
    [m_container addSubview:[[[OUIRibbonChunkView alloc] initWithTitle:[NSString stringWithUTF8String:title]
                                                                 frame:frame] autorelease]];
    x += width;
  }
  [m_container drawRect:[m_container frame]];
}
@end

@implementation ERageMainWindowController
- (id)init {
  constexpr NSUInteger style =
      NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
  NSWindow* window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 1200, 800)
                                                  styleMask:style
                                                    backing:NSBackingStoreBuffered
                                                      defer:NO] autorelease];
  if (!(self = [super initWithWindow:window])) return nil;
  [window setReleasedWhenClosed:NO];
  m_grid = [[OLCalendarGridViewWrapper alloc] init];
  [[window contentView] addSubview:[[m_grid gridViewController] view]];
  if (vornlab::hostState().options.hasToolbar) {
    NSToolbar* toolbar = [[[NSToolbar alloc] initWithIdentifier:@"OLMainToolbar"] autorelease];
    [toolbar setDelegate:static_cast<id>(self)];
    [window setToolbar:toolbar];
  }
  [self rebuildRibbon];
  vornlab::fillMainWindow(self);
  return self;
}
- (void)dealloc {
  [[[self window] toolbar] setDelegate:nil];
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
- (void)rebuildRibbon {
  const NSUInteger tab = m_ribbon ? [m_ribbon activeTabIndex] : HostState::kCalendarTab;
  [m_ribbon removeFromSuperview];
  [m_ribbon release];
  m_ribbon = [[OUIRibbonView alloc] init];
  [[[self window] contentView] addSubview:m_ribbon];
  [m_ribbon setActiveTabIndex:tab];
}
- (void)windowDidBecomeMain:(NSNotification*)notification {
  (void)notification;
}
- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
}
- (void)loadMailPane {
  [m_ribbon setActiveTabIndex:HostState::kMailTab];
}
- (void)loadCalendarPane {
  [m_ribbon setActiveTabIndex:HostState::kCalendarTab];
}
// The host knows its own items and makes no other.
- (NSArray*)toolbarDefaultItemIdentifiers:(id)toolbar {
  (void)toolbar;
  NSMutableArray* identifiers = [NSMutableArray array];
  for (const std::string& identifier : vornlab::hostState().options.toolbar)
    [identifiers addObject:vornlab::foundationText(std::string_view(identifier))];
  return identifiers;
}
- (NSArray*)toolbarAllowedItemIdentifiers:(id)toolbar {
  NSArray* own = [self toolbarDefaultItemIdentifiers:toolbar];
  NSString* wanted = vornlab::insertedToolbarItem();
  return wanted ? [own arrayByAddingObject:wanted] : own;
}
- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)isInserted {
  (void)isInserted;
  const bool isKnown = [[self toolbarDefaultItemIdentifiers:toolbar] containsObject:identifier] ||
                       [identifier hasPrefix:@"NSToolbar"];
  if (!isKnown) return nil;
  NSToolbarItem* item = [[[NSToolbarItem alloc] initWithItemIdentifier:identifier] autorelease];
  if ([identifier isEqual:@"OLNewItem"]) {
    [item setLabel:@"New"];
    [item setTarget:[[NSApplication sharedApplication] delegate]];
    [item setAction:@selector(newCalendarMeeting:)];
  } else if ([identifier isEqual:@"OLSearchItem"]) {
    [item setLabel:@"Search"];
  }
  return item;
}
@end

namespace vornlab {

NSString*& insertedToolbarItem() {
  static NSString* identifier = nil;
  return identifier;
}

}  // namespace vornlab
