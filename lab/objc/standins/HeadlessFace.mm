// The host's face without windows: nobody looks, so nothing is drawn beyond what the plug-in itself puts in.

#import "lab/objc/HostClasses.h"
#import "lab/objc/HostControls.h"
#import "lab/objc/HostHand.h"

namespace vornlab {

NSView* newCalendarView(CCGridViewController* controller) {
  (void)controller;
  return [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 700)];
}

void fillEditor(ERCalendarEventEditorWindowController* controller) { (void)controller; }

void fillMainWindow(ERageMainWindowController* controller) { (void)controller; }

void editorHasChanged(ERCalendarEventEditorViewController* editor) { (void)editor; }

void calendarHasChanged() {}

bool pressAsSeen(const FoundControl& control) {
  if (!control.view) {
    [[control.toolbarItem target] performSelector:[control.toolbarItem action] withObject:control.toolbarItem];
    return true;
  }
  chooseInNextMenu(control.entry);
  const NSRect frame = [control.view frame];
  const NSPoint middle = NSMakePoint(NSMidX(frame), NSMidY(frame));
  [[control.view hitTest:middle] mouseDown:[[NSApplication sharedApplication] currentEvent]];
  const bool isDone = !control.entry || wasChosen();
  chooseInNextMenu(nil);
  return isDone;
}

// -- Nobody's hand: what it would lead to, done to the host itself

void typeAsSeen(ERCalendarEventEditorWindowController* controller, EditorField field, NSString* text) {
  ERCalendarEventEditorViewController* editor = [controller editorViewController];
  AppointmentChanges& typed = editor->m_state->typed;
  if (field == EditorField::location) [editor->m_locationField setStringValue:text];
  (field == EditorField::subject ? typed.summary : typed.location) = plainText(text);
  [editor setIsDirty:YES];
}

void typeTimesAsSeen(ERCalendarEventEditorWindowController* controller, double start, double end) {
  ERCalendarEventEditorViewController* editor = [controller editorViewController];
  const Appointment& shown = editor->m_event->m_appointment;
  editor->m_state->typed.start = shown.timeLikeStart(start);
  editor->m_state->typed.end = shown.timeLikeStart(end);
  [editor setIsDirty:YES];
}

void endAsSeen(ERCalendarEventEditorWindowController* controller, EndOfEditing end) {
  ERCalendarEventEditorViewController* editor = [controller editorViewController];
  switch (end) {
    case EndOfEditing::save: return [editor save:nil];
    case EndOfEditing::saveAndClose: return [editor saveAndClose:nil];
    case EndOfEditing::send: return [editor sendMeetingPostValidate];
    case EndOfEditing::closeWithoutSaving: return [controller close];
  }
}

namespace {

OLCalendarDate* dateLike(ECCalendarEvent* event, double seconds) {
  return [OLCalendarDate dateWithTime:event->m_appointment.timeLikeStart(seconds)];
}

}  // namespace

void dragAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start) {
  BOOL inProgress = YES;
  [[[main grid] gridViewController] setSelectedEvent:event];
  [[main grid] performDragFrom:nil to:nil forDate:dateLike(event, start) inProgress:&inProgress];
}

void resizeAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start, double seconds) {
  BOOL inProgress = YES;
  [[[main grid] gridViewController] setSelectedEvent:event];
  [[main grid] dragResizedEvent:event
                   withTileView:nil
                  withStartDate:dateLike(event, start)
                       duration:seconds
                     inProgress:&inProgress
                   partialStart:NO
                     partialEnd:NO];
}

void renameAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, NSString* subject) {
  [[[main grid] gridViewController] setSelectedEvent:event];
  [[main grid] subjectChanged:subject forEvent:event andTileView:nil];
}

void deleteAsSeen(ERageMainWindowController* main, ECCalendarEvent* event) {
  (void)main;
  [event deleteEventNow];
}

}  // namespace vornlab
