#pragma once

#include <memory>
#include <utility>

#include "host/proxies/vnECMutableCalendarEvent.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

// The last write, on the record that the host is about to store: what one window has left for its appointment.
// Main thread only.
class StoreTimeWriter {
 public:
  // The manager is that of the window; null for none.
  StoreTimeWriter(const HostObject& record, ApptSaveData left, std::shared_ptr<vnMeetingMgr> manager)
      : m_record(record), m_left(std::move(left)), m_manager(std::move(manager)) {}

  // Chooses what the record needs and does it, and ends the window's save. A record that is no window's is stored
  // as the host has it.
  static void write(const HostObject& record);

  // Location, subject and body of an appointment with a meeting.
  void updateVnKeyInfoToAppointment();
  // Location and body of an appointment with a personal audio conference.
  void updateVnKeyInfoToAppointmentForPAC();
  // Location and body of an appointment that has just lost its meeting.
  void cleanVnKeyInfoFromAppointment();
  bool needUpdateLocation();

 private:
  vnECMutableCalendarEvent m_record;
  ApptSaveData m_left;
  std::shared_ptr<vnMeetingMgr> m_manager;
};

}  // namespace vorn
