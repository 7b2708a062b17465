#include "workflow/vnApptUIActionMgr.h"

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// One with the personal meeting may wait for the account's profile first, which is otherwise asked for unbidden.
bool isSaveUnderWay(vnMeetingMgr& manager) {
  return manager.apiMgr()->isWaitingForTheService() ||
         (manager.state() == VnStatePMIForUpdate && manager.apiMgr()->isWaitingForUserProfile());
}

// A click asks the host for nothing: a save or send before it that never happened is not made good for at its end.
// One that is under way is.
int sendClicked(std::uint64_t command, const std::shared_ptr<MeetingBar>& bar) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  if (!manager) return 0;
  if (!isSaveUnderWay(*manager)) bar->setOLUIAction(0);
  return manager->sendVnMeetingCommand(command, bar);
}

}  // namespace

vnApptUIActionMgr& vnApptUIActionMgr::sharedInstance() { return Registry::shared<vnApptUIActionMgr>(); }

int vnApptUIActionMgr::handleVNMeeting(const HostObject& editor, const Value& data) {
  const auto bar = barOfEditor(editor);
  if (!bar) return VnHandlePassOn;
  if (data.isPresent()) bar->setOLUIAction(data[keyApptViewActionID]);

  const int status = bar->getVnDataStatus();
  traceStep("hook", [&] {
    return Value::dictionaryFromPairs(
        {{"action", data[keyApptViewActionID].integerValue()}, {"dataStatus", status}});
  });
  if (status != VnDataDeleted && status != VnDataChanged) {
    bar->setActionToSuccess();
    updateSavedLocationForSaveOrSend(editor);
    return VnHandlePassOn;
  }

  const auto manager = status == VnDataDeleted ? vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get())
                                               : vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  // A bar that is not listed has no manager, and a message to none gives 0: the host waits for a finish that never
  // comes, and such a save does nothing.
  int result = VnHandleBlocked;
  if (manager) {
    if (status == VnDataChanged && manager->hasScheduleError(editor)) {
      updateSavedLocationForSaveOrSend(editor);
      return VnHandleError;
    }
    result = manager->sendVnMeetingCommand(status == VnDataDeleted ? VnCmdDelete : VnCmdUpdate, editor);
  }
  // Success means here that the request went out; the reply overwrites it.
  if (result == VnHandleBlocked) bar->setActionToSuccess();
  updateSavedLocationForSaveOrSend(editor);
  return result;
}

int vnApptUIActionMgr::addVNMeeting(const std::shared_ptr<MeetingBar>& bar) { return sendClicked(VnCmdAdd, bar); }

int vnApptUIActionMgr::addPACMeeting(const std::shared_ptr<MeetingBar>& bar, std::int64_t account) {
  return sendClicked(account == 2 ? VnCmdAddPACAccount2 : VnCmdAddPACAccount1, bar);
}

int vnApptUIActionMgr::cancelVNMeeting(const std::shared_ptr<MeetingBar>& bar, int /*meetingType*/) {
  return sendClicked(VnCmdCancel, bar);
}

int vnApptUIActionMgr::changeVNMeeting(const std::shared_ptr<MeetingBar>& bar, int /*meetingType*/) {
  return sendClicked(VnCmdChangeSettings, bar);
}

void vnApptUIActionMgr::updateSavedLocationForSaveOrSend(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  const OptionalText location = vnERCalendarEventEditorViewController(editor).getLocationFromUI();
  if (bar && location) vnApptDataForSaveRecord::sharedInstance().of(bar).setOLNewLocation(location);
}

void vnApptUIActionMgr::createVnAdditionViewOnCalHeaderContainerView(const HostObject& headerView) {
  if (m_barFactory) m_barFactory(headerView);
}

}  // namespace vorn
