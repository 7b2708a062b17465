#include "host/surface/vnHookOLAttachmentsAcceptingView.h"

#include "host/proxies/vnDelegateBase.h"
#include "workflow/vnApptUIActionMgr.h"

namespace vorn {

Value vnHookOLAttachmentsAcceptingView::vnOLAttachmentsAcceptingView_initWithFrame(HookCall& call) {
  Value made = call.forward();
  if (made.object() && isExactlyOfHostClass(call.receiver(), "OLCalendarHeaderContainerView")) {
    vnApptUIActionMgr::sharedInstance().createVnAdditionViewOnCalHeaderContainerView(made.object());
  }
  return made;
}

}  // namespace vorn
