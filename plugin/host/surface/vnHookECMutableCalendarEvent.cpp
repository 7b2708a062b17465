#include "host/surface/vnHookECMutableCalendarEvent.h"

#include "host/surface/InbandTrick.h"
#include "workflow/StoreTimeWriter.h"

namespace vorn {

Value vnHookECMutableCalendarEvent::vn_ECMutableCalendarEvent_setOlmUCInband(HookCall& call) {
  const InbandTrick duringTheHostsCall;
  return call.forward();
}

Value vnHookECMutableCalendarEvent::vn_ECMutableCalendarEvent_saveRecord(HookCall& call) {
  StoreTimeWriter::write(call.receiver());
  return call.forward();
}

}  // namespace vorn
