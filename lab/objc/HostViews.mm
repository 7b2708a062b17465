// Views, windows and alerts.

#include <utility>

#include "lab/objc/HostClasses.h"

@implementation NSView
- (id)init {
  return [self initWithFrame:NSZeroRect];
}
- (id)initWithFrame:(NSRect)frame {
  if (!(self = [super init])) return nil;
  frame_ = frame;
  subviews_ = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  // A view that somebody else holds outlives its superview.
  NSEnumerator* below = [subviews_ objectEnumerator];
  while (NSView* view = [below nextObject]) view->superview_ = nil;
  [subviews_ release];
  [super dealloc];
}
- (NSRect)frame {
  return frame_;
}
- (void)setFrame:(NSRect)frame {
  frame_ = frame;
}
- (BOOL)isHidden {
  return hidden_;
}
- (void)setHidden:(BOOL)hidden {
  hidden_ = hidden;
}
- (NSView*)superview {
  return superview_;
}
- (NSWindow*)window {
  return window_ ? window_ : [superview_ window];
}
- (void)setWindow:(NSWindow*)window {
  window_ = window;
}
- (NSArray*)subviews {
  return [NSArray arrayWithArray:subviews_];
}
- (void)addSubview:(NSView*)view {
  if (!view || view == self) return;
  [[view retain] autorelease];
  [view removeFromSuperview];
  [subviews_ addObject:view];
  view->superview_ = self;
}
- (void)removeFromSuperview {
  NSView* superview = superview_;
  superview_ = nil;
  if (superview) [superview->subviews_ removeObjectIdenticalTo:self];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
}
@end

@implementation NSTextField
- (void)dealloc {
  [text_ release];
  [super dealloc];
}
- (NSString*)stringValue {
  return text_ ? text_ : @"";
}
- (void)setStringValue:(NSString*)text {
  NSString* copy = [text copy];
  [text_ release];
  text_ = copy;
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
  identifier_ = [identifier copy];
  return self;
}
- (void)dealloc {
  [identifier_ release];
  [super dealloc];
}
- (NSString*)itemIdentifier {
  return identifier_;
}
@end

@implementation NSToolbar
- (id)initWithDelegate:(id)delegate {
  if (!(self = [super init])) return nil;
  delegate_ = delegate;
  items_ = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [items_ release];
  [super dealloc];
}
- (NSArray*)items {
  return [NSArray arrayWithArray:items_];
}
- (NSArray*)visibleItems {
  return [self items];
}
- (BOOL)isVisible {
  return YES;
}
- (void)insertItemWithItemIdentifier:(NSString*)identifier atIndex:(NSInteger)index {
  if (index < 0 || index > static_cast<NSInteger>([items_ count])) return;
  const id item = [delegate_ toolbar:self itemForItemIdentifier:identifier willBeInsertedIntoToolbar:YES];
  if (item) [items_ insertObject:item atIndex:static_cast<NSUInteger>(index)];
}
@end

@implementation NSWindow
- (id)initWithController:(id)controller contentFrame:(NSRect)frame {
  if (!(self = [super init])) return nil;
  controller_ = controller;
  contentView_ = [[NSView alloc] initWithFrame:frame];
  [contentView_ setWindow:self];
  return self;
}
- (void)dealloc {
  [contentView_ setWindow:nil];
  [contentView_ release];
  [toolbar_ release];
  [super dealloc];
}
- (id)windowController {
  return controller_;
}
- (NSView*)contentView {
  return contentView_;
}
- (NSToolbar*)toolbar {
  return toolbar_;
}
- (void)setToolbar:(NSToolbar*)toolbar {
  [toolbar retain];
  [toolbar_ release];
  toolbar_ = toolbar;
}
- (BOOL)isVisible {
  return !closed_;
}
- (void)close {
  if (closed_) return;
  closed_ = YES;
  [[NSNotificationCenter defaultCenter] postNotificationName:@"NSWindowWillCloseNotification" object:self];
}
@end

@implementation NSWindowController
- (void)dealloc {
  [window_ release];
  [super dealloc];
}
- (NSWindow*)window {
  return window_;
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
  [message_ release];
  [super dealloc];
}
- (void)setMessageText:(NSString*)text {
  (void)text;
}
- (void)setInformativeText:(NSString*)text {
  NSString* copy = [text copy];
  [message_ release];
  message_ = copy;
}
- (id)addButtonWithTitle:(NSString*)title {
  ++buttons_;
  return title;
}
- (NSInteger)runModal {
  constexpr NSInteger firstButton = 1000;
  lastAlert() = vornlab::plainText(message_);
  return buttons_ > 1 ? firstButton + 1 : firstButton;
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
