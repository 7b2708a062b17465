#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The header views of older editors, where they place the bar.
class vnHookOLCalendarHeaderContainerView : public vnHookRoot {
 public:
  // Tells the user, once, that this version of the host is too old, and then gives false.
  static bool prepare();
  static Value vn_OLCalendarHeaderContainerView_drawRect(HookCall& call);
};

}  // namespace vorn
