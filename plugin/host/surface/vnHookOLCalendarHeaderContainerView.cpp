#include "host/surface/vnHookOLCalendarHeaderContainerView.h"

#include "channel/commands/vnAlertHelper.h"
#include "channel/discovery/vnAppHelper.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/ActionBarPlacement.h"
#include "platform/Localization.h"

namespace vorn {

namespace {

// This header keeps its subviews in a list of its own, of views or of entries that each name a view.
std::vector<HostObject> managedSubviews(const HostObject& header) {
  const Value managed = askHost(header, "managedSubviewsData");
  std::vector<HostObject> views;
  for (const Value& entry : managed.items()) {
    const HostObject named = askHost(entry.object(), "view").object();
    views.push_back(named ? named : entry.object());
  }
  return views;
}

}  // namespace

bool vnHookOLCalendarHeaderContainerView::prepare() {
  if (vnAppHelper::sharedInstance().isSupportedOutlookVersion()) return true;
  vnAlertHelper::sharedInstance().showAlertMessage(HostObject(), localizedString("OutlookVersionLowerThan1414"));
  return false;
}

Value vnHookOLCalendarHeaderContainerView::vn_OLCalendarHeaderContainerView_drawRect(HookCall& call) {
  Value result = call.forward();
  if (isExactlyOfHostClass(call.receiver(), "OLCalendarHeaderContainerView")) {
    const std::vector<HostObject> views = managedSubviews(call.receiver());
    placeActionBar(views, vnHasTimezoneForHeaderContainer(views));
  }
  return result;
}

}  // namespace vorn
