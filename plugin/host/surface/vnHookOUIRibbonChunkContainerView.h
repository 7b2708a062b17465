#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The ribbon of the main window.
class vnHookOUIRibbonChunkContainerView : public vnHookRoot {
 public:
  static Value vn_OUIRibbonChunkContainerView_drawRect(HookCall& call);
};

}  // namespace vorn
