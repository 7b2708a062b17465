#include "host/surface/vnHookOLAutoLayoutAttachmentsAcceptingView.h"

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/ActionBarPlacement.h"
#include "workflow/vnApptUIActionMgr.h"

namespace vorn {

namespace {

constexpr std::string_view kHeaderClass = "OLAutoLayoutAttachmentsAcceptingView";

}  // namespace

Value vnHookOLAutoLayoutAttachmentsAcceptingView::vnOLAutoLayoutAttachmentsAcceptingView_initWithFrame(
    HookCall& call) {
  Value made = call.forward();
  if (made.object() && isExactlyOfHostClass(call.receiver(), kHeaderClass)) {
    vnApptUIActionMgr::sharedInstance().createVnAdditionViewOnCalHeaderContainerView(made.object());
  }
  return made;
}

Value vnHookOLAutoLayoutAttachmentsAcceptingView::vnOLAutoLayoutAttachmentsAcceptingView_drawRect(HookCall& call) {
  Value result = call.forward();
  if (isExactlyOfHostClass(call.receiver(), kHeaderClass)) {
    placeActionBar(subviewsOf(call.receiver()), vnHasTimezone(call.receiver()));
  }
  return result;
}

}  // namespace vorn
