#pragma once

#include "host/proxies/vnECCalendarEvent.h"
#include "util/Value.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

class vnGetMeetingHelper;
class vnMeetingMgr;

// Finds out, when an appointment opens, whether a meeting already stands behind it: from the stored record in its
// newer or its older place, from what the desktop client has written, or by asking the service for its UUID. Main
// thread only.
class MeetingOpening {
 public:
  // The manager outlives it.
  explicit MeetingOpening(vnMeetingMgr& manager) : m_manager(manager) {}

  // True when a meeting was found, or is being asked for.
  bool loadOIProperty(MeetingWindow& window, const HostObject& event);
  // The window of an item of a series is the series' from now on, whose own meeting is to be found next: nothing
  // is known of the item any more, and nothing that was begun for it goes on.
  void forgetItem();
  // Command 15, and its reply.
  void getMeetingByApptUUID(MeetingWindow& window);
  void onGetMeetingByApptUUIDActionFinished(const Value& data);
  // What a stored text tells of a meeting; absent for one that is no record of a meeting.
  static Value meetingRecord(const Value& stored);
  // The reply by UUID names another appointment than the one that was asked for. A reply carries no number of its
  // request, so it may be the answer to another window or to an edit before. False when it names none.
  static bool isReplyToAnotherUUID(const vnGetMeetingHelper& meeting, const OptionalText& asked);

 private:
  bool loadOIPropertyAsStoreLocation(vnECCalendarEvent& event, bool isFromUCInband);
  bool loadICSDataForClientSchedule(MeetingWindow& window, vnECCalendarEvent& event);
  static bool needGetMeetingWithApptUUID(vnECCalendarEvent& event);

  vnMeetingMgr& m_manager;
  // The appointment's UUID that was asked for last.
  OptionalText m_askedUUID;
};

}  // namespace vorn
