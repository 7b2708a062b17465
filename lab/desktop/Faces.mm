// What the desktop puts into the host's windows.

#import <objc/runtime.h>
#import "lab/desktop/CalendarPane.h"
#import "lab/desktop/EditorForm.h"

// The host's own commands, which nobody has come here for: a name and a line beside it.
@implementation OUIRibbonChunkView (Drawn)
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect bounds = [self bounds];
  NSColor* ink = [NSColor disabledControlTextColor];
  NSDictionary* look =
      [NSDictionary dictionaryWithObjectsAndKeys:[NSFont systemFontOfSize:12], NSFontAttributeName, ink,
                                                 NSForegroundColorAttributeName, nil];
  const NSSize size = [[self title] sizeWithAttributes:look];
  [[self title] drawAtPoint:NSMakePoint(NSMidX(bounds) - size.width / 2, NSMidY(bounds) - size.height / 2)
             withAttributes:look];
  [[NSColor gridColor] set];
  NSRectFill(NSMakeRect(NSMaxX(bounds) - 1, 12, 1, bounds.size.height - 24));
}
@end

namespace {

NSImage* newImage(void (*draw)()) {
  NSImage* image = [[[NSImage alloc] initWithSize:NSMakeSize(28, 28)] autorelease];
  [image lockFocus];
  [[NSColor disabledControlTextColor] set];
  draw();
  [image unlockFocus];
  return image;
}

void strokeLine(NSPoint from, NSPoint to) {
  NSBezierPath* line = [NSBezierPath bezierPath];
  [line moveToPoint:from];
  [line lineToPoint:to];
  [line setLineWidth:2];
  [line stroke];
}

void drawPlus() {
  strokeLine(NSMakePoint(14, 6), NSMakePoint(14, 22));
  strokeLine(NSMakePoint(6, 14), NSMakePoint(22, 14));
}

void drawGlass() {
  NSBezierPath* glass = [NSBezierPath bezierPathWithOvalInRect:NSMakeRect(6, 10, 12, 12)];
  [glass setLineWidth:2];
  [glass stroke];
  strokeLine(NSMakePoint(16, 12), NSMakePoint(22, 6));
}

}  // namespace

#ifdef GNUSTEP
// The toolkit has it under a name with a slip of the pen, and declares it only.
@implementation NSMenu (AtAPlace)
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view {
  (void)item;
  NSEvent* press = [NSEvent mouseEventWithType:NSLeftMouseDown
                                      location:[view convertPoint:location toView:nil]
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[[view window] windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:1
                                      pressure:1];
  [NSMenu popUpContextMenu:self withEvent:press forView:view];
  return YES;
}
@end

// It refuses what its delegate does not offer in the palette, where others ask the delegate for the item alone.
@implementation NSToolbar (WhatTheDelegateMakes)
- (void)vnInsertItemWithItemIdentifier:(NSString*)identifier atIndex:(NSInteger)index {
  vornlab::insertedToolbarItem() = identifier;
  [self vnInsertItemWithItemIdentifier:identifier atIndex:index];
  vornlab::insertedToolbarItem() = nil;
}
+ (void)load {
  method_exchangeImplementations(class_getInstanceMethod(self, @selector(insertItemWithItemIdentifier:atIndex:)),
                                 class_getInstanceMethod(self, @selector(vnInsertItemWithItemIdentifier:
                                                                                                atIndex:)));
}
@end
#endif

namespace vornlab {

NSView* newCalendarView(CCGridViewController* controller) {
  return [[vnCalendarPane alloc] initWithController:controller];
}

void fillEditor(ERCalendarEventEditorWindowController* controller) { [vnEditorForm putInto:controller]; }

void fillMainWindow(ERageMainWindowController* controller) {
  [[controller ribbon] setAutoresizingMask:NSViewMinYMargin | NSViewWidthSizable];
  [[controller window] setTitle:@"Calendar"];
  [[controller window] setInitialFirstResponder:[shownPane() week]];
  NSEnumerator* items = [[[[controller window] toolbar] items] objectEnumerator];
  while (NSToolbarItem* item = [items nextObject]) {
    if ([[item itemIdentifier] isEqual:@"OLNewItem"]) [item setImage:newImage(drawPlus)];
    if ([[item itemIdentifier] isEqual:@"OLSearchItem"]) [item setImage:newImage(drawGlass)];
  }
  [[controller window] center];
}

void editorHasChanged(ERCalendarEventEditorViewController* editor) { [[vnEditorForm formOf:editor] showEvent]; }

void calendarHasChanged() { [shownPane() reload]; }

}  // namespace vornlab
