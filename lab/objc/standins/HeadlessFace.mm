// The host's face without windows: nobody looks, so nothing is drawn beyond what the plug-in itself puts in.

#import "lab/objc/HostClasses.h"
#import "lab/objc/HostControls.h"

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

}  // namespace vornlab
