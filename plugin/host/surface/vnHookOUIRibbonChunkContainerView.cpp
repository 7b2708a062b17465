#include "host/surface/vnHookOUIRibbonChunkContainerView.h"

namespace vorn {

Value vnHookOUIRibbonChunkContainerView::vn_OUIRibbonChunkContainerView_drawRect(HookCall& call) {
  call.forward();
  return true;
}

}  // namespace vorn
