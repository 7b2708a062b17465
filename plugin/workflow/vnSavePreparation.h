#pragma once

#include "host/proxies/vnERCalendarEventEditorViewController.h"

namespace vorn {

// What happens to an editor in a save hook before the workflow is asked. Each does nothing for an editor that has
// no bar or no meeting.

// Brings the body to the form that the service's invitation has, and notes what the user has typed.
void vn_preHandleVnMeeting(const HostObject& editor);
// Notes body and location as they stand in the editor, for the store to come.
void vn_preSaveDataBeforeSaveAndClose(vnERCalendarEventEditorViewController& editor);
void vn_convertMailBodyToPlainText(const HostObject& editor);

}  // namespace vorn
