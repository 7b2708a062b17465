#include "host/surface/vnHookERCalendarEventEditorViewController.h"

#include "host/surface/HostDescription.h"
#include "host/surface/vnActionAdditionView.h"
#include "util/vnOLUtils.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/OwnerCheck.h"
#include "workflow/RunningSave.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnSavePreparation.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// Runs the host's own save, or a part of one, as that of the receiver's window.
Value forwardSave(HookCall& call) {
  const RunningSave ofThisWindow = RunningSave::ofEditor(call.receiver());
  return call.forward();
}

// The host goes on only when the workflow says so; otherwise the workflow performs the host's method later, under
// its added name, or a notice is on the screen.
Value saveOrSend(HookCall& call, vnApptAction action, const Value& stopped) {
  vn_preHandleVnMeeting(call.receiver());
  Value data = Value::dictionary();
  data.set(keyApptViewActionID, static_cast<int>(action));
  const int result = vnApptUIActionMgr::sharedInstance().handleVNMeeting(call.receiver(), data);
  return result == VnHandlePassOn ? forwardSave(call) : stopped;
}

}  // namespace

Value vnHookERCalendarEventEditorViewController::forwardAsSave(HookCall& call) { return forwardSave(call); }

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_saveAndCloseWindow(
    HookCall& call) {
  return saveOrSend(call, VnApptActionSaveAndClose, kNotClosed);
}

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_save(HookCall& call) {
  return saveOrSend(call, VnApptActionSave, Value());
}

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_sendMeetingPostValidate(
    HookCall& call) {
  return saveOrSend(call, VnApptActionSend, Value());
}

Value vnHookERCalendarEventEditorViewController::
    vn_ERCalendarEventEditorViewController_saveAndCloseWindow_andReturnError(HookCall& call) {
  return saveOrSend(call, VnApptActionSaveAndCloseReturnError, kNotClosed);
}

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_fromFieldModified(
    HookCall& call) {
  Value result = call.forward();
  const auto bar = vnActionAdditionView::from(barOfEditor(call.receiver()));
  if (!bar) return result;
  bar->refreshUI();
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(call.receiver());
  MeetingWindow window = MeetingWindow::ofEditor(call.receiver());
  bar->enableChangeSettingButton(manager &&
                                 OwnerCheck(*manager->meetingDataMgr()).checkScheduleOwnerMatched(window));
  bar->setFromFieldChanged(true);
  return result;
}

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_switchToRecurrenceDidEnd(
    HookCall& call) {
  const vnERCalendarEventEditorViewController editor(call.receiver());
  const bool showedItem = editor.isOccurrenceOrException();
  Value result = call.forward();
  const std::int64_t returnCode = call.argument(1).integerValue();
  if (returnCode != 0 && returnCode != 1) return result;
  const auto bar = vnActionAdditionView::from(barOfEditor(call.receiver()));
  if (!bar) return result;
  if (showedItem && !editor.isOccurrenceOrException()) {
    // The answer was the whole series, with which the window goes on. The bar of an item without a meeting has not
    // met its editor yet.
    bar->attachOutlookERCalendarEventEditorWindowController(bar->editorWindowController());
    bar->refreshUIForSwitchToRecurringSeries();
  } else {
    bar->refreshUI();
  }
  return result;
}

Value vnHookERCalendarEventEditorViewController::vn_ERCalendarEventEditorViewController_hostWordMailEditor(
    HookCall& call) {
  const HostObject wordMailEditor = call.argument(0).object();
  vnApptDataForSaveRecord::sharedInstance().setOLWordMailEditor(call.receiver(), wordMailEditor);
  // A window that is open already goes on with the new one.
  if (const auto bar = vnActionAdditionView::from(barOfEditor(call.receiver())))
    bar->setOLWordMailEditor(wordMailEditor);
  return call.forward();
}

Value vnHookERCalendarEventEditorViewController::
    vn_ERCalendarEventEditorViewController_checkMeetingChangesForAttendees(HookCall& call) {
  vnERCalendarEventEditorViewController editor(call.receiver());
  if (vnOLUtils::isNullString(call.argument(0)) || !editor.isValidConnection()) return call.forward();
  // A changed invitation in the body is no reason to ask whether the attendees shall hear of it.
  Value changes = editor.uncommittedChanges();
  changes.erase("content.body");
  return call.forward({hostDescription(changes)});
}

}  // namespace vorn
