// What a person finds in the host's windows, in any toolkit.

#import "lab/objc/HostControls.h"

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
  return control && isShown(control.view) && isEnabled(control) && pressAsSeen(control);
}

}  // namespace vornlab
