#pragma once

#include "host/proxies/vnECMutableCalendarEvent.h"

namespace vorn {

// The last write, on the record that the host is about to store.
class StoreTimeWriter {
 public:
  explicit StoreTimeWriter(const HostObject& record) : m_record(record), m_rawRecord(record) {}

  // Chooses what the record needs and does it, and ends the save's data.
  void write();

  // Location, subject and body of an appointment with a meeting.
  void updateVnKeyInfoToAppointment();
  // Location and body of an appointment with a personal audio conference.
  void updateVnKeyInfoToAppointmentForPAC();
  // Location and body of an appointment that has just lost its meeting.
  void cleanVnKeyInfoFromAppointment();
  bool needUpdateLocation();

 private:
  vnECMutableCalendarEvent m_record;
  HostObject m_rawRecord;
};

}  // namespace vorn
