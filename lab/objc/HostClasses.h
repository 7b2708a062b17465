#pragma once

// The classes of the stand-in host for the Objective-C runtime. They carry the host's own names, which is all that
// the plug-in knows of them. What they show is the business of a face: one without windows, for tests and command
// lines, and the desktop.

#import "lab/objc/Toolkit.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "lab/host/EditorState.h"
#include "lab/host/HostFace.h"

@class ECCalendarEvent, OLCalendarDate, ERCalendarEventEditorViewController, ERCalendarEventEditorWindowController;

// -- Views and windows -------------------------------------------------------------------------------------------

@interface OLAttachmentsAcceptingView : NSView
@end
@interface OLCalendarHeaderContainerView : OLAttachmentsAcceptingView
- (NSArray*)managedSubviewsData;
@end
@interface OLAutoLayoutView : NSView
@end
@interface OLAutoLayoutAttachmentsAcceptingView : OLAutoLayoutView
@end

@interface OUIRibbonChunkView : NSView {
  NSString* m_title;
}
- (id)initWithTitle:(NSString*)title frame:(NSRect)frame;
- (NSAttributedString*)attributedTitle;
- (NSString*)title;
@end
@interface OUIRibbonChunkContainerView : NSView
@end
@interface OUIRibbonView : NSView {
  OUIRibbonChunkContainerView* m_container;
  NSUInteger m_tab;
}
- (OUIRibbonChunkContainerView*)container;
- (NSUInteger)activeTabIndex;
// Chooses the tab, whose chunks come in place of the others', and draws the container.
- (void)setActiveTabIndex:(NSUInteger)tab;
@end

@interface ErageAppDelegate : NSObject
- (void)newCalendarMeeting:(id)argument;
@end

@interface CCGridViewController : NSViewController {
  NSView* m_view;
  ECCalendarEvent* m_selectedEvent;
}
- (NSView*)view;
- (ECCalendarEvent*)selectedEvent;
- (void)setSelectedEvent:(ECCalendarEvent*)event;
@end

// The calendar on the screen. What a person does to the selected appointment is stored at once; each answers
// whether that is done, and says through its flag that the movement of the mouse is over.
@interface OLCalendarGridViewWrapper : NSObject {
  CCGridViewController* m_controller;
}
- (CCGridViewController*)gridViewController;
- (BOOL)dragResizedEvent:(ECCalendarEvent*)event
            withTileView:(NSView*)tile
           withStartDate:(OLCalendarDate*)start
                duration:(double)seconds
              inProgress:(BOOL*)inProgress
            partialStart:(BOOL)partialStart
              partialEnd:(BOOL)partialEnd;
- (BOOL)performDragFrom:(id)from to:(id)to forDate:(OLCalendarDate*)start inProgress:(BOOL*)inProgress;
- (BOOL)subjectChanged:(NSString*)subject forEvent:(ECCalendarEvent*)event andTileView:(NSView*)tile;
@end

@interface ERageMainWindowController : NSWindowController {
  OLCalendarGridViewWrapper* m_grid;
  OUIRibbonView* m_ribbon;
}
- (OLCalendarGridViewWrapper*)grid;
- (OUIRibbonView*)ribbon;
// Another ribbon in place of the one that stands, with the same tab.
- (void)rebuildRibbon;
- (NSToolbarItem*)toolbar:(NSToolbar*)toolbar
        itemForItemIdentifier:(NSString*)identifier
    willBeInsertedIntoToolbar:(BOOL)isInserted;
- (void)windowDidBecomeMain:(NSNotification*)notification;
- (void)windowWillClose:(NSNotification*)notification;
- (void)loadMailPane;
- (void)loadCalendarPane;
- (NSArray*)toolbarDefaultItemIdentifiers:(id)toolbar;
- (NSArray*)toolbarAllowedItemIdentifiers:(id)toolbar;
@end

// -- Appointments ------------------------------------------------------------------------------------------------

@interface OLCalendarDate : NSObject {
  double m_seconds;
  NSTimeZone* m_zone;
}
+ (OLCalendarDate*)dateWithTime:(const vornlab::CalendarTime&)time;
- (id)initWithSeconds:(double)seconds zone:(NSTimeZone*)zone;
- (vornlab::CalendarTime)time;
- (NSDate*)dateUTC;
- (double)timeIntervalSince1970;
- (NSTimeZone*)timeZone;
- (double)timeIntervalSinceDate:(OLCalendarDate*)other;
- (OLCalendarDate*)dateByAddingTimeInterval:(double)seconds;
- (OLCalendarDate*)dateInDifferentTimeZone:(NSTimeZone*)zone;
@end

// What stands for an appointment.
@interface HostStoredObject : NSObject {
 @public
  vornlab::Appointment m_appointment;
}
- (id)initWithAppointment:(const vornlab::Appointment&)appointment;
@end

@interface ECRecurrence : HostStoredObject
- (NSString*)format;
@end

@interface ECRecordUID : HostStoredObject
@end

@interface ECCalendarEventAttendee : NSObject {
  vornlab::CalendarAttendee m_attendee;
}
- (id)initWithAttendee:(const vornlab::CalendarAttendee&)attendee;
@end

@interface ECEmailAddress : NSObject {
  NSString* m_address;
}
- (id)initWithAddress:(NSString*)address;
- (NSString*)emailAddress;
- (NSString*)name;
@end

@interface ECEmailAccount : NSObject {
  // Nil for that of the calendar's owner.
  NSString* m_address;
}
+ (ECEmailAccount*)account;
// Nil for that of the calendar's owner.
+ (ECEmailAccount*)accountOf:(NSString*)address;
- (NSString*)emailAddress;
- (ECEmailAddress*)fromAddress;
@end

@interface ECCalendarEvent : HostStoredObject
+ (ECCalendarEvent*)eventOf:(const vornlab::Appointment&)appointment;
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
- (double)duration;
- (id)seriesMasterRecord;
- (BOOL)deleteEventNow;
// Tells the attendees, which counts as sent, and takes it off the calendar.
- (void)cancelMeetingInWindow:(NSWindow*)window;
// Stores these changes and those in memory through a record of its own.
- (BOOL)storeChanges:(const vornlab::AppointmentChanges&)changes;
@end

// The record of a save.
@interface ECMutableCalendarEvent : ECCalendarEvent
// Brings what differs into the calendar. 0 when that is done.
- (long)saveRecord;
@end

// -- Editors -----------------------------------------------------------------------------------------------------

@interface OLWordMailEditorContent : NSObject {
 @public
  std::shared_ptr<vornlab::EditorState> m_state;
}
- (NSString*)bodyContent;
@end

@interface OLWordMailEditor : NSObject {
 @public
  OLWordMailEditorContent* m_content;
  // Not owned; nil when it has closed.
  ERCalendarEventEditorViewController* m_editor;
  std::shared_ptr<vornlab::EditorState> m_state;
}
- (id)initWithEditor:(ERCalendarEventEditorViewController*)editor;
- (OLWordMailEditorContent*)editorContent;
- (void)displayHTMLContent:(NSString*)html readOnly:(BOOL)readOnly;
@end

@interface ERCalendarEventEditorViewController : NSViewController {
 @public
  // Not owned; nil when it has closed.
  ERCalendarEventEditorWindowController* m_owner;
  ECCalendarEvent* m_event;
  OLWordMailEditor* m_wordEditor;
  NSTextField* m_locationField;
  std::shared_ptr<vornlab::EditorState> m_state;
}
- (ECCalendarEvent*)content;
- (NSArray*)attendeeList;
// From which it is sent.
- (ECEmailAccount*)currentEmailAccount;
- (NSView*)view;
- (NSWindow*)window;
// What was typed and not saved, by the names of the host.
- (NSDictionary*)uncommittedChanges;
- (void)hostWordMailEditor:(OLWordMailEditor*)editor;
- (void)loadEventIntoWordMail;
- (void)contentDidChange;
- (NSString*)getSubject:(id)unused;
- (NSString*)getLocation:(id)unused;
- (void)fromFieldModified:(id)sender;
- (BOOL)isDirty;
- (void)setIsDirty:(BOOL)dirty;
- (BOOL)save;
- (void)save:(id)sender;
- (int)saveAndCloseWindow:(BOOL)close;
- (int)saveAndCloseWindow:(BOOL)close andReturnError:(id)error;
- (void)saveAndClose:(id)sender;
- (void)sendMeetingPostValidate;
// The answer to the question whether the whole series is meant: 1 when it is.
- (void)switchToRecurrenceDidEnd:(id)alert returnCode:(int)code contextInfo:(void*)context;
// Takes the changes as a text, and answers whether it names any that attendees hear of.
- (BOOL)checkMeetingChangesForAttendees:(const char*)changes;
// Goes on with the series of the item that it shows.
- (void)showSeries;
@end

@interface OLCalendarEventViewResponder : NSObject
// In the editor of the current event.
- (void)switchToRecurringSeries:(id)sender;
@end

@interface ERCalendarEventEditorWindowController : NSWindowController {
 @public
  ERCalendarEventEditorViewController* m_editor;
  NSView* m_header;
  // By which a person at the host knows the window; not used again.
  vornlab::HostFace::EditorId m_number;
}
+ (id)showWindowForNewMeeting;
+ (id)showWindowForNewEvent;
+ (id)showWindowForMeeting:(ECCalendarEvent*)event;
+ (id)showWindowForEvent:(ECCalendarEvent*)event;
+ (id)showCancellationWindowForMeeting:(ECCalendarEvent*)event;
+ (id)showWindowForEvent:(ECCalendarEvent*)event isMeeting:(BOOL)isMeeting fromMessage:(id)message;
// The controllers of the editors that are open.
+ (NSArray*)openControllers;
- (ERCalendarEventEditorViewController*)editorViewController;
// Closes without saving.
- (void)close;
@end

namespace vornlab {

// What is released later than at once ends with this.
class Pool {
 public:
  Pool() : m_pool([[NSAutoreleasePool alloc] init]) {}
  ~Pool() { [m_pool drain]; }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

 private:
  NSAutoreleasePool* m_pool;
};

// The bar that the plug-in has put into the header of an editor; nil without one.
NSView* barIn(NSView* header);
// What the host does with an appointment that is opened: a meeting has a window of its own kind. Nil when it
// cannot.
ERCalendarEventEditorWindowController* openEditorOf(ECCalendarEvent* event);

NSArray* attendeeObjects(const std::vector<CalendarAttendee>& people);
NSString* foundationText(std::string_view text);
NSString* foundationText(const std::string& text);
NSString* foundationText(const vorn::OptionalText& text);
std::string plainText(NSString* text);
// What all of these classes share.
HostState& hostState();
// The calendar that the host shows.
inline CalendarStore* shownStore() { return hostState().store; }
// What is just being put into the toolbar, for a toolkit that asks whether the host allows it; nil for nothing.
// What can be made of it the host is asked as ever.
NSString*& insertedToolbarItem();
// Puts another body into the compose view of an editor, which tells it as its own change.
void typeBodyInto(ERCalendarEventEditorViewController* editor, std::string html);
// What a face puts into the host's windows. The view for the calendar is the caller's; the controller's header and
// body are there, and its editor has the fields that it reads and writes.
NSView* newCalendarView(CCGridViewController* controller);
void fillEditor(ERCalendarEventEditorWindowController* controller);
void fillMainWindow(ERageMainWindowController* controller);
// The editor shows another body, or location, than before; something in the calendar is other than before.
void editorHasChanged(ERCalendarEventEditorViewController* editor);
void calendarHasChanged();
}  // namespace vornlab
