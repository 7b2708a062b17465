#include "host/surface/vnHookOLCalendarGridViewWrapper.h"

#include "host/proxies/vnCCGridViewController.h"
#include "host/proxies/vnOLCalendarGridViewWrapper.h"
#include "workflow/RunningSave.h"
#include "workflow/vnCalendarActionMgr.h"

namespace vorn {

namespace {

bool isCurrentVornMeeting(const HostObject& gridWrapper) {
  const vnCCGridViewController grid(vnOLCalendarGridViewWrapper(gridWrapper).gridViewController());
  return vnCalendarActionMgr::sharedInstance().isCurVornMeeting(grid.ecCalendarEvent());
}

// The grid changes at once while the service catches up. Only when the client could not even be asked is the act
// taken over, and nothing changes.
template <typename Edit>
Value editThenForward(HookCall& call, const Edit& edit) {
  if (isCurrentVornMeeting(call.receiver()) && edit(vnCalendarActionMgr::sharedInstance()) != 0) return true;
  // What the grid stores is no window's save, even while one shows the same appointment.
  const RunningSave ofNoWindow(nullptr);
  return call.forward();
}

}  // namespace

Value vnHookOLCalendarGridViewWrapper::vn_OLCalendarGridViewWrapper_dragResizedEvent(HookCall& call) {
  return editThenForward(call, [&](vnCalendarActionMgr& calendar) {
    return calendar.updateDuration(call.receiver(), call.argument(2).object(), call.argument(3).realValue());
  });
}

Value vnHookOLCalendarGridViewWrapper::vn_OLCalendarGridViewWrapper_performDragFrom(HookCall& call) {
  return editThenForward(call, [&](vnCalendarActionMgr& calendar) {
    return calendar.updateStartTime(call.receiver(), call.argument(2).object());
  });
}

Value vnHookOLCalendarGridViewWrapper::vn_OLCalendarGridViewWrapper_subjectChanged(HookCall& call) {
  return editThenForward(call, [&](vnCalendarActionMgr& calendar) {
    return calendar.updateSubject(call.receiver(), call.argument(0).optionalText());
  });
}

}  // namespace vorn
