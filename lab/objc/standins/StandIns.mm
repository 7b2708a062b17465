#import "lab/objc/standins/StandIns.h"

#include <utility>

namespace {

// What the person chooses in the next menu that opens, and whether it was there to be chosen.
NSMenuItem* nextChoice = nil;
bool hasChosen = false;

template <typename Object>
void replace(Object*& held, Object* given) {
  [given retain];
  [held release];
  held = given;
}

void replaceText(NSString*& held, NSString* given) {
  NSString* before = held;
  held = [given copy];
  [before release];
}

std::string plainText(NSString* text) { return text ? [text UTF8String] : ""; }

void refuse(NSString* reason) { [NSException raise:NSInvalidArgumentException format:@"%@", reason]; }

// By their classes. It never ends, for views end as late as the process.
NSCountedSet* livingClasses() {
  static NSCountedSet* classes = [[NSCountedSet alloc] init];
  return classes;
}

// Those that have not closed, by address: a window that has ended takes itself out.
NSMutableArray* openWindows() {
  static NSMutableArray* windows = [[NSMutableArray alloc] init];
  return windows;
}

}  // namespace

@implementation NSView
- (id)init {
  return [self initWithFrame:NSZeroRect];
}
- (id)initWithFrame:(NSRect)frame {
  if (!(self = [super init])) return nil;
  m_frame = frame;
  m_subviews = [[NSMutableArray alloc] init];
  [livingClasses() addObject:[self class]];
  return self;
}
- (void)dealloc {
  [livingClasses() removeObject:[self class]];
  // A view that somebody else holds outlives its superview. No pool need stand here: one may end with the process.
  for (NSUInteger i = 0; i < [m_subviews count]; ++i)
    static_cast<NSView*>([m_subviews objectAtIndex:i])->m_superview = nil;
  [m_subviews release];
  [m_menu release];
  [m_toolTip release];
  [super dealloc];
}
- (NSRect)frame {
  return m_frame;
}
- (void)setFrame:(NSRect)frame {
  m_frame = frame;
}
- (BOOL)isHidden {
  return m_hidden;
}
- (void)setHidden:(BOOL)hidden {
  m_hidden = hidden;
}
- (NSView*)superview {
  return m_superview;
}
- (NSWindow*)window {
  return m_window ? m_window : [m_superview window];
}
- (void)setWindow:(NSWindow*)window {
  m_window = window;
}
- (NSArray*)subviews {
  return [NSArray arrayWithArray:m_subviews];
}
- (void)addSubview:(NSView*)view {
  if (!view || view == self) return;
  [[view retain] autorelease];
  [view removeFromSuperview];
  [m_subviews addObject:view];
  view->m_superview = self;
}
- (void)removeFromSuperview {
  NSView* superview = m_superview;
  m_superview = nil;
  if (superview) [superview->m_subviews removeObjectIdenticalTo:self];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
}
- (void)setNeedsDisplay:(BOOL)needsDisplay {
  (void)needsDisplay;
}
- (NSView*)hitTest:(NSPoint)point {
  if (m_hidden || !NSPointInRect(point, m_frame)) return nil;
  const NSPoint below = NSMakePoint(point.x - m_frame.origin.x, point.y - m_frame.origin.y);
  NSEnumerator* fromTheFront = [m_subviews reverseObjectEnumerator];
  while (NSView* view = [fromTheFront nextObject]) {
    if (NSView* hit = [view hitTest:below]) return hit;
  }
  return self;
}
- (void)mouseDown:(NSEvent*)event {
  (void)event;
}
- (NSMenu*)menu {
  return m_menu;
}
- (void)setMenu:(NSMenu*)menu {
  replace(m_menu, menu);
}
- (NSString*)toolTip {
  return m_toolTip;
}
- (void)setToolTip:(NSString*)text {
  replaceText(m_toolTip, text);
}
@end

@implementation NSTextField
- (void)dealloc {
  [m_text release];
  [super dealloc];
}
- (BOOL)isEditable {
  return YES;
}
- (void)setEditable:(BOOL)editable {
  (void)editable;
}
- (void)setBezeled:(BOOL)bezeled {
  (void)bezeled;
}
- (void)setDrawsBackground:(BOOL)drawsBackground {
  (void)drawsBackground;
}
- (NSString*)stringValue {
  return m_text ? m_text : @"";
}
- (void)setStringValue:(NSString*)text {
  replaceText(m_text, text);
}
@end

@implementation NSImage
- (id)initWithContentsOfFile:(NSString*)path {
  if ((self = [super init]) && [[NSFileManager defaultManager] isReadableFileAtPath:path]) return self;
  [self release];
  return nil;
}
- (void)dealloc {
  [m_name release];
  [super dealloc];
}
- (NSString*)name {
  return m_name;
}
- (BOOL)setName:(NSString*)name {
  replaceText(m_name, name);
  return YES;
}
@end

@implementation HostItem
- (SEL)action {
  return m_action;
}
- (void)setAction:(SEL)action {
  m_action = action;
}
- (id)target {
  return m_target;
}
- (void)setTarget:(id)target {
  m_target = target;
}
- (BOOL)isEnabled {
  return !m_disabled;
}
- (void)setEnabled:(BOOL)enabled {
  m_disabled = !enabled;
}
@end

@implementation NSMenuItem
- (id)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key {
  (void)key;
  if (!(self = [super init])) return nil;
  m_title = [title copy];
  m_action = action;
  return self;
}
- (void)dealloc {
  [m_title release];
  [super dealloc];
}
- (NSString*)title {
  return m_title;
}
- (NSInteger)tag {
  return m_tag;
}
- (void)setTag:(NSInteger)tag {
  m_tag = tag;
}
@end

@implementation NSMenu
// The menu stands until the person has chosen, which is at once here.
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view {
  (void)item;
  (void)location;
  (void)view;
  NSMenuItem* chosen = nextChoice;
  nextChoice = nil;
  hasChosen = [m_items containsObject:chosen] && [chosen isEnabled];
  if (hasChosen) [[chosen target] performSelector:[chosen action] withObject:chosen];
  return hasChosen;
}
- (id)initWithTitle:(NSString*)title {
  if (!(self = [super init])) return nil;
  m_title = [title copy];
  m_items = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_title release];
  [m_items release];
  [super dealloc];
}
- (NSString*)title {
  return m_title;
}
- (void)addItem:(NSMenuItem*)item {
  [m_items addObject:item];
}
- (NSArray*)itemArray {
  return [NSArray arrayWithArray:m_items];
}
@end

@implementation NSImageView
- (void)dealloc {
  [m_image release];
  [super dealloc];
}
- (NSImage*)image {
  return m_image;
}
- (void)setImage:(NSImage*)image {
  replace(m_image, image);
}
@end

@implementation NSButton
- (void)dealloc {
  [m_title release];
  [m_image release];
  [super dealloc];
}
- (NSString*)title {
  return m_title;
}
- (void)setTitle:(NSString*)title {
  replaceText(m_title, title);
}
- (NSInteger)state {
  return m_state;
}
- (void)setState:(NSInteger)state {
  m_state = state;
}
- (NSImage*)image {
  return m_image;
}
- (void)setImage:(NSImage*)image {
  replace(m_image, image);
}
- (void)setImagePosition:(NSUInteger)position {
  (void)position;
}
- (SEL)action {
  return m_action;
}
- (void)setAction:(SEL)action {
  m_action = action;
}
- (id)target {
  return m_target;
}
- (void)setTarget:(id)target {
  m_target = target;
}
- (BOOL)isEnabled {
  return !m_disabled;
}
- (void)setEnabled:(BOOL)enabled {
  m_disabled = !enabled;
}
- (void)mouseDown:(NSEvent*)event {
  (void)event;
  if (!m_disabled) [m_target performSelector:m_action withObject:self];
}
@end

@implementation NSWindow
- (id)initWithContentRect:(NSRect)frame styleMask:(NSUInteger)style backing:(NSUInteger)backing defer:(BOOL)defer {
  (void)style;
  (void)backing;
  (void)defer;
  if (!(self = [super init])) return nil;
  [openWindows() addObject:[NSValue valueWithNonretainedObject:self]];
  m_contentView = [[NSView alloc] initWithFrame:frame];
  [m_contentView setWindow:self];
  return self;
}
- (void)dealloc {
  [openWindows() removeObject:[NSValue valueWithNonretainedObject:self]];
  [m_contentView setWindow:nil];
  [m_contentView release];
  [m_toolbar release];
  [super dealloc];
}
- (void)setReleasedWhenClosed:(BOOL)released {
  (void)released;
}
- (id)windowController {
  return m_controller;
}
- (void)setWindowController:(id)controller {
  m_controller = controller;
}
- (void)setDelegate:(id)delegate {
  (void)delegate;
}
- (void)setTitle:(NSString*)title {
  (void)title;
}
- (NSView*)contentView {
  return m_contentView;
}
- (NSToolbar*)toolbar {
  return m_toolbar;
}
- (void)setToolbar:(NSToolbar*)toolbar {
  replace(m_toolbar, toolbar);
  [toolbar bringInDefaultItems];
}
- (BOOL)isVisible {
  return !m_closed;
}
- (void)makeKeyAndOrderFront:(id)sender {
  (void)sender;
}
- (void)makeMainWindow {
}
- (void)center {
}
- (void)close {
  if (m_closed) return;
  m_closed = YES;
  [openWindows() removeObject:[NSValue valueWithNonretainedObject:self]];
  [[NSNotificationCenter defaultCenter] postNotificationName:@"NSWindowWillCloseNotification" object:self];
}
@end

@implementation NSPanel
- (void)dealloc {
  const BOOL wasOnScreen = m_onScreen;
  [super dealloc];
  if (wasOnScreen) refuse(@"a panel has gone that was on the screen");
}
- (void)orderFront:(id)sender {
  (void)sender;
  m_onScreen = YES;
}
- (void)orderOut:(id)sender {
  (void)sender;
  m_onScreen = NO;
  [self close];
}
@end

@implementation NSWindowController
- (id)initWithWindow:(NSWindow*)window {
  if (!(self = [super init])) return nil;
  m_window = [window retain];
  [window setWindowController:self];
  return self;
}
- (void)dealloc {
  [m_window setWindowController:nil];
  [m_window release];
  [super dealloc];
}
- (NSWindow*)window {
  return m_window;
}
- (void)close {
  [m_window close];
}
@end

@implementation NSViewController
@end

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

@implementation NSApplication
+ (NSApplication*)sharedApplication {
  static NSApplication* application = [[NSApplication alloc] init];
  return application;
}
- (BOOL)isActive {
  return YES;
}
- (NSArray*)windows {
  NSMutableArray* windows = [NSMutableArray array];
  NSEnumerator* open = [openWindows() objectEnumerator];
  while (NSValue* window = [open nextObject]) [windows addObject:[window nonretainedObjectValue]];
  return windows;
}
- (void*)beginModalSessionForWindow:(NSWindow*)window {
  if (!m_modalWindows) m_modalWindows = [[NSMutableArray alloc] init];
  [m_modalWindows addObject:window];
  if ([window isKindOfClass:[NSPanel class]]) [static_cast<NSPanel*>(window) orderFront:nil];
  return window;
}
- (void)endModalSession:(void*)session {
  if (!session || [m_modalWindows lastObject] != static_cast<id>(session)) refuse(@"not the uppermost session");
  [m_modalWindows removeLastObject];
}
- (void)stopModal {
  if ([m_modalWindows count] == 0) refuse(@"nothing is modal");
}
- (NSWindow*)modalWindow {
  return [m_modalWindows lastObject];
}
- (NSArray*)modalWindows {
  return [NSArray arrayWithArray:m_modalWindows];
}
- (NSEvent*)currentEvent {
  return m_currentEvent;
}
- (void)setCurrentEvent:(NSEvent*)event {
  replace(m_currentEvent, event);
}
- (id)delegate {
  return m_delegate;
}
- (void)setDelegate:(id)delegate {
  m_delegate = delegate;
}
@end

@interface NSAlert ()
- (NSInteger)answeredOn:(id)window;
@end

@implementation NSAlert
- (void)dealloc {
  [m_message release];
  [m_buttons release];
  [m_suppressionButton release];
  [super dealloc];
}
- (void)setMessageText:(NSString*)text {
  (void)text;
}
- (void)setInformativeText:(NSString*)text {
  replaceText(m_message, text);
}
- (id)addButtonWithTitle:(NSString*)title {
  if (!m_buttons) m_buttons = [[NSMutableArray alloc] init];
  [m_buttons addObject:title];
  return title;
}
- (void)setIcon:(id)icon {
  m_hasIcon = icon != nil;
}
- (void)setShowsSuppressionButton:(BOOL)shows {
  if (shows && !m_suppressionButton) m_suppressionButton = [[NSButton alloc] init];
}
- (id)suppressionButton {
  return m_suppressionButton;
}
- (NSInteger)runModal {
  return [self answeredOn:nil];
}
- (NSInteger)answeredOn:(id)window {
  constexpr NSInteger firstButton = 1000;
  constexpr NSInteger brokenOff = -1001;
  vornlab::AlertDesk& desk = vornlab::alertDesk();
  vornlab::ShownAlert& shown = desk.alerts.emplace_back();
  shown.window = window;
  shown.message = plainText(m_message);
  for (NSUInteger i = 0; i < [m_buttons count]; ++i)
    shown.buttons.push_back(plainText([m_buttons objectAtIndex:i]));
  shown.hasIcon = m_hasIcon;
  shown.switchTitle = plainText([m_suppressionButton title]);
  vorn::Presenter::Answer answer = vorn::Presenter::Answer::alternateButton;
  if (!desk.answers.empty()) {
    answer = desk.answers.front();
    desk.answers.pop_front();
  }
  [m_suppressionButton setState:answer.notAgain ? 1 : 0];
  if (answer.button == vornlab::AlertDesk::kBrokenOff) return brokenOff;
  return firstButton + (answer.button < [m_buttons count] ? static_cast<NSInteger>(answer.button) : 0);
}
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context {
  NSInteger code = [self answeredOn:window];
  NSInvocation* ended =
      [NSInvocation invocationWithMethodSignature:[delegate methodSignatureForSelector:selector]];
  [ended setSelector:selector];
  [ended setArgument:&self atIndex:2];
  [ended setArgument:&code atIndex:3];
  [ended setArgument:&context atIndex:4];
  [ended invokeWithTarget:delegate];
}
@end

@implementation NSToolbarItem
- (id)initWithItemIdentifier:(NSString*)identifier {
  if (!(self = [super init])) return nil;
  m_identifier = [identifier copy];
  return self;
}
- (void)dealloc {
  [m_identifier release];
  [m_label release];
  [m_paletteLabel release];
  [m_toolTip release];
  [m_image release];
  [m_view release];
  [super dealloc];
}
- (id)toolbar {
  return m_toolbar;
}
- (void)setToolbar:(id)toolbar {
  m_toolbar = toolbar;
}
- (NSString*)itemIdentifier {
  return m_identifier;
}
- (NSString*)label {
  return m_label;
}
- (void)setLabel:(NSString*)text {
  replaceText(m_label, text);
}
- (NSString*)paletteLabel {
  return m_paletteLabel;
}
- (void)setPaletteLabel:(NSString*)text {
  replaceText(m_paletteLabel, text);
}
- (NSString*)toolTip {
  return m_toolTip;
}
- (void)setToolTip:(NSString*)text {
  replaceText(m_toolTip, text);
}
- (NSImage*)image {
  return m_image;
}
- (void)setImage:(NSImage*)image {
  replace(m_image, image);
}
- (NSView*)view {
  return m_view;
}
- (void)setView:(NSView*)view {
  replace(m_view, view);
}
- (void)validate {
}
@end

@implementation NSToolbar
- (id)initWithIdentifier:(NSString*)identifier {
  (void)identifier;
  if (!(self = [super init])) return nil;
  m_items = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_items makeObjectsPerformSelector:@selector(setToolbar:) withObject:nil];
  [m_items release];
  [super dealloc];
}
- (void)setDelegate:(id)delegate {
  m_delegate = delegate;
}
- (void)bringInDefaultItems {
  NSEnumerator* wanted = [[m_delegate toolbarDefaultItemIdentifiers:self] objectEnumerator];
  while (NSString* identifier = [wanted nextObject])
    [self insertItemWithItemIdentifier:identifier atIndex:static_cast<NSInteger>([m_items count])];
}
- (NSArray*)items {
  return [NSArray arrayWithArray:m_items];
}
- (NSArray*)visibleItems {
  return [self items];
}
- (BOOL)isVisible {
  return YES;
}
- (void)insertItemWithItemIdentifier:(NSString*)identifier atIndex:(NSInteger)index {
  if (index < 0 || index > static_cast<NSInteger>([m_items count])) return;
  const id item = [m_delegate toolbar:self itemForItemIdentifier:identifier willBeInsertedIntoToolbar:YES];
  if (!item) return;
  [m_items insertObject:item atIndex:static_cast<NSUInteger>(index)];
  [item setToolbar:self];
}
@end

namespace vornlab {

std::size_t livingViews(std::string_view className) {
  const Class counted = NSClassFromString([NSString stringWithUTF8String:std::string(className).c_str()]);
  return counted ? [livingClasses() countForObject:counted] : 0;
}

AlertDesk& alertDesk() {
  static AlertDesk desk;
  return desk;
}

void chooseInNextMenu(NSMenuItem* item) {
  nextChoice = item;
  hasChosen = false;
}

bool wasChosen() { return hasChosen; }

}  // namespace vornlab
