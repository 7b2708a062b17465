#pragma once

#include "util/Value.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

class vnMeetingMgr;

// The end of a save: makes the host's call again that its hook has refused, and tells the service the identity
// that the appointment got by it. Main thread only.
class SaveFinish {
 public:
  // The manager outlives it.
  explicit SaveFinish(vnMeetingMgr& manager) : m_manager(manager) {}
  ~SaveFinish();
  SaveFinish(const SaveFinish&) = delete;
  SaveFinish& operator=(const SaveFinish&) = delete;

  // Performs the host's operation that waits for this window. An absent editor only ends a drag.
  void closeOLAppointment(const HostObject& editor);
  // The same when the present call has unwound, unless the manager has ended by then.
  void scheduleCloseOLAppointment(const HostObject& editor);
  // Forgets what is scheduled.
  void cancel();

  // Tells the service the UUID that the appointment has got: where the update is needed because it had none
  // before, and there are a meeting and a UUID.
  void updateApptUUIDToMeeting(const HostObject& parentWindow, const OptionalText& apptUUID,
                               const Value& meetingData, bool needUpdate);

 private:
  void performHostsOperation(MeetingWindow& window);
  void closeWindowLater(MeetingWindow& window, const Value& hostResult);

  vnMeetingMgr& m_manager;
};

}  // namespace vorn
