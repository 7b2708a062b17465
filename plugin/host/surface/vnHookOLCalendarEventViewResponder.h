#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The switch of an open editor from an occurrence to its series.
class vnHookOLCalendarEventViewResponder : public vnHookRoot {
 public:
  static Value vn_OLCalendarEventViewResponder_switchToRecurringSeries(HookCall& call);
};

}  // namespace vorn
