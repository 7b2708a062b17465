#pragma once

#include "util/HostObject.h"

namespace vorn {

// The warning that this user may not schedule for the person in whose name the appointment is open. Whoever agrees
// has the meeting taken off the appointment. Main thread only.
class vnAutoRemoveVornMeetingMessage {
 public:
  static vnAutoRemoveVornMeetingMessage& sharedInstance();

  // The editor whose meeting would go. A warning that is open already keeps its own.
  void setEditorViewCtrl(const HostObject& editor) { m_editor = editor; }
  // Puts the warning on the window and returns; the answer may come during the call.
  void showMessage(const HostObject& parentWindow) const;

 private:
  HostObject m_editor;
};

}  // namespace vorn
