#include "host/surface/vnHookOUIRibbonChunkContainerView.h"

#include "host/surface/MainWindowRibbon.h"

namespace vorn {

Value vnHookOUIRibbonChunkContainerView::vn_OUIRibbonChunkContainerView_drawRect(HookCall& call) {
  call.forward();
  scheduleInitVnRibbonView();
  return true;
}

}  // namespace vorn
