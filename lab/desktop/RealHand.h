#pragma once

#import <AppKit/AppKit.h>

// A person's mouse and keyboard, as the events that they make. What an event leads to has been done when the call
// returns.
namespace vornlab {

// Brings the window to the front, scrolls the view into sight and presses the mouse in the middle of that part of
// it. False when the view cannot be seen there, or something else lies over it.
bool clickOn(NSView* view);
bool clickOn(NSView* view, NSRect part, int times = 1);
// Presses the mouse at one point of the view, moves it to another and lets it go.
void dragIn(NSView* view, NSPoint from, NSPoint to);
// Turns the wheel a notch over the middle of the window.
void turnWheel(NSWindow* window);
// A key, to what has the keyboard in the window.
void pressKey(NSWindow* window, unichar key);
// Characters, one key after the other.
void typeKeys(NSWindow* window, NSString* text);
// Clicks into a field and types over all that stands in it. False when it cannot be typed into.
bool typeOver(NSTextField* field, NSString* text);
// The button with that title in the view or below it, where it can be seen; nil for none.
NSButton* shownButton(NSView* view, NSString* title);
// Wakes a loop that looks at what has come about after the next event only.
void wakeLoop();

}  // namespace vornlab
