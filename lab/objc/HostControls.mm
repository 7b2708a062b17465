#import "lab/objc/HostControls.h"

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
- (id)initWithDelegate:(id)delegate {
  if (!(self = [super init])) return nil;
  m_delegate = delegate;
  m_items = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_items makeObjectsPerformSelector:@selector(setToolbar:) withObject:nil];
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
  if (!item) return;
  [m_items insertObject:item atIndex:static_cast<NSUInteger>(index)];
  [item setToolbar:self];
}
@end

namespace vornlab {

namespace {

bool isNamed(SEL action, const ControlName& name) {
  return action && sel_isEqual(action, sel_registerName(name.action.c_str()));
}

NSMenuItem* entryOf(NSMenu* menu, const ControlName& name) {
  NSEnumerator* items = [[menu itemArray] objectEnumerator];
  while (NSMenuItem* item = [items nextObject]) {
    if (isNamed([item action], name) && (!name.tag || *name.tag == [item tag])) return item;
  }
  return nil;
}

FoundControl controlAt(NSView* view, const ControlName& name) {
  if (NSMenuItem* entry = entryOf([view menu], name)) return {view, nil, entry};
  const bool isButton = [view isKindOfClass:[NSButton class]];
  return isButton && isNamed([static_cast<NSButton*>(view) action], name) ? FoundControl{view} : FoundControl();
}

bool isShown(NSView* view) {
  for (; view; view = [view superview]) {
    if ([view isHidden]) return false;
  }
  return true;
}

bool isEnabled(const FoundControl& control) {
  if (control.toolbarItem && ![control.toolbarItem isEnabled]) return false;
  const bool isButton = [control.view isKindOfClass:[NSButton class]];
  return !isButton || [static_cast<NSButton*>(control.view) isEnabled];
}

}  // namespace

NSView* barIn(NSView* header) {
  NSEnumerator* views = [[header subviews] objectEnumerator];
  while (NSView* view = [views nextObject]) {
    if ([NSStringFromClass([view class]) isEqual:@"vnActionAdditionView"]) return view;
  }
  return nil;
}

FoundControl controlBelow(NSView* root, const ControlName& name) {
  NSEnumerator* subviews = [[root subviews] objectEnumerator];
  while (NSView* view = [subviews nextObject]) {
    if (const FoundControl found = controlAt(view, name)) return found;
    if (const FoundControl found = controlBelow(view, name)) return found;
  }
  return {};
}

FoundControl controlIn(NSToolbar* toolbar, const ControlName& name) {
  NSEnumerator* items = [[toolbar items] objectEnumerator];
  while (NSToolbarItem* item = [items nextObject]) {
    [item validate];
    FoundControl found = controlAt([item view], name);
    if (![item view] && isNamed([item action], name)) found.toolbarItem = item;
    if (!found) continue;
    found.toolbarItem = item;
    return found;
  }
  return {};
}

HostControl look(const FoundControl& control) {
  HostControl seen;
  if (!control) return seen;
  seen.exists = true;
  seen.isShown = isShown(control.view);
  seen.isEnabled = isEnabled(control) && (!control.entry || [control.entry isEnabled]);
  // A button, or an item of the toolbar: each has what it is asked for here.
  const id shown = control.toolbarItem ? static_cast<id>(control.toolbarItem) : static_cast<id>(control.view);
  NSString* title = control.toolbarItem ? [control.toolbarItem label] : [shown title];
  seen.title = plainText(control.entry ? [control.entry title] : title);
  seen.image = plainText([static_cast<NSImage*>([shown image]) name]);
  seen.toolTip = plainText([shown toolTip]);
  const NSRect frame = [control.view frame];
  if (control.view) seen.frame = {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height};
  return seen;
}

bool press(const FoundControl& control) {
  if (!control || !isShown(control.view) || !isEnabled(control)) return false;
  if (!control.view) {
    [[control.toolbarItem target] performSelector:[control.toolbarItem action] withObject:control.toolbarItem];
    return true;
  }
  nextChoice = control.entry;
  hasChosen = false;
  const NSRect frame = [control.view frame];
  const NSPoint middle = NSMakePoint(NSMidX(frame), NSMidY(frame));
  [[control.view hitTest:middle] mouseDown:[[NSApplication sharedApplication] currentEvent]];
  nextChoice = nil;
  return !control.entry || hasChosen;
}

}  // namespace vornlab
