#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// A view of the editor that draws nothing.
class vnHookOLAutoLayoutView : public vnHookRoot {
 public:
  static Value vn_OLAutoLayoutView_drawRect(HookCall& call);
};

}  // namespace vorn
