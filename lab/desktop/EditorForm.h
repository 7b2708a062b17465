#pragma once

#import "lab/desktop/BodyText.h"
#import "lab/objc/HostClasses.h"

// What a person reads and types in an editor: a row of buttons, the header's fields, and the body. What is typed
// becomes an uncommitted change of the editor, and the buttons send what the host's own send. It fills the
// window's content, around the header that the host has put there.
@interface vnEditorForm : NSView {
  // Not owned; the window with this view ends with it.
  ERCalendarEventEditorWindowController* m_controller;
  // Whom the fields show. Not owned; read while it is what the editor shows.
  ECCalendarEvent* m_event;
  NSButton* m_send;
  NSPopUpButton* m_from;
  NSTextField* m_people;
  NSTextField* m_subject;
  NSTextField* m_start;
  NSTextField* m_end;
  // The time that a person is typing; nil for none.
  NSTextField* m_typedTime;
  // What is wrong with the time beside it; "" for nothing.
  NSTextField* m_startTrouble;
  NSTextField* m_endTrouble;
  // What is no address among the people.
  NSTextField* m_peopleTrouble;
  vnBodyText* m_body;
}
+ (void)putInto:(ERCalendarEventEditorWindowController*)controller;
// Nil for an editor without one.
+ (vnEditorForm*)formOf:(ERCalendarEventEditorViewController*)editor;
// What a person types into.
- (NSTextField*)peopleField;
- (NSPopUpButton*)fromPopUp;
- (NSTextField*)subjectField;
- (NSTextField*)startField;
- (NSTextField*)endField;
- (vnBodyText*)bodyText;
// A time as it is typed into the field.
- (NSString*)textFor:(NSTextField*)field ofSeconds:(double)seconds;
// Shows the appointment as it stands in the editor now: its body, and its fields when it has become another, as
// the series of an occurrence. What is typed in the fields of the same one stays.
- (void)showEvent;
// Shows the accounts from which it can be sent, as they are now.
- (void)showSenders;
// Closes the editor, and asks before when there are changes. NO when the person wants to go on. A save may still
// wait for the client.
- (BOOL)askToClose;
@end
