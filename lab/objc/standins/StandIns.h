#pragma once

// The toolkit's classes as far as the host and the plug-in use them, for a host without windows. They carry the
// toolkit's own names, and are never in one process with it.

#import <Foundation/Foundation.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "lab/objc/standins/LivingViews.h"
#include "platform/Presenter.h"

@class NSMenu, NSMenuItem, NSToolbar, NSToolbarItem, NSEvent, NSWindow;

enum : NSUInteger {
  NSTitledWindowMask = 1,
  NSClosableWindowMask = 2,
  NSMiniaturizableWindowMask = 4,
  NSResizableWindowMask = 8
};
enum : NSUInteger { NSBackingStoreBuffered = 2 };

@interface NSView : NSObject {
  NSRect m_frame;
  NSMutableArray* m_subviews;
  NSView* m_superview;
  NSWindow* m_window;
  NSMenu* m_menu;
  NSString* m_toolTip;
  BOOL m_hidden;
}
- (id)initWithFrame:(NSRect)frame;
- (NSRect)frame;
- (void)setFrame:(NSRect)frame;
- (BOOL)isHidden;
- (void)setHidden:(BOOL)hidden;
- (NSView*)superview;
- (NSWindow*)window;
// Of a content view only; the views below it find it by going up.
- (void)setWindow:(NSWindow*)window;
- (NSArray*)subviews;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)drawRect:(NSRect)dirty;
- (void)setNeedsDisplay:(BOOL)needsDisplay;
// The view that a press at the point, in the superview's coordinates, is meant for; nil for a point beside this
// one.
- (NSView*)hitTest:(NSPoint)point;
- (void)mouseDown:(NSEvent*)event;
- (NSMenu*)menu;
- (void)setMenu:(NSMenu*)menu;
- (NSString*)toolTip;
- (void)setToolTip:(NSString*)text;
@end

@interface NSTextField : NSView {
  NSString* m_text;
}
- (BOOL)isEditable;
- (void)setEditable:(BOOL)editable;
- (void)setBezeled:(BOOL)bezeled;
- (void)setDrawsBackground:(BOOL)drawsBackground;
- (NSString*)stringValue;
- (void)setStringValue:(NSString*)text;
@end

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
  NSInteger m_state;
}
- (NSString*)title;
- (void)setTitle:(NSString*)title;
- (NSInteger)state;
- (void)setState:(NSInteger)state;
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

@interface NSWindow : NSObject {
  id m_controller;
  NSView* m_contentView;
  NSToolbar* m_toolbar;
  BOOL m_closed;
}
- (id)initWithContentRect:(NSRect)frame styleMask:(NSUInteger)style backing:(NSUInteger)backing defer:(BOOL)defer;
- (void)setReleasedWhenClosed:(BOOL)released;
// Neither is owned.
- (id)windowController;
- (void)setWindowController:(id)controller;
- (void)setDelegate:(id)delegate;
- (void)setTitle:(NSString*)title;
- (NSView*)contentView;
- (NSToolbar*)toolbar;
- (void)setToolbar:(NSToolbar*)toolbar;
// From its making to its end.
- (BOOL)isVisible;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)makeMainWindow;
- (void)center;
- (void)close;
@end

// Raises when it ends while a session that it had has left it on the screen.
@interface NSPanel : NSWindow {
  BOOL m_onScreen;
}
- (void)orderFront:(id)sender;
- (void)orderOut:(id)sender;
@end

@interface NSWindowController : NSObject {
  NSWindow* m_window;
}
- (id)initWithWindow:(NSWindow*)window;
- (NSWindow*)window;
- (void)close;
@end

@interface NSViewController : NSObject
@end

// What the person has just done, and where.
@interface NSEvent : NSObject {
  NSWindow* m_window;
}
- (id)initWithWindow:(NSWindow*)window;
- (NSWindow*)window;
@end

@interface NSApplication : NSObject {
  NSEvent* m_currentEvent;
  NSMutableArray* m_modalWindows;
  // Not owned.
  id m_delegate;
}
+ (NSApplication*)sharedApplication;
- (BOOL)isActive;
// Sessions stand on each other; the window of the uppermost one is modal, nil without one. As strict as a toolkit
// may be: to end another than the uppermost raises, and so does to stop none.
- (void*)beginModalSessionForWindow:(NSWindow*)window;
- (void)endModalSession:(void*)session;
- (void)stopModal;
- (NSWindow*)modalWindow;
// Those of all sessions, the uppermost last.
- (NSArray*)modalWindows;
// Those that have not closed, in the order of their making.
- (NSArray*)windows;
- (NSEvent*)currentEvent;
- (void)setCurrentEvent:(NSEvent*)event;
- (id)delegate;
- (void)setDelegate:(id)delegate;
@end

// Gets its answer at once, as the person has decided before (AlertDesk), and keeps what was said.
@interface NSAlert : NSObject {
  NSString* m_message;
  NSMutableArray* m_buttons;
  BOOL m_hasIcon;
  NSButton* m_suppressionButton;
}
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (id)addButtonWithTitle:(NSString*)title;
- (void)setIcon:(id)icon;
- (void)setShowsSuppressionButton:(BOOL)shows;
// Nil for an alert that shows none.
- (id)suppressionButton;
- (NSInteger)runModal;
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context;
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

// What a toolbar asks its delegate.
@protocol HostToolbarDelegate
- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)isInserted;
- (NSArray*)toolbarDefaultItemIdentifiers:(id)toolbar;
@end

@interface NSToolbar : NSObject {
  // Not owned.
  id m_delegate;
  NSMutableArray* m_items;
}
- (id)initWithIdentifier:(NSString*)identifier;
// Not owned.
- (void)setDelegate:(id)delegate;
- (void)bringInDefaultItems;
- (NSArray*)items;
- (NSArray*)visibleItems;
- (BOOL)isVisible;
// The delegate makes the item, and one that it does not make does not come in. A window that takes a toolbar has
// it bring in its default items.
- (void)insertItemWithItemIdentifier:(NSString*)identifier atIndex:(NSInteger)index;
@end

namespace vornlab {

// What an alert has shown. The window, of which it was a sheet, is not owned and may have gone; nil for none.
struct ShownAlert {
  id window = nil;
  std::string message;
  std::vector<std::string> buttons;
  bool hasIcon = false;
  std::string switchTitle;
};

// The alerts that have come, and how the next ones are answered; those beyond are declined with their second
// button.
struct AlertDesk {
  // The answer of nobody: the toolkit breaks the alert off.
  static constexpr std::size_t kBrokenOff = static_cast<std::size_t>(-1);
  std::vector<ShownAlert> alerts;
  std::deque<vorn::Presenter::Answer> answers;
};
AlertDesk& alertDesk();

// What the person chooses in the next menu that opens, and whether it was there to be chosen. Nil for nothing.
void chooseInNextMenu(NSMenuItem* item);
bool wasChosen();

}  // namespace vornlab
