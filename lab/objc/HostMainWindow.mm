// The application and its main window, with the toolbar and the calendar's grid.

#include "lab/objc/HostClasses.h"

@implementation NSEvent
- (id)initWithWindow:(NSWindow*)window {
  if (!(self = [super init])) return nil;
  window_ = [window retain];
  return self;
}
- (void)dealloc {
  [window_ release];
  [super dealloc];
}
- (NSWindow*)window {
  return window_;
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
  delegate_ = [[ErageAppDelegate alloc] init];
  return self;
}
- (BOOL)isActive {
  return YES;
}
- (NSArray*)windows {
  NSMutableArray* windows = [NSMutableArray array];
  if (mainWindow_) [windows addObject:mainWindow_];
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (NSWindowController* controller = [open nextObject]) [windows addObject:[controller window]];
  return windows;
}
- (void)setMainWindow:(NSWindow*)window {
  mainWindow_ = window;
}
- (NSEvent*)currentEvent {
  return currentEvent_;
}
- (void)setCurrentEvent:(NSEvent*)event {
  [event retain];
  [currentEvent_ release];
  currentEvent_ = event;
}
- (ErageAppDelegate*)delegate {
  return delegate_;
}
@end

@implementation CCGridViewController
- (id)init {
  if (!(self = [super init])) return nil;
  view_ = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 700)];
  return self;
}
- (void)dealloc {
  [view_ release];
  [selectedEvent_ release];
  [super dealloc];
}
- (NSView*)view {
  return view_;
}
- (ECCalendarEvent*)selectedEvent {
  return selectedEvent_;
}
- (void)setSelectedEvent:(ECCalendarEvent*)event {
  [event retain];
  [selectedEvent_ release];
  selectedEvent_ = event;
}
@end

@implementation OLCalendarGridViewWrapper
- (id)init {
  if (!(self = [super init])) return nil;
  controller_ = [[CCGridViewController alloc] init];
  return self;
}
- (void)dealloc {
  [controller_ release];
  [super dealloc];
}
- (CCGridViewController*)gridViewController {
  return controller_;
}
- (BOOL)storeStart:(OLCalendarDate*)start seconds:(double)seconds inProgress:(BOOL*)inProgress {
  if (inProgress) *inProgress = NO;
  NSDictionary* times = [NSDictionary
      dictionaryWithObjectsAndKeys:start, @"startTime", [start dateByAddingTimeInterval:seconds], @"endTime", nil];
  return [[controller_ selectedEvent] storeChanges:times];
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
  return [self storeStart:start seconds:[[controller_ selectedEvent] duration] inProgress:inProgress];
}
- (BOOL)subjectChanged:(NSString*)subject forEvent:(ECCalendarEvent*)event andTileView:(NSView*)tile {
  (void)event;
  (void)tile;
  return [[controller_ selectedEvent] storeChanges:[NSDictionary dictionaryWithObject:subject forKey:@"summary"]];
}
@end

@implementation ERageMainWindowController
- (id)init {
  if (!(self = [super init])) return nil;
  window_ = [[NSWindow alloc] initWithController:self contentFrame:NSMakeRect(0, 0, 1200, 800)];
  grid_ = [[OLCalendarGridViewWrapper alloc] init];
  [[window_ contentView] addSubview:[[grid_ gridViewController] view]];
  NSToolbar* toolbar = [[[NSToolbar alloc] initWithDelegate:self] autorelease];
  [window_ setToolbar:toolbar];
  NSEnumerator* identifiers = [[self toolbarDefaultItemIdentifiers:toolbar] objectEnumerator];
  while (NSString* identifier = [identifiers nextObject]) {
    [toolbar insertItemWithItemIdentifier:identifier atIndex:static_cast<NSInteger>([[toolbar items] count])];
  }
  [[NSApplication sharedApplication] setMainWindow:window_];
  return self;
}
- (void)dealloc {
  [[NSApplication sharedApplication] setMainWindow:nil];
  [grid_ release];
  [super dealloc];
}
- (OLCalendarGridViewWrapper*)grid {
  return grid_;
}
- (void)windowDidBecomeMain:(NSNotification*)notification {
  (void)notification;
}
- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
}
- (void)loadMailPane {
}
- (void)loadCalendarPane {
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
