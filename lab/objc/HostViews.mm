// Views, windows and alerts.

#include <utility>

#import "lab/objc/HostControls.h"

namespace {

// By their classes. It never ends, for views end as late as the process.
NSCountedSet* livingClasses() {
  static NSCountedSet* classes = [[NSCountedSet alloc] init];
  return classes;
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
- (void)setIcon:(id)icon {
  (void)icon;
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

std::size_t livingViews(std::string_view className) {
  const Class counted = NSClassFromString(foundationText(className));
  return counted ? [livingClasses() countForObject:counted] : 0;
}

std::string plainText(NSString* text) {
  // A text may hold a zero, at which a C string would end.
  const char* bytes = [text UTF8String];
  return bytes ? std::string(bytes, [text lengthOfBytesUsingEncoding:NSUTF8StringEncoding]) : "";
}

}  // namespace vornlab
