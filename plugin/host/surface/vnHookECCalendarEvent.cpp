#include "host/surface/vnHookECCalendarEvent.h"

#include "host/surface/InbandTrick.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/vnCalendarActionMgr.h"

namespace vorn {

namespace {

// False when the event has a meeting and the service could not be asked to delete it. The host does not wait for
// the service's answer: a delete that is refused later leaves a meeting without an appointment.
bool mayBeDeleted(const HostObject& event) {
  vnCalendarActionMgr& calendar = vnCalendarActionMgr::sharedInstance();
  if (!calendar.isCurVornMeeting(event)) return true;
  const int result = calendar.deleteMeeting(event);
  return result == VnHandleBlocked || result == VnHandlePassOn;
}

}  // namespace

Value vnHookECCalendarEvent::vn_ECCalendarEvent_deleteEventNow(HookCall& call) {
  return mayBeDeleted(call.receiver()) ? call.forward() : Value(false);
}

Value vnHookECCalendarEvent::vn_ECCalendarEvent_cancelMeetingInWindow(HookCall& call) {
  return mayBeDeleted(call.receiver()) ? call.forward() : Value();
}

Value vnHookECCalendarEvent::vn_ECCalendarEvent_isRecurring(HookCall& call) {
  return InbandTrick::isException() ? Value(false) : call.forward();
}

Value vnHookECCalendarEvent::vn_ECCalendarEvent_isOccurrence(HookCall& call) {
  return InbandTrick::isException() ? Value(false) : call.forward();
}

Value vnHookECCalendarEvent::vn_ECCalendarEvent_olmUC(HookCall& call) {
  const InbandTrick duringTheHostsCall;
  return call.forward();
}

}  // namespace vorn
