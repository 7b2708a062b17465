#pragma once

#include <cstdint>

#include "util/Value.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

class vnMeetingMgr;

// A save, send or delete of an appointment with a meeting: the service is told first, and what it answers is
// written into the editor. The host's call was refused in its hook; SaveFinish makes it again at the end. Main
// thread only.
class SaveRoad {
 public:
  // The manager outlives it.
  explicit SaveRoad(vnMeetingMgr& manager) : m_manager(manager) {}

  // Command 4 or 5. Always 0: the host stops also when nothing turns out to be necessary.
  int scheduleUpdateVornMeeting(MeetingWindow& window, std::uint64_t command);
  // Command 6. The code of a refusal, or 0 when the request went out or nothing is to be deleted.
  int deleteVornMeeting(MeetingWindow& window);
  // The true decision of an update: the service is told, or the window is written, or neither is needed.
  void commitUpdateMeeting(MeetingWindow& window, const Value& meetingData);

  void onSchdulerActionFinished(std::uint64_t command, const Value& data);
  void onGetMeetingActionFinished(const Value& data);
  void onDeleteActionFinished(const Value& data);
  void onInvokeScheduleErrorMessageCommit(const Value& userInfo);

 private:
  void commitStands(const MeetingWindow& window);
  void sendUpdate(MeetingWindow& window, const Value& meetingData);
  void updatePMIMeeting(MeetingWindow& window, const Value& meetingData);
  void writeCommittedMeeting(MeetingWindow& window, const Value& meetingInfo);
  // What a reply is about: the window's data, or those of an edit on the calendar, which has no window.
  Value meetingDataOfReply(MeetingWindow& window, const Value& meetingInfo);

  vnMeetingMgr& m_manager;
};

}  // namespace vorn
