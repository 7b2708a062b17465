#pragma once

#include <cstdint>

#include "util/Value.h"

namespace vorn {

class vnMeetingMgr;

// An edit on the calendar's surface, which has no editor. The stored key of the appointment may be stale, so the
// service is first asked which meeting it knows by the appointment's UUID; the edit is parked until that has been
// answered. Without an answer it stays parked until the next edit takes its place: the host keeps the user's
// change, and the service does not hear of it. One whose question is refused is made by nobody, and is not parked.
// Main thread only.
class CalendarEdits {
 public:
  // The manager outlives it.
  explicit CalendarEdits(vnMeetingMgr& manager) : m_manager(manager) {}

  // Asks, and parks the command, 5 or 6, with the meeting's working data (`vnMeetingInfoKeys.h`). 1 when the
  // request was refused, else 0.
  int getMeetingByApptUUIDForUpdateOnCalendar(std::uint64_t command, const Value& meetingData);
  // The reply has come: the parked edit goes on, without an editor.
  void replayUpdateOnCalendar();
  // Sends command 5 or 6 with complete working data. 1 when the request was refused, else 0.
  int sendVnMeetingCommand(std::uint64_t command, const Value& meetingData);
  // The working data of the newest edit, until its commit or delete goes out; absent without one, and for a
  // manager with a window. What an earlier edit is answered meanwhile must neither move the state on nor clear
  // what this one needs. Without an answer it stays, like a parked one.
  const Value& editUnderWay() const { return m_editUnderWay; }
  // Its commit or delete goes out, or turns out to be unnecessary.
  void endEdit() { m_editUnderWay = Value(); }
  // Afterwards there is no place to park an edit in any more.
  void cleanup() { m_updatedMeetingDataOnCalendar = m_editUnderWay = Value(); }

 private:
  vnMeetingMgr& m_manager;
  Value m_updatedMeetingDataOnCalendar = Value::dictionary();
  Value m_editUnderWay;
  // No other edit was waiting for its reply when this one was parked.
  bool m_parkedEditIsAlone = true;
  // The appointment's UUID that was asked for last.
  OptionalText m_askedUUID;
};

}  // namespace vorn
