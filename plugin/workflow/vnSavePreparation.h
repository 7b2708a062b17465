#pragma once

#include "host/proxies/vnERCalendarEventEditorViewController.h"

namespace vorn {

// What happens to an editor before the host stores what it shows. Each does nothing for an editor that has no bar.

// In a save hook, before the workflow is asked: brings the body of a meeting to the form that the service's
// invitation has, and notes what the user has typed.
void vn_preHandleVnMeeting(const HostObject& editor);
// Notes body and location as they stand in the editor, for the store to come.
void vn_preSaveDataBeforeSaveAndClose(vnERCalendarEventEditorViewController& editor);
// Renews the body that was noted for the store, if one was: the user may have typed on while the client was asked,
// or after a cancel, and the older text must not take the place of theirs.
void renewBodyToStore(vnERCalendarEventEditorViewController& editor);
void vn_convertMailBodyToPlainText(const HostObject& editor);

}  // namespace vorn
