// Views, windows and alerts.

#include <utility>

#import "lab/objc/HostControls.h"

@implementation NSView
- (id)init {
  return [self initWithFrame:NSZeroRect];
}
- (id)initWithFrame:(NSRect)frame {
  if (!(self = [super init])) return nil;
  m_frame = frame;
  m_subviews = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  // A view that somebody else holds outlives its superview.
  NSEnumerator* below = [m_subviews objectEnumerator];
  while (NSView* view = [below nextObject]) view->m_superview = nil;
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
- (NSMenu*)menu {
  return m_menu;
}
- (void)setMenu:(NSMenu*)menu {
  [menu retain];
  [m_menu release];
  m_menu = menu;
}
- (NSString*)toolTip {
  return m_toolTip;
}
- (void)setToolTip:(NSString*)text {
  NSString* copy = [text copy];
  [m_toolTip release];
  m_toolTip = copy;
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
- (NSString*)stringValue {
  return m_text ? m_text : @"";
}
- (void)setStringValue:(NSString*)text {
  NSString* copy = [text copy];
  [m_text release];
  m_text = copy;
}
@end

@implementation OLAttachmentsAcceptingView
- (id)initWithFrame:(NSRect)frame {
  return [super initWithFrame:frame];
}
@end

@implementation OLCalendarHeaderContainerView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
- (NSArray*)managedSubviewsData {
  return [self subviews];
}
@end

@implementation OLAutoLayoutView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
@end

@implementation OLAutoLayoutAttachmentsAcceptingView
- (id)initWithFrame:(NSRect)frame {
  return [super initWithFrame:frame];
}
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
@end

@implementation OUIRibbonView
@end
@implementation OUIRibbonChunkView
@end
@implementation OUIRibbonChunkContainerView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
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
  [super dealloc];
}
- (NSString*)itemIdentifier {
  return m_identifier;
}
@end

@implementation NSToolbar
- (id)initWithDelegate:(id)delegate {
  if (!(self = [super init])) return nil;
  m_delegate = delegate;
  m_items = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_items release];
  [super dealloc];
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
  if (item) [m_items insertObject:item atIndex:static_cast<NSUInteger>(index)];
}
@end

@implementation NSWindow
- (id)initWithController:(id)controller contentFrame:(NSRect)frame {
  if (!(self = [super init])) return nil;
  m_controller = controller;
  m_contentView = [[NSView alloc] initWithFrame:frame];
  [m_contentView setWindow:self];
  return self;
}
- (void)dealloc {
  [m_contentView setWindow:nil];
  [m_contentView release];
  [m_toolbar release];
  [super dealloc];
}
- (id)windowController {
  return m_controller;
}
- (NSView*)contentView {
  return m_contentView;
}
- (NSToolbar*)toolbar {
  return m_toolbar;
}
- (void)setToolbar:(NSToolbar*)toolbar {
  [toolbar retain];
  [m_toolbar release];
  m_toolbar = toolbar;
}
- (BOOL)isVisible {
  return !m_closed;
}
- (void)close {
  if (m_closed) return;
  m_closed = YES;
  [[NSNotificationCenter defaultCenter] postNotificationName:@"NSWindowWillCloseNotification" object:self];
}
@end

@implementation NSWindowController
- (void)dealloc {
  [m_window release];
  [super dealloc];
}
- (NSWindow*)window {
  return m_window;
}
@end

@implementation NSViewController
@end

namespace {

std::string& lastAlert() {
  static std::string message;
  return message;
}

}  // namespace

@implementation NSAlert
+ (std::string)takeLastMessage {
  return std::exchange(lastAlert(), std::string());
}
- (void)dealloc {
  [m_message release];
  [super dealloc];
}
- (void)setMessageText:(NSString*)text {
  (void)text;
}
- (void)setInformativeText:(NSString*)text {
  NSString* copy = [text copy];
  [m_message release];
  m_message = copy;
}
- (id)addButtonWithTitle:(NSString*)title {
  ++m_buttons;
  return title;
}
- (void)setShowsSuppressionButton:(BOOL)shows {
  (void)shows;
}
- (id)suppressionButton {
  return nil;
}
- (NSInteger)runModal {
  constexpr NSInteger firstButton = 1000;
  lastAlert() = vornlab::plainText(m_message);
  return m_buttons > 1 ? firstButton + 1 : firstButton;
}
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context {
  (void)window;
  NSInteger code = [self runModal];
  NSInvocation* ended =
      [NSInvocation invocationWithMethodSignature:[delegate methodSignatureForSelector:selector]];
  [ended setSelector:selector];
  [ended setArgument:&self atIndex:2];
  [ended setArgument:&code atIndex:3];
  [ended setArgument:&context atIndex:4];
  [ended invokeWithTarget:delegate];
}
@end

namespace vornlab {

NSString* foundationText(std::string_view text) {
  return [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

NSString* foundationText(const vorn::OptionalText& text) {
  return text ? foundationText(std::string_view(*text)) : nil;
}

std::string plainText(NSString* text) {
  const char* bytes = [text UTF8String];
  return bytes ? bytes : "";
}

}  // namespace vornlab
