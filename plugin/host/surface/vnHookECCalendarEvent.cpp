#include "host/surface/vnHookECCalendarEvent.h"

#include "host/surface/InbandTrick.h"

namespace vorn {

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
