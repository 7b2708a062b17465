#pragma once

#import <AppKit/AppKit.h>

namespace vornlab {

// The button with that title in the view, or below it. Nil for none.
inline NSButton* buttonIn(NSView* view, NSString* title) {
  if ([view isKindOfClass:[NSButton class]] &&
      [[static_cast<NSButton*>(static_cast<id>(view)) title] isEqual:title])
    return static_cast<NSButton*>(static_cast<id>(view));
  NSEnumerator* below = [[view subviews] objectEnumerator];
  while (NSView* each = [below nextObject]) {
    if (NSButton* inside = buttonIn(each, title)) return inside;
  }
  return nil;
}

}  // namespace vornlab
