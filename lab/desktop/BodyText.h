#pragma once

#include <memory>

#include "lab/host/RichBody.h"
#import "lab/objc/HostClasses.h"

// The body in an editor, as a person reads and types it. What is typed becomes the editor's body at once, as what
// the host's own compose view would tell.
@interface vnBodyText : NSObject {
  // Not owned; it has this.
  ERCalendarEventEditorViewController* m_editor;
  // Not owned; it stands in the editor's window.
  NSTextView* m_view;
  std::unique_ptr<vornlab::RichBody> m_body;
}
// Puts the text into the view, in that frame, which grows with the view.
- (id)initIn:(NSView*)content frame:(NSRect)frame editor:(ERCalendarEventEditorViewController*)editor;
- (NSTextView*)view;
// Shows the body as it stands in the editor now; nothing when that is so already.
- (void)show;
// Makes what is selected bold, italic or underlined, or plain where all of it is so.
- (void)turn:(vornlab::TextStyle)style;
// Nothing is heard or shown from here on.
- (void)end;
@end
