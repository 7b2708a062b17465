#include "host/proxies/vnOLCalendarGridViewWrapper.h"

#include "host/proxies/vnCCGridViewController.h"

namespace vorn {

HostObject vnOLCalendarGridViewWrapper::gridViewController() const {
  if (const HostObject only = object("gridViewController")) return only;
  const Value controllers = getOLItemID("gridViewControllers");
  for (const Value& entry : controllers.items()) {
    const vnCCGridViewController controller(entry.object());
    if (controller.ecCalendarEvent()) return controller.delegate();
  }
  return {};
}

}  // namespace vorn
