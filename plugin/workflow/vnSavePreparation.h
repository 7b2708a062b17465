#pragma once

#include <memory>

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "workflow/MeetingBar.h"

namespace vorn {

// What happens to an editor before the host stores what it shows.

// In a save hook, before the workflow is asked: brings the body to the form that the service's invitation has, and
// notes what the user has typed. Nothing for an editor that has no bar or no meeting.
void vn_preHandleVnMeeting(const HostObject& editor);
// Notes body and location as they stand in the editor, for the store to come. Nothing without a bar.
void vn_preSaveDataBeforeSaveAndClose(vnERCalendarEventEditorViewController& editor);
// Brings body and location that were noted for the store up to what the window shows now: the user may have typed
// on while the client was asked, or after a cancel, and the older words must not take the place of theirs. What
// was not noted stays so, and a window that has closed keeps what was noted last.
void renewDataToStore(const std::shared_ptr<MeetingBar>& bar);
void vn_convertMailBodyToPlainText(const HostObject& editor);

}  // namespace vorn
