#pragma once

// A person's hand in the windows of the host. What cannot be done by hand in a face throws LabError, and says why.

#import "lab/objc/HostClasses.h"

namespace vornlab {

enum class EditorField { subject, location };

// Each makes what is typed the editor's own uncommitted change. Times are seconds since 1970.
void typeAsSeen(ERCalendarEventEditorWindowController* controller, EditorField field, NSString* text);
void typeTimesAsSeen(ERCalendarEventEditorWindowController* controller, double start, double end);

enum class EndOfEditing { save, saveAndClose, send, closeWithoutSaving };
void endAsSeen(ERCalendarEventEditorWindowController* controller, EndOfEditing end);

// On the calendar's surface, to the appointment there; the main window's controller has the surface.
void dragAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start);
void resizeAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, double start, double seconds);
void renameAsSeen(ERageMainWindowController* main, ECCalendarEvent* event, NSString* subject);
// Also without a main window.
void deleteAsSeen(ERageMainWindowController* main, ECCalendarEvent* event);

}  // namespace vornlab
