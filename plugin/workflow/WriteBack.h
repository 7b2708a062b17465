#pragma once

#include "util/Value.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

class vnMeetingMgr;

// Writes a meeting into the appointment of its window, and takes it out again: the invitation in the body, the
// join URL in the location, the stored record. What the store of the appointment has to write once more is left in
// vnApptDataForSaveRecord. Main thread only.
class WriteBack {
 public:
  // The manager outlives it.
  explicit WriteBack(vnMeetingMgr& manager) : m_manager(manager) {}

  void updateMailBodyForSchedule(MeetingWindow& window);
  // With a finished commit the record and the invitation's digest are renewed, too.
  void updateVnKeyInfoToAppointment(MeetingWindow& window, const Value& meetingInfo, bool commitFinished);
  void updateVnMeetingInfoToAppointmentForDelete(MeetingWindow& window, const Value& response);

  // The service has a meeting whose invitation is not in the appointment yet, so that nothing of ours is looked
  // for in the body.
  bool firstInvitationIsDue() const { return m_firstInvitationIsDue; }
  void setFirstInvitationIsDue(bool due) {
    m_firstInvitationIsDue = m_invitationIsDue = due;
    m_isCommitUnwritten = m_holdsOnlyUsersWords = false;
  }
  // Until an invitation is written into it, the body holds only the user's words, and none of them gives way to
  // one: before the first invitation, and where nobody knows of one, as in a meeting that was found by its UUID.
  bool holdsOnlyUsersWords() const { return m_firstInvitationIsDue || m_holdsOnlyUsersWords; }
  void setHoldsOnlyUsersWords() { m_holdsOnlyUsersWords = true; }
  // The service has accepted a commit, and what it made of it is fetched now, which may fail.
  void noteCommit() { m_isCommitUnwritten = true; }
  // The first one, or one of a change, which could not be written. The next save has to do it.
  bool invitationIsDue() const { return m_invitationIsDue || m_isCommitUnwritten; }

 private:
  void updateLocation(MeetingWindow& window, const OptionalText& joinUrl);
  OptionalText digestOfWhatStands() const;

  vnMeetingMgr& m_manager;
  bool m_firstInvitationIsDue = false;
  bool m_invitationIsDue = false;
  bool m_isCommitUnwritten = false;
  bool m_holdsOnlyUsersWords = false;
  // By the last write-back into a body.
  bool m_isInvitationWritten = true;
};

}  // namespace vorn
