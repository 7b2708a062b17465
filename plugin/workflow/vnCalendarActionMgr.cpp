#include "workflow/vnCalendarActionMgr.h"

#include "channel/commands/vnAPIKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnCCGridViewController.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "host/proxies/vnOLCalendarGridViewWrapper.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// Puts start, end and length into an appointment's plain form; without a new length the old one is kept.
void moveTo(Value& apptInfo, const HostObject& start, std::optional<double> newDuration) {
  const double seconds = newDuration.value_or(apptInfo[vn_ApptInfo_Duration].realValue() * kSecondsPerMinute);
  const vnOLCalendarDate startDate(start);
  vnOLCalendarDate endDate = startDate;
  endDate.setDelegate(startDate.dateByAddingTimeInterval(seconds));
  apptInfo.set(vn_ApptInfo_StartTime, startDate.getVnMeetingData());
  apptInfo.set(vn_ApptInfo_EndTime, endDate.getVnMeetingData());
  apptInfo.set(vn_ApptInfo_Duration, durationText(seconds));
}

}  // namespace

vnCalendarActionMgr& vnCalendarActionMgr::sharedInstance() { return Registry::shared<vnCalendarActionMgr>(); }

int vnCalendarActionMgr::updateSubject(const HostObject& gridWrapper, const OptionalText& subject) {
  return updateMeeting(gridWrapper, subject, HostObject(), std::nullopt);
}

int vnCalendarActionMgr::updateDuration(const HostObject& gridWrapper, const HostObject& startDate,
                                        double duration) {
  return updateMeeting(gridWrapper, std::nullopt, startDate, duration);
}

int vnCalendarActionMgr::updateStartTime(const HostObject& gridWrapper, const HostObject& startDate) {
  return updateMeeting(gridWrapper, std::nullopt, startDate, std::nullopt);
}

int vnCalendarActionMgr::updateMeeting(const HostObject& gridWrapper, const OptionalText& newSubject,
                                       const HostObject& newStartCalDate, std::optional<double> newDuration) {
  const vnCCGridViewController grid(vnOLCalendarGridViewWrapper(gridWrapper).gridViewController());
  vnECCalendarEvent event(grid.ecCalendarEvent());
  if (newSubject) event.setUnCommitedChanges(Value::dictionaryFromPairs({{"content.summary", newSubject}}));
  Value apptInfo = event.getVnMeetingData();
  const bool isSupportVorn = event.isSupportVorn();
  if (newStartCalDate) moveTo(apptInfo, newStartCalDate, newDuration);
  return updateAppointmentOnCalendar(apptInfo, grid.gridWindow(), isSupportVorn, VnCmdUpdate,
                                     event.getVnMeetingKey());
}

int vnCalendarActionMgr::deleteMeeting(const HostObject& event) {
  const vnECCalendarEvent proxy(event);
  if (!proxy.isValidConnection()) return 0;
  return updateAppointmentOnCalendar(proxy.getVnMeetingData(), mainWindow(), proxy.isSupportVorn(), VnCmdDelete,
                                     proxy.getVnMeetingKey());
}

int vnCalendarActionMgr::updateAppointmentOnCalendar(const Value& apptInfo, const HostObject& ownWindow,
                                                     bool isSupportVorn, std::uint64_t actionType,
                                                     const std::string& meetingKey) {
  if (!isSupportVorn) return 0;
  Value meetingData = Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}});
  if (!meetingKey.empty()) meetingData.set(vn_MeetingKey, meetingKey);
  const OptionalText windowId = ownWindow ? OptionalText(ownWindow.windowId()) : std::nullopt;
  meetingData.set(keyEventOwnerWindow, ownWindow);
  meetingData.set(keyApptWindowID, windowId);
  meetingData.set(keyDragAndMoveOnCalendar, true);
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByApptWindowID(windowId);
  return manager ? manager->calendarEdits().getMeetingByApptUUIDForUpdateOnCalendar(actionType, meetingData) : 0;
}

bool vnCalendarActionMgr::isCurVornMeeting(const HostObject& event) {
  const vnECCalendarEvent proxy(event);
  return proxy.isValidConnection() && proxy.isVornMeeting();
}

HostObject vnCalendarActionMgr::mainWindow() {
  ClassRuntime& runtime = *Registry::platform().classRuntime;
  const ClassRef wanted = runtime.NSClassFromString("ERageMainWindowController");
  const HostObject applicationClass = runtime.classObject(runtime.NSClassFromString("NSApplication"));
  const HostObject application = runtime.send(applicationClass, "sharedApplication").object();
  const Value windows = runtime.send(application, "windows");
  for (const Value& window : windows.items()) {
    if (runtime.isKindOf(runtime.send(window.object(), "windowController").object(), wanted))
      return window.object();
  }
  return {};
}

}  // namespace vorn
