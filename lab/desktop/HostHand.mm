// A person's hand on the controls of the host, where the toolkit is the real one.

#import "lab/objc/HostControls.h"

namespace vornlab {

bool pressAsSeen(const FoundControl& control) {
  if (control.entry) {
    NSMenu* menu = [control.entry menu];
    [menu update];
    if (![control.entry isEnabled]) return false;
    [menu performActionForItemAtIndex:[menu indexOfItem:control.entry]];
    return true;
  }
  if (control.view) {
    [static_cast<NSButton*>(control.view) performClick:nil];
    return true;
  }
  return [NSApp sendAction:[control.toolbarItem action] to:[control.toolbarItem target] from:control.toolbarItem];
}

}  // namespace vornlab
