#import "lab/objc/HostControls.h"

namespace {

SEL nextChoice = nullptr;

void replaceText(NSString*& held, NSString* given) {
  NSString* before = held;
  held = [given copy];
  [before release];
}

}  // namespace

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
- (SEL)action {
  return m_action;
}
- (id)target {
  return m_target;
}
- (void)setTarget:(id)target {
  m_target = target;
}
- (NSInteger)tag {
  return m_tag;
}
- (void)setTag:(NSInteger)tag {
  m_tag = tag;
}
- (BOOL)isEnabled {
  return !m_disabled;
}
- (void)setEnabled:(BOOL)enabled {
  m_disabled = !enabled;
}
@end

@implementation NSMenu
+ (void)setNextChoice:(SEL)action {
  nextChoice = action;
}
// The menu stands until the person has chosen, which is at once here.
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view {
  (void)item;
  (void)location;
  (void)view;
  NSMenuItem* chosen = [self itemWithAction:nextChoice];
  nextChoice = nullptr;
  if (![chosen isEnabled]) return NO;
  [[chosen target] performSelector:[chosen action] withObject:chosen];
  return YES;
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
- (void)setAutoenablesItems:(BOOL)enables {
  (void)enables;
}
- (void)addItem:(NSMenuItem*)item {
  [m_items addObject:item];
}
- (NSArray*)itemArray {
  return [NSArray arrayWithArray:m_items];
}
- (NSMenuItem*)itemWithAction:(SEL)action {
  NSEnumerator* items = [m_items objectEnumerator];
  while (NSMenuItem* item = [items nextObject]) {
    if (action && sel_isEqual([item action], action)) return item;
  }
  return nil;
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
- (NSImage*)image {
  return m_image;
}
- (void)setImage:(NSImage*)image {
  [image retain];
  [m_image release];
  m_image = image;
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

namespace vornlab {

NSButton* buttonWithAction(NSView* root, const char* action) {
  const SEL wanted = sel_registerName(action);
  NSEnumerator* subviews = [[root subviews] objectEnumerator];
  while (NSView* view = [subviews nextObject]) {
    if ([view isKindOfClass:[NSButton class]]) {
      NSButton* button = static_cast<NSButton*>(view);
      if (sel_isEqual([button action], wanted) || [[button menu] itemWithAction:wanted]) return button;
    }
    if (NSButton* below = buttonWithAction(view, action)) return below;
  }
  return nil;
}

bool isShown(NSButton* button) {
  if (!button) return false;
  for (NSView* view = button; view; view = [view superview]) {
    if ([view isHidden]) return false;
  }
  return true;
}

bool pressButton(NSButton* button, const char* action) {
  if (!isShown(button) || ![button isEnabled]) return false;
  [NSMenu setNextChoice:sel_registerName(action)];
  [button mouseDown:nil];
  [NSMenu setNextChoice:nullptr];
  return true;
}

}  // namespace vornlab
