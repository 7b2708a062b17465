#pragma once

#include "workflow/vnActionResultMgr.h"

namespace vorn {

// What happens to meetings on the calendar's surface, without an editor. Main thread only.
class vnCalendarActionMgr : public vnActionResultMgr {
 public:
  static vnCalendarActionMgr& sharedInstance();

  // The event has a meeting.
  bool isCurVornMeeting(const HostObject& event);
  // The window of the host's main window controller; absent when it is not open.
  HostObject mainWindow();
};

}  // namespace vorn
