#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The editor: its saves and sends ask the workflow first.
class vnHookERCalendarEventEditorViewController : public vnHookRoot {
 public:
  // The replacement of a row that only forwards, and whose stores are those of the receiver's window.
  static Value forwardAsSave(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_saveAndCloseWindow(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_save(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_sendMeetingPostValidate(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_saveAndCloseWindow_andReturnError(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_fromFieldModified(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_switchToRecurrenceDidEnd(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_hostWordMailEditor(HookCall& call);
  static Value vn_ERCalendarEventEditorViewController_checkMeetingChangesForAttendees(HookCall& call);
};

}  // namespace vorn
