#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The records that the host stores.
class vnHookECMutableCalendarEvent : public vnHookRoot {
 public:
  static Value vn_ECMutableCalendarEvent_setOlmUCInband(HookCall& call);
  static Value vn_ECMutableCalendarEvent_saveRecord(HookCall& call);
};

}  // namespace vorn
