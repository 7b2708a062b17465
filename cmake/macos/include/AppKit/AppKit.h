#pragma once

// The classes and functions of AppKit that this project uses, as the system's own header declares them, and no
// others. For the cross build alone; on a Mac the system's header is used.

#import <Foundation/Foundation.h>

#define APPKIT_EXPORT FOUNDATION_EXPORT

@class NSCell, NSClipView, NSEvent, NSMenu, NSScreen, NSScroller, NSText, NSTextStorage, NSWindow;

APPKIT_EXPORT NSString* const NSFontAttributeName;
APPKIT_EXPORT NSString* const NSForegroundColorAttributeName;
APPKIT_EXPORT NSString* const NSBackgroundColorAttributeName;
APPKIT_EXPORT NSString* const NSUnderlineStyleAttributeName;
APPKIT_EXPORT NSString* const NSStringPboardType;
APPKIT_EXPORT NSString* const NSCalibratedRGBColorSpace;
APPKIT_EXPORT NSString* const NSAccessibilityButtonRole;
APPKIT_EXPORT NSString* const NSAccessibilityCheckBoxRole;
APPKIT_EXPORT NSString* const NSAccessibilityComboBoxRole;
APPKIT_EXPORT NSString* const NSAccessibilityLinkRole;
APPKIT_EXPORT NSString* const NSAccessibilityListRole;
APPKIT_EXPORT NSString* const NSAccessibilityPopUpButtonRole;
APPKIT_EXPORT NSString* const NSAccessibilityRadioButtonRole;
APPKIT_EXPORT NSString* const NSAccessibilityRadioGroupRole;
APPKIT_EXPORT NSString* const NSAccessibilityStaticTextRole;
APPKIT_EXPORT NSString* const NSAccessibilityTextFieldRole;

APPKIT_EXPORT void NSRectFill(NSRect rect);
APPKIT_EXPORT void NSFrameRect(NSRect rect);

enum : NSInteger { NSUnderlineStyleSingle = 1 };
typedef NSInteger NSStringDrawingOptions;
enum : NSStringDrawingOptions { NSStringDrawingUsesLineFragmentOrigin = 1 };
typedef NSUInteger NSLineBreakMode;
enum : NSLineBreakMode { NSLineBreakByTruncatingTail = 4 };
typedef NSInteger NSControlStateValue;
enum : NSControlStateValue { NSOffState = 0, NSOnState = 1 };
typedef NSUInteger NSButtonType;
enum : NSButtonType { NSSwitchButton = 3, NSRadioButton = 4, NSMomentaryLight = 0, NSMomentaryPushInButton = 7 };
typedef NSUInteger NSBezelStyle;
enum : NSBezelStyle { NSRoundedBezelStyle = 1 };
typedef NSUInteger NSBorderType;
enum : NSBorderType { NSNoBorder = 0 };
typedef NSUInteger NSScrollArrowPosition;
enum : NSScrollArrowPosition { NSScrollerArrowsNone = 2 };
typedef NSUInteger NSWindowStyleMask;
enum : NSWindowStyleMask { NSBorderlessWindowMask = 0, NSTitledWindowMask = 1 };
typedef NSUInteger NSBackingStoreType;
enum : NSBackingStoreType { NSBackingStoreBuffered = 2 };
typedef NSInteger NSWindowOrderingMode;
enum : NSWindowOrderingMode { NSWindowAbove = 1 };
typedef NSUInteger NSEventType;
enum : NSEventType { NSLeftMouseDown = 1, NSScrollWheel = 22 };

@interface NSColor : NSObject <NSCopying>
@property(class, strong, readonly) NSColor* alternateSelectedControlColor;
@property(class, strong, readonly) NSColor* alternateSelectedControlTextColor;
@property(class, strong, readonly) NSColor* controlBackgroundColor;
@property(class, strong, readonly) NSColor* controlTextColor;
@property(class, strong, readonly) NSColor* disabledControlTextColor;
@property(class, strong, readonly) NSColor* gridColor;
@property(class, strong, readonly) NSColor* redColor;
@property(class, strong, readonly) NSColor* selectedTextBackgroundColor;
@property(class, strong, readonly) NSColor* textBackgroundColor;
@property(class, strong, readonly) NSColor* windowBackgroundColor;
+ (NSColor*)colorWithCalibratedRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
- (NSColor*)colorUsingColorSpaceName:(NSString*)name;
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
- (void)set;
@end

@interface NSFont : NSObject <NSCopying>
@property(class, readonly) CGFloat smallSystemFontSize;
@property(class, readonly) CGFloat systemFontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)size;
+ (NSFont*)boldSystemFontOfSize:(CGFloat)size;
@end

@interface NSString (NSStringDrawing)
- (void)drawAtPoint:(NSPoint)point withAttributes:(NSDictionary*)attributes;
- (NSRect)boundingRectWithSize:(NSSize)size
                       options:(NSStringDrawingOptions)options
                    attributes:(NSDictionary*)attributes;
@end

@interface NSGraphicsContext : NSObject
@property(class, strong) NSGraphicsContext* currentContext;
- (void)saveGraphicsState;
- (void)restoreGraphicsState;
@end

@interface NSBezierPath : NSObject <NSCopying>
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)x yRadius:(CGFloat)y;
@property CGFloat lineWidth;
- (void)addClip;
- (void)fill;
- (void)stroke;
@end

@interface NSPasteboard : NSObject
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
- (NSInteger)declareTypes:(NSArray*)types owner:(id)owner;
- (BOOL)setString:(NSString*)text forType:(NSString*)type;
- (NSString*)stringForType:(NSString*)type;
@end

@interface NSEvent : NSObject <NSCopying>
@property(readonly) NSEventType type;
@property(readonly) NSPoint locationInWindow;
@end

@interface NSScreen : NSObject
@property(class, strong, readonly) NSScreen* mainScreen;
@property(readonly) NSRect visibleFrame;
@end

@interface NSResponder : NSObject
@property(readonly) BOOL acceptsFirstResponder;
- (BOOL)tryToPerform:(SEL)action with:(id)object;
- (BOOL)becomeFirstResponder;
- (BOOL)resignFirstResponder;
- (void)interpretKeyEvents:(NSArray*)events;
- (void)keyDown:(NSEvent*)event;
- (void)mouseDown:(NSEvent*)event;
- (void)mouseDragged:(NSEvent*)event;
@end

@interface NSView : NSResponder
@property(readonly, assign) NSWindow* window;
@property NSRect frame;
@property NSRect bounds;
@property(readonly) NSRect visibleRect;
@property(readonly, assign) NSView* superview;
@property(getter=isHidden) BOOL hidden;
@property(readonly, getter=isHiddenOrHasHiddenAncestor) BOOL hiddenOrHasHiddenAncestor;
@property(getter=isFlipped, readonly) BOOL flipped;
@property BOOL needsDisplay;
@property(copy) NSString* toolTip;
@property(assign) NSView* nextKeyView;
- (instancetype)initWithFrame:(NSRect)frame;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView*)view;
- (NSRect)convertRect:(NSRect)rect toView:(NSView*)view;
- (void)drawRect:(NSRect)dirty;
- (BOOL)scrollRectToVisible:(NSRect)rect;
- (void)setFrameSize:(NSSize)size;
@end

@interface NSWindow : NSResponder
@property(copy) NSString* title;
@property(strong) __kindof NSView* contentView;
@property(readonly) NSRect frame;
@property(readonly, strong) NSScreen* screen;
@property(readonly, assign) NSResponder* firstResponder;
@property(assign) NSView* initialFirstResponder;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property BOOL hasShadow;
@property BOOL hidesOnDeactivate;
@property(readonly) BOOL canBecomeKeyWindow;
@property(readonly, getter=isVisible) BOOL visible;
@property(readonly) NSArray* childWindows;
@property(readonly) BOOL canBecomeMainWindow;
- (instancetype)initWithContentRect:(NSRect)frame
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defer;
- (void)addChildWindow:(NSWindow*)child ordered:(NSWindowOrderingMode)place;
- (void)removeChildWindow:(NSWindow*)child;
- (NSPoint)convertBaseToScreen:(NSPoint)point;
- (NSRect)frameRectForContentRect:(NSRect)content;
- (void)setFrame:(NSRect)frame display:(BOOL)display;
- (BOOL)makeFirstResponder:(NSResponder*)responder;
- (void)makeKeyAndOrderFront:(id)sender;
- (void)makeKeyWindow;
- (void)orderFront:(id)sender;
- (void)orderOut:(id)sender;
- (void)selectKeyViewFollowingView:(NSView*)view;
- (void)selectKeyViewPrecedingView:(NSView*)view;
- (void)sendEvent:(NSEvent*)event;
@end

@interface NSPanel : NSWindow
@property BOOL becomesKeyOnlyIfNeeded;
@end

@interface NSCell : NSObject <NSCopying>
@property(copy) NSString* stringValue;
@property(readonly) NSSize cellSize;
@property BOOL wraps;
@property(getter=isScrollable) BOOL scrollable;
@property(strong) NSFont* font;
@property NSLineBreakMode lineBreakMode;
- (instancetype)initTextCell:(NSString*)text;
- (void)drawInteriorWithFrame:(NSRect)frame inView:(NSView*)view;
@end

@interface NSTextFieldCell : NSCell
@property(copy) NSString* placeholderString;
@end

@interface NSControl : NSView
@property(strong) __kindof NSCell* cell;
@property(assign) id target;
@property SEL action;
- (void)performClick:(id)sender;
@property NSInteger tag;
@property(getter=isEnabled) BOOL enabled;
@property(strong) NSFont* font;
@property(copy) NSString* stringValue;
@property(copy) NSAttributedString* attributedStringValue;
- (NSText*)currentEditor;
@end

@interface NSTextField : NSControl
@property(assign) id delegate;
@property(getter=isEditable) BOOL editable;
@property(getter=isSelectable) BOOL selectable;
@property(getter=isBezeled) BOOL bezeled;
@property(getter=isBordered) BOOL bordered;
@property BOOL drawsBackground;
@property(copy) NSColor* textColor;
@end

@interface NSComboBox : NSTextField
@property NSInteger numberOfVisibleItems;
- (void)addItemWithObjectValue:(id)value;
- (void)removeAllItems;
@end

@interface NSText : NSView
@end

@interface NSTextStorage : NSMutableAttributedString
@end

@interface NSTextView : NSText
@property(assign) NSTextStorage* textStorage;
@end

@interface NSButton : NSControl
@property(copy) NSString* title;
@property(copy) NSAttributedString* attributedTitle;
@property(copy) NSString* keyEquivalent;
@property(getter=isBordered) BOOL bordered;
@property NSBezelStyle bezelStyle;
@property NSControlStateValue state;
- (void)setButtonType:(NSButtonType)type;
@end

@interface NSMenuItem : NSObject <NSCopying>
@property(getter=isEnabled) BOOL enabled;
@property(copy) NSString* toolTip;
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)title action:(SEL)action keyEquivalent:(NSString*)key;
@end

@interface NSMenu : NSObject <NSCopying>
- (void)addItem:(NSMenuItem*)item;
@end

@interface NSPopUpButton : NSButton
@property(strong) NSMenu* menu;
@property BOOL autoenablesItems;
@property(readonly) NSInteger indexOfSelectedItem;
- (instancetype)initWithFrame:(NSRect)frame pullsDown:(BOOL)pullsDown;
- (void)removeAllItems;
- (void)selectItemAtIndex:(NSInteger)index;
@end

@interface NSScroller : NSControl
@property(class, readonly) CGFloat scrollerWidth;
@property NSScrollArrowPosition arrowsPosition;
@end

@interface NSScrollView : NSView
@property(strong) __kindof NSView* documentView;
@property NSBorderType borderType;
@property BOOL drawsBackground;
@property BOOL hasHorizontalScroller;
@property BOOL hasVerticalScroller;
@property(strong) NSScroller* verticalScroller;
@end

@interface NSTableColumn : NSObject
@property(getter=isEditable) BOOL editable;
@property(strong) id dataCell;
- (instancetype)initWithIdentifier:(NSString*)identifier;
@end

@interface NSTableView : NSControl
@property(assign) id dataSource;
@property(assign) id delegate;
@property(strong) id headerView;
@property(strong) NSView* cornerView;
@property NSSize intercellSpacing;
@property CGFloat rowHeight;
@property BOOL allowsEmptySelection;
@property(readonly) NSInteger numberOfRows;
@property(readonly) NSInteger selectedRow;
- (void)addTableColumn:(NSTableColumn*)column;
- (void)deselectAll:(id)sender;
- (void)reloadData;
- (void)scrollRowToVisible:(NSInteger)row;
- (void)selectRowIndexes:(NSIndexSet*)rows byExtendingSelection:(BOOL)extends;
- (void)sizeLastColumnToFit;
@end
