#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "util/HostObject.h"
#include "util/Value.h"
#include "workflow/vnActionResultMgr.h"

namespace vorn {

// What happens to meetings on the calendar's surface, without an editor: each edit becomes the update or the
// delete that a save would make, from the appointment as it will be after the edit.
//
// No bar exists there, so the work runs on the shared manager. Every edit answers 0 when the request went out, or
// when nothing has to be asked, and 1 when the desktop client could not be asked. Process-wide; main thread only.
class vnCalendarActionMgr : public vnActionResultMgr {
 public:
  static vnCalendarActionMgr& sharedInstance();

  // An edit of the event that is selected in a calendar grid, given the host's wrapper of the grid: another
  // subject; another start and length in seconds, for a moved edge; or another start with the length kept.
  int updateSubject(const HostObject& gridWrapper, const OptionalText& subject);
  int updateDuration(const HostObject& gridWrapper, const HostObject& startDate, double duration);
  int updateStartTime(const HostObject& gridWrapper, const HostObject& startDate);
  // All three together; absent means unchanged. A new duration counts only with a new start.
  int updateMeeting(const HostObject& gridWrapper, const OptionalText& newSubject,
                    const HostObject& newStartCalDate, std::optional<double> newDuration);
  // The event is being deleted.
  int deleteMeeting(const HostObject& event);
  // Hands an edit on: the plain form of the appointment after it, the window that it happens in, whether the
  // appointment may have a meeting (nothing happens otherwise), the command 5 or 6, and the key, "" for none.
  int updateAppointmentOnCalendar(const Value& apptInfo, const HostObject& ownWindow, bool isSupportVorn,
                                  std::uint64_t actionType, const std::string& meetingKey);

  // The event has a meeting.
  bool isCurVornMeeting(const HostObject& event);
  // The window of the host's main window controller; absent when it is not open.
  HostObject mainWindow();
};

}  // namespace vorn
