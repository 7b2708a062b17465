#pragma once

// A person's eye and hand on buttons, menus and toolbars.

#include "lab/host/HostControl.h"
#import "lab/objc/HostClasses.h"

namespace vornlab {

// A button or an item of a toolbar, and the entry of the menu that it opens where that is what was looked for. Not
// owned; nil for none.
struct FoundControl {
  NSView* view = nil;
  NSToolbarItem* toolbarItem = nil;
  NSMenuItem* entry = nil;

  explicit operator bool() const { return view || toolbarItem; }
};

// Anywhere below the view.
FoundControl controlBelow(NSView* root, const ControlName& name);
// In the toolbar, which asks each item first whether it may be used. An item with a view is shown by that alone.
FoundControl controlIn(NSToolbar* toolbar, const ControlName& name);
HostControl look(const FoundControl& control);
// Presses it, and chooses the entry in the menu that opens. False when it is not there, hidden or disabled.
bool press(const FoundControl& control);
// The hand of a face on a control that can be used; whether it is done.
bool pressAsSeen(const FoundControl& control);

}  // namespace vornlab
