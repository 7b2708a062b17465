#pragma once

// The toolkit's buttons, menus and images as the stand-in host has them.

#import "lab/objc/HostClasses.h"

@interface NSImage : NSObject {
  NSString* m_name;
}
// Nil for a file that is not there.
- (id)initWithContentsOfFile:(NSString*)path;
- (NSString*)name;
- (BOOL)setName:(NSString*)name;
@end

@interface NSMenuItem : NSObject {
  NSString* m_title;
  SEL m_action;
  // Not owned.
  id m_target;
  NSInteger m_tag;
  BOOL m_disabled;
}
- (id)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key;
- (NSString*)title;
- (SEL)action;
- (id)target;
- (void)setTarget:(id)target;
- (NSInteger)tag;
- (void)setTag:(NSInteger)tag;
- (BOOL)isEnabled;
- (void)setEnabled:(BOOL)enabled;
@end

@interface NSMenu : NSObject {
  NSString* m_title;
  NSMutableArray* m_items;
}
// What the person chooses in the next menu that opens; NULL for nothing.
+ (void)setNextChoice:(SEL)action;
- (id)initWithTitle:(NSString*)title;
// Whether an item was chosen.
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view;
- (NSString*)title;
- (void)setAutoenablesItems:(BOOL)enables;
- (void)addItem:(NSMenuItem*)item;
- (NSArray*)itemArray;
- (NSMenuItem*)itemWithAction:(SEL)action;
@end

@interface NSButton : NSView {
  NSString* m_title;
  NSImage* m_image;
  SEL m_action;
  // Not owned.
  id m_target;
  BOOL m_disabled;
}
- (NSString*)title;
- (void)setTitle:(NSString*)title;
- (NSImage*)image;
- (void)setImage:(NSImage*)image;
- (void)setImagePosition:(NSUInteger)position;
- (SEL)action;
- (void)setAction:(SEL)action;
- (id)target;
- (void)setTarget:(id)target;
- (BOOL)isEnabled;
- (void)setEnabled:(BOOL)enabled;
- (void)mouseDown:(NSEvent*)event;
@end

namespace vornlab {

// The button below the view that has the action, or that opens a menu with an item of it; nil for none.
NSButton* buttonWithAction(NSView* root, const char* action);
// Whether a person sees the button.
bool isShown(NSButton* button);
// Presses it, and chooses the item with the action in the menu that opens. False when that cannot be done.
bool pressButton(NSButton* button, const char* action);

}  // namespace vornlab
