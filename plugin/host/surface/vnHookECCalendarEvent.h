#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The events: a meeting is deleted at the service too, and the stored record is read as that of a single
// appointment.
class vnHookECCalendarEvent : public vnHookRoot {
 public:
  static Value vn_ECCalendarEvent_deleteEventNow(HookCall& call);
  static Value vn_ECCalendarEvent_cancelMeetingInWindow(HookCall& call);
  static Value vn_ECCalendarEvent_isRecurring(HookCall& call);
  static Value vn_ECCalendarEvent_isOccurrence(HookCall& call);
  static Value vn_ECCalendarEvent_olmUC(HookCall& call);
};

}  // namespace vorn
