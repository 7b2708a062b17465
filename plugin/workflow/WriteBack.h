#pragma once

#include <algorithm>

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

  // Nothing is due any more. What was due before is forgotten.
  void startOver();
  // The same for a meeting without its first invitation, so that the body holds only the user's words.
  void startWithoutInvitation();
  // The same for the meeting of a record, by the invitation's digest in it.
  void startFromRecord(const OptionalText& digest);
  // The service has accepted a commit: until what it made of it is written, which a fetch brings that may fail,
  // something is due.
  void commitIsAccepted() { m_due = std::max(m_due, Due::commit); }
  // The next save has to write, though nothing has changed.
  bool isDue() const { return m_due != Due::nothing; }
  // Until an invitation is written, none of the words in the body gives way to one: before the first invitation,
  // and where nobody knows of one.
  bool holdsOnlyUsersWords() const { return m_holdsOnlyUsersWords; }
  void setHoldsOnlyUsersWords() { m_holdsOnlyUsersWords = true; }

 private:
  void updateLocation(MeetingWindow& window, const OptionalText& joinUrl);
  OptionalText digestOfWhatStands() const;

  vnMeetingMgr& m_manager;
  // Each says more than the one before.
  enum class Due { nothing, commit, invitation, firstInvitation };
  Due m_due = Due::nothing;
  bool m_holdsOnlyUsersWords = false;
  // By the last write-back into a body.
  bool m_isInvitationWritten = true;
};

}  // namespace vorn
