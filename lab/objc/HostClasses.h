#pragma once

// The classes of the stand-in host for the Objective-C runtime. They carry the host's own names, which is all that
// the plug-in knows of them, and the names of the toolkit's classes, which is not linked here.

#import <Foundation/Foundation.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lab/outlook/CalendarStore.h"

@class NSWindow, ERCalendarEventEditorViewController, ERCalendarEventEditorWindowController;

// -- Views and windows -------------------------------------------------------------------------------------------

@interface NSView : NSObject {
  NSRect frame_;
  NSMutableArray* subviews_;
  NSView* superview_;
  NSWindow* window_;
  BOOL hidden_;
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
@end

@interface NSTextField : NSView {
  NSString* text_;
}
- (NSString*)stringValue;
- (void)setStringValue:(NSString*)text;
@end

@interface OLAttachmentsAcceptingView : NSView
@end
@interface OLCalendarHeaderContainerView : OLAttachmentsAcceptingView
- (NSArray*)managedSubviewsData;
@end
@interface OLAutoLayoutView : NSView
@end
@interface OLAutoLayoutAttachmentsAcceptingView : OLAutoLayoutView
@end
@interface OUIRibbonView : NSView
@end
@interface OUIRibbonChunkView : NSView
@end
@interface OUIRibbonChunkContainerView : NSView
@end

@interface NSWindow : NSObject {
  id controller_;
  NSView* contentView_;
  BOOL closed_;
}
- (id)initWithController:(id)controller contentFrame:(NSRect)frame;
- (id)windowController;
- (NSView*)contentView;
- (BOOL)isVisible;
- (void)close;
@end

@interface NSWindowController : NSObject {
  NSWindow* window_;
}
- (NSWindow*)window;
@end

@interface NSViewController : NSObject
@end

@interface NSApplication : NSObject
+ (NSApplication*)sharedApplication;
- (BOOL)isActive;
- (NSArray*)windows;
@end

// Declines what is asked, and keeps what was said.
@interface NSAlert : NSObject {
  NSString* message_;
  NSUInteger buttons_;
}
// The text of the last alert; "" when there was none since the last question.
+ (std::string)takeLastMessage;
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (id)addButtonWithTitle:(NSString*)title;
- (NSInteger)runModal;
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context;
@end

@interface ERageMainWindowController : NSWindowController
- (void)windowDidBecomeMain:(NSNotification*)notification;
- (void)windowWillClose:(NSNotification*)notification;
- (void)loadMailPane;
- (void)loadCalendarPane;
- (NSArray*)toolbarDefaultItemIdentifiers:(id)toolbar;
- (NSArray*)toolbarAllowedItemIdentifiers:(id)toolbar;
@end

// -- Appointments ------------------------------------------------------------------------------------------------

@interface OLCalendarDate : NSObject {
  double seconds_;
  NSTimeZone* zone_;
}
+ (OLCalendarDate*)dateWithTime:(const vornlab::CalendarTime&)time;
- (id)initWithSeconds:(double)seconds zone:(NSTimeZone*)zone;
- (NSDate*)dateUTC;
- (double)timeIntervalSince1970;
- (NSTimeZone*)timeZone;
- (double)timeIntervalSinceDate:(OLCalendarDate*)other;
- (OLCalendarDate*)dateByAddingTimeInterval:(double)seconds;
- (OLCalendarDate*)dateInDifferentTimeZone:(NSTimeZone*)zone;
@end

// One appointment of a store, by its place.
@interface HostStoredObject : NSObject {
 @public
  vornlab::CalendarStore* store_;
  NSInteger index_;
}
- (id)initWithStore:(vornlab::CalendarStore*)store index:(NSInteger)index;
@end

@interface ECRecurrence : HostStoredObject
- (NSString*)format;
@end

@interface ECRecordUID : HostStoredObject
@end

@interface ECCalendarEventAttendee : NSObject {
  NSString* name_;
  NSString* emailAddress_;
  int type_;
}
- (id)initWithAttendee:(const vornlab::CalendarAttendee&)attendee;
@end

@interface ECEmailAddress : NSObject
- (NSString*)emailAddress;
- (NSString*)name;
@end

@interface ECEmailAccount : NSObject
+ (ECEmailAccount*)account;
+ (void)setUserAddress:(NSString*)address;
- (NSString*)emailAddress;
- (ECEmailAddress*)fromAddress;
@end

@interface ECCalendarEvent : HostStoredObject {
 @public
  // What has been changed in memory since, by the name of the reader.
  NSMutableDictionary* changed_;
}
- (NSString*)summary;
- (NSString*)location;
- (NSString*)body;
- (BOOL)isBodyHTML;
- (NSString*)olmUCInband;
- (NSString*)olmUCCapabilities;
- (OLCalendarDate*)startTime;
- (OLCalendarDate*)endTime;
- (NSArray*)attendeeList;
- (BOOL)isMeeting;
- (BOOL)isOccurrence;
- (BOOL)isModifiedException;
- (ECRecurrence*)recurrence;
- (NSString*)organizer;
- (void)setOlmUCInband:(NSString*)record;
- (void)setOlmUCCapabilities:(NSString*)record;
@end

// The record of a save.
@interface ECMutableCalendarEvent : ECCalendarEvent
// Brings what differs into the calendar. 0 when that is done.
- (long)saveRecord;
@end

// -- Editors -----------------------------------------------------------------------------------------------------

@interface OLWordMailEditorContent : NSObject {
 @public
  NSString* html_;
}
- (NSString*)bodyContent;
@end

@interface OLWordMailEditor : NSObject {
 @public
  OLWordMailEditorContent* content_;
  // Not owned; nil when it has closed.
  ERCalendarEventEditorViewController* editor_;
  BOOL plainText_;
}
- (OLWordMailEditorContent*)editorContent;
- (void)displayHTMLContent:(NSString*)html readOnly:(BOOL)readOnly;
@end

@interface ERCalendarEventEditorViewController : NSViewController {
 @public
  // Not owned; nil when it has closed.
  ERCalendarEventEditorWindowController* owner_;
  ECCalendarEvent* event_;
  OLWordMailEditor* wordEditor_;
  NSTextField* locationField_;
  NSMutableDictionary* uncommitted_;
  NSString* loadedHtml_;
  BOOL dirty_;
  BOOL cancelMode_;
}
- (ECCalendarEvent*)content;
- (NSArray*)attendeeList;
- (NSView*)view;
- (NSWindow*)window;
- (void)hostWordMailEditor:(OLWordMailEditor*)editor;
- (void)loadEventIntoWordMail;
- (void)contentDidChange;
- (BOOL)isDirty;
- (void)setIsDirty:(BOOL)dirty;
- (BOOL)save;
- (void)save:(id)sender;
- (int)saveAndCloseWindow:(BOOL)close;
- (void)saveAndClose:(id)sender;
- (void)sendMeetingPostValidate;
@end

@interface ERCalendarEventEditorWindowController : NSWindowController {
 @public
  ERCalendarEventEditorViewController* editor_;
  NSView* header_;
}
+ (id)showWindowForMeeting:(ECCalendarEvent*)event;
+ (id)showWindowForEvent:(ECCalendarEvent*)event;
+ (id)showCancellationWindowForMeeting:(ECCalendarEvent*)event;
+ (id)showWindowForEvent:(ECCalendarEvent*)event isMeeting:(BOOL)isMeeting fromMessage:(id)message;
// The controllers of the editors that are open.
+ (NSArray*)openControllers;
- (ERCalendarEventEditorViewController*)editorViewController;
- (void)close;
@end

namespace vornlab {

NSString* foundationText(std::string_view text);
NSString* foundationText(const vorn::OptionalText& text);
std::string plainText(NSString* text);
// The stored appointment behind the object; absent when it is not stored, or was removed.
std::optional<CalendarEvent> storedEvent(HostStoredObject* object);

}  // namespace vornlab
