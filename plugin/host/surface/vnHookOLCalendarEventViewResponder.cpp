#include "host/surface/vnHookOLCalendarEventViewResponder.h"

#include "host/proxies/HostViews.h"
#include "host/surface/vnActionAdditionView.h"
#include "workflow/RunningSave.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

Value vnHookOLCalendarEventViewResponder::vn_OLCalendarEventViewResponder_switchToRecurringSeries(HookCall& call) {
  Value result = call.forward();
  const HostObject event = askHost(hostApplication(), "currentEvent").object();
  const HostObject window = askHost(event, "window").object();
  const auto bar = vnActionAdditionView::from(
      vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(window));
  if (!bar) return result;
  bar->attachOutlookERCalendarEventEditorWindowController(bar->editorWindowController());
  const RunningSave ofThisWindow(bar);
  askHost(bar->editorViewController(), "vn_ERCalendarEventEditorViewController_save");
  if (!bar->isApptDirty()) bar->refreshUIForSwitchToRecurringSeries();
  return result;
}

}  // namespace vorn
