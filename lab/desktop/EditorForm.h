#pragma once

#import "lab/objc/HostClasses.h"

// What a person reads and types in an editor: a row of buttons, the header's fields, and the body. What is typed
// becomes an uncommitted change of the editor, and the buttons send what the host's own send. It fills the
// window's content, around the header that the host has put there.
@interface vnEditorForm : NSView {
  // Not owned; the window with this view ends with it.
  ERCalendarEventEditorWindowController* m_controller;
  NSTextField* m_subject;
  NSTextField* m_start;
  NSTextField* m_end;
  NSTextView* m_body;
}
+ (void)putInto:(ERCalendarEventEditorWindowController*)controller;
// Nil for an editor without one.
+ (vnEditorForm*)formOf:(ERCalendarEventEditorViewController*)editor;
// Shows the body as it stands in the editor now.
- (void)showBody;
@end
