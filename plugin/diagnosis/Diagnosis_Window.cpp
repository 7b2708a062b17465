// What the workflow knows of one appointment window.

#include "diagnosis/Diagnosis.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

Value Diagnosis::window(const Value& parameters) {
  const HostObject editor = parameters["editor"].object();
  const auto bar = barOfEditor(editor);
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  if (!manager) return Value::dictionaryFromPairs({{"hasBar", bar != nullptr}});
  return Value::dictionaryFromPairs({{"hasBar", bar != nullptr},
                                     {"action", manager->getMeetingAction()},
                                     {"actionName", nameOfMeetingCommand(manager->getMeetingAction())},
                                     {"state", manager->state()},
                                     {"stateName", nameOfMeetingState(manager->state())},
                                     {"key", manager->getVornMeetingKey().value_or("")},
                                     {"hostAction", bar ? bar->olUIAction() : 0},
                                     {"actionResult", bar && bar->getActionResult()},
                                     {"fromFieldChanged", bar && bar->fromFieldChanged()},
                                     {"supported", bar && bar->isSupportVorn()},
                                     {"updateIsForced", manager->isForceUpdate()},
                                     {"dragIsUnderWay", manager->isDragAndMove()},
                                     {"openedFromClient", manager->openFromVornClient()}});
}

}  // namespace vorn
