#pragma once

#import <AppKit/AppKit.h>

// What the desktop's windows are put together from. Each is autoreleased, and holds its target as the toolkit
// does: not at all.
namespace vornlab {

// A button as wide as its title needs, at that place.
NSButton* pushButton(NSString* title, id target, SEL action, NSPoint at);
// A text that can only be read.
NSTextField* label(NSString* text, NSRect frame);
// A long text that can only be read, and scrolls where it is longer than its place, which grows with the view that
// it is put into; with that much room around it.
NSTextView* longText(NSView* content, NSRect frame, NSSize around, NSFont* font);

}  // namespace vornlab
