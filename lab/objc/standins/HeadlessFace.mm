// The host's face without windows: nobody looks, so nothing is drawn beyond what the plug-in itself puts in.

#import "lab/objc/HostClasses.h"

namespace vornlab {

NSView* newCalendarView(CCGridViewController* controller) {
  (void)controller;
  return [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 1200, 700)];
}

void fillEditor(ERCalendarEventEditorWindowController* controller) { (void)controller; }

void fillMainWindow(ERageMainWindowController* controller) { (void)controller; }

void editorHasChanged(ERCalendarEventEditorViewController* editor) { (void)editor; }

void calendarHasChanged() {}

}  // namespace vornlab
