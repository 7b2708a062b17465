#include "host/surface/vnHookERCalendarEventEditorWindowController.h"

#include "host/surface/vnActionAdditionView.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

Value vnHookERCalendarEventEditorWindowController::vn_ERCalendarEventEditorWindowController_showWindow(
    HookCall& call) {
  const Value event = call.argument(0);
  Value controller = call.forward();
  vnActionAdditionView::scheduleOnChangeUINotification(Value::dictionaryFromPairs(
      {{keyECCalendarEvent, event}, {keyERCalendarEventEditorWindowController, controller}}));
  return controller;
}

}  // namespace vorn
