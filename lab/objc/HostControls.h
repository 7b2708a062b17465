#pragma once

// The toolkit's buttons, menus, images and toolbars as the stand-in host has them, and a person's hand on them.

#import "lab/objc/HostClasses.h"
#include "lab/outlook/HostControl.h"

@interface NSImage : NSObject {
  NSString* m_name;
}
// Nil for a file that is not there.
- (id)initWithContentsOfFile:(NSString*)path;
- (NSString*)name;
- (BOOL)setName:(NSString*)name;
@end

// What is no view and tells somebody that it was chosen.
@interface HostItem : NSObject {
  SEL m_action;
  // Not owned.
  id m_target;
  BOOL m_disabled;
}
- (SEL)action;
- (void)setAction:(SEL)action;
- (id)target;
- (void)setTarget:(id)target;
- (BOOL)isEnabled;
- (void)setEnabled:(BOOL)enabled;
@end

@interface NSMenuItem : HostItem {
  NSString* m_title;
  NSInteger m_tag;
}
- (id)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key;
- (NSString*)title;
- (NSInteger)tag;
- (void)setTag:(NSInteger)tag;
@end

@interface NSMenu : NSObject {
  NSString* m_title;
  NSMutableArray* m_items;
}
- (id)initWithTitle:(NSString*)title;
// Whether an item was chosen.
- (BOOL)popUpMenuPositioningItem:(NSMenuItem*)item atLocation:(NSPoint)location inView:(NSView*)view;
- (NSString*)title;
- (void)addItem:(NSMenuItem*)item;
- (NSArray*)itemArray;
@end

@interface NSImageView : NSView {
  NSImage* m_image;
}
- (NSImage*)image;
- (void)setImage:(NSImage*)image;
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
@end

@interface NSToolbarItem : HostItem {
  NSString* m_identifier;
  NSString* m_label;
  NSString* m_paletteLabel;
  NSString* m_toolTip;
  NSImage* m_image;
  NSView* m_view;
  // Not owned.
  id m_toolbar;
}
- (id)initWithItemIdentifier:(NSString*)identifier;
- (NSString*)itemIdentifier;
// The toolbar that it stands in; nil for none.
- (id)toolbar;
- (void)setToolbar:(id)toolbar;
- (NSString*)label;
- (void)setLabel:(NSString*)text;
- (NSString*)paletteLabel;
- (void)setPaletteLabel:(NSString*)text;
- (NSString*)toolTip;
- (void)setToolTip:(NSString*)text;
- (NSImage*)image;
- (void)setImage:(NSImage*)image;
- (NSView*)view;
- (void)setView:(NSView*)view;
// Asks whether it may be used now; an item that minds disables itself.
- (void)validate;
@end

@interface NSToolbar : NSObject {
  // Not owned.
  id m_delegate;
  NSMutableArray* m_items;
}
- (id)initWithDelegate:(id)delegate;
- (NSArray*)items;
- (NSArray*)visibleItems;
- (BOOL)isVisible;
// The delegate makes the item, and one that it does not make does not come in.
- (void)insertItemWithItemIdentifier:(NSString*)identifier atIndex:(NSInteger)index;
@end

namespace vornlab {

// A button or an item of a toolbar, and the entry of the menu that it opens where that is what was looked for. Not
// owned; nil for none.
struct FoundControl {
  NSView* view = nil;
  NSToolbarItem* toolbarItem = nil;
  NSMenuItem* entry = nil;

  explicit operator bool() const { return view || toolbarItem; }
};

// The plug-in's bar in an editor's header; nil for none.
NSView* barIn(NSView* header);
// Anywhere below the view.
FoundControl controlBelow(NSView* root, const ControlName& name);
// In the toolbar, which asks each item first whether it may be used. An item with a view is shown by that alone.
FoundControl controlIn(NSToolbar* toolbar, const ControlName& name);
HostControl look(const FoundControl& control);
// Presses it, and chooses the entry in the menu that opens. False when it is not there, hidden or disabled.
bool press(const FoundControl& control);

}  // namespace vornlab
