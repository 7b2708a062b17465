#import "lab/desktop/RealHand.h"

#include <initializer_list>

namespace vornlab {

namespace {

NSEvent* mouseEvent(NSEventType type, NSWindow* window, NSPoint at, int clicks) {
  static NSInteger number = 0;
  return [NSEvent mouseEventWithType:type
                            location:at
                       modifierFlags:0
                           timestamp:[[NSProcessInfo processInfo] systemUptime]
                        windowNumber:[window windowNumber]
                             context:nil
                         eventNumber:++number
                          clickCount:clicks
                            pressure:1];
}

NSEvent* keyEvent(NSWindow* window, NSString* characters) {
  return [NSEvent keyEventWithType:NSKeyDown
                          location:NSZeroPoint
                     modifierFlags:0
                         timestamp:[[NSProcessInfo processInfo] systemUptime]
                      windowNumber:[window windowNumber]
                           context:nil
                        characters:characters
       charactersIgnoringModifiers:characters
                         isARepeat:NO
                           keyCode:0];
}

// Whoever is pressed waits in a loop of its own until it is let go of, and takes that from the queue itself.
void send(std::initializer_list<NSEvent*> events) {
  for (NSEvent* event : events) [NSApp postEvent:event atStart:NO];
  constexpr NSUInteger ours = NSLeftMouseDownMask | NSLeftMouseUpMask | NSLeftMouseDraggedMask | NSKeyDownMask;
  while (NSEvent* event = [NSApp nextEventMatchingMask:ours
                                             untilDate:[NSDate distantPast]
                                                inMode:NSEventTrackingRunLoopMode
                                               dequeue:YES]) {
    if ([event type] == NSKeyDown) {
      // The toolkit would ask first which window has the keyboard, which a display without a window manager does
      // not say of each.
      [[event window] sendEvent:event];
    } else {
      [NSApp sendEvent:event];
    }
  }
}

void pressAt(NSWindow* window, NSPoint at, int clicks) {
  send({mouseEvent(NSLeftMouseDown, window, at, clicks), mouseEvent(NSLeftMouseUp, window, at, clicks)});
}

void bringToFront(NSWindow* window) {
  if (![window isKeyWindow] && [window canBecomeKeyWindow]) [window makeKeyAndOrderFront:nil];
}

}  // namespace

bool clickOn(NSView* view) { return clickOn(view, [view bounds]); }

bool clickOn(NSView* view, NSRect part, int times) {
  NSWindow* window = [[[view window] retain] autorelease];
  [[view retain] autorelease];
  if (![window isVisible] || [view isHiddenOrHasHiddenAncestor]) return false;
  bringToFront(window);
  [view scrollRectToVisible:part];
  const NSRect seen = NSIntersectionRect(part, [view visibleRect]);
  if (NSIsEmptyRect(seen)) return false;
  const NSPoint at = [view convertPoint:NSMakePoint(NSMidX(seen), NSMidY(seen)) toView:nil];
  NSView* frame = [[window contentView] superview];
  NSView* hit = [frame hitTest:at];
  if (hit != view && ![hit isDescendantOf:view]) return false;
  for (int click = 1; click <= times; ++click) pressAt(window, at, click);
  return true;
}

void dragIn(NSView* view, NSPoint from, NSPoint to) {
  NSWindow* window = [[[view window] retain] autorelease];
  bringToFront(window);
  const NSPoint begin = [view convertPoint:from toView:nil];
  const NSPoint end = [view convertPoint:to toView:nil];
  // By a way around, for who drags something to where it was has moved the mouse all the same.
  constexpr double around = 12;
  const NSPoint aside = NSMakePoint(begin.x, begin.y - around);
  send({mouseEvent(NSLeftMouseDown, window, begin, 1), mouseEvent(NSLeftMouseDragged, window, aside, 1),
        mouseEvent(NSLeftMouseDragged, window, end, 1), mouseEvent(NSLeftMouseUp, window, end, 1)});
}

void turnWheel(NSWindow* window) {
  const NSRect frame = [window frame];
  [window
      sendEvent:mouseEvent(NSScrollWheel, window, NSMakePoint(frame.size.width / 2, frame.size.height / 2), 0)];
}

void pressKey(NSWindow* window, unichar key) {
  send({keyEvent(window, [NSString stringWithCharacters:&key length:1])});
}

void typeKeys(NSWindow* window, NSString* text) {
  for (NSUInteger at = 0; at < [text length];) {
    const NSRange character = [text rangeOfComposedCharacterSequenceAtIndex:at];
    send({keyEvent(window, [text substringWithRange:character])});
    at = NSMaxRange(character);
  }
}

bool typeOver(NSTextField* field, NSString* text) {
  if (![field isEditable] || ![field isEnabled]) return false;
  if (![field currentEditor] && !clickOn(field)) return false;
  NSText* editor = [field currentEditor];
  if (!editor) return false;
  [editor selectAll:nil];
  if ([text length] > 0) {
    [editor insertText:text];
  } else if ([[editor string] length] > 0) {
    [static_cast<NSTextView*>(static_cast<id>(editor)) deleteBackward:nil];
  }
  return true;
}

NSButton* shownButton(NSView* view, NSString* title) {
  if ([view isHidden]) return nil;
  if ([view isKindOfClass:[NSButton class]]) {
    NSButton* button = static_cast<NSButton*>(static_cast<id>(view));
    if ([[button title] isEqual:title]) return button;
  }
  NSEnumerator* below = [[view subviews] objectEnumerator];
  while (NSView* each = [below nextObject]) {
    if (NSButton* found = shownButton(each, title)) return found;
  }
  return nil;
}

void wakeLoop() {
  [NSApp postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                      location:NSZeroPoint
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:0
                                       context:nil
                                       subtype:0
                                         data1:0
                                         data2:0]
           atStart:NO];
}

}  // namespace vornlab
