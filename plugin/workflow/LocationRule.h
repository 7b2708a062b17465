#pragma once

#include <cstdint>
#include <string>

#include "util/Value.h"
#include "workflow/MeetingWindow.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {

// The location of an appointment is free text that may mix the user's own words, the names of rooms and the
// meeting's join URL. These rules find the parts again and put them together, joined by "; ". They write nothing.
// Main thread only.
class LocationRule {
 public:
  // Reads the working data of one window, which outlive the rules.
  explicit LocationRule(const vnMeetingDataMgr& data) : m_data(data) {}

  // Rooms first, then the join URL; absent without a bar or an appointment.
  OptionalText getVnLocation(MeetingWindow& window) const;
  // The user's own part of what the window shows; absent when it shows no location at all.
  OptionalText getOLUserInputLocation(MeetingWindow& window) const;
  // Whether our part has to be written now, in the last command of the window's manager.
  bool needUpdateLocation(MeetingWindow& window, std::uint64_t meetingAction,
                          const OptionalText& oldJoinUrl) const;
  // What is left of a location when the meeting is deleted.
  std::string withoutOurUrls(std::string location) const;
  // The list has a room of exactly this name.
  static bool findRoomInAttendees(const OptionalText& name, const Value& attendees);

 private:
  const vnMeetingDataMgr& m_data;
};

}  // namespace vorn
