#include "host/surface/vnHookOLAutoLayoutView.h"

namespace vorn {

Value vnHookOLAutoLayoutView::vn_OLAutoLayoutView_drawRect(HookCall&) { return true; }

}  // namespace vorn
