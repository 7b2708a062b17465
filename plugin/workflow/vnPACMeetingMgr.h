#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "util/HostObject.h"
#include "util/Value.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

class vnMeetingMgr;

// Adds a personal audio conference, a standing telephone conference of the user, to the appointment of one window.
//
// Nothing is created on the service: all that an add does is to write how to dial in into body and location. A
// user has the accounts 1 and 2, which the client tells afresh at each add. Main thread only; nothing throws.
class vnPACMeetingMgr {
 public:
  // One that belongs to no window, and so to no account.
  static vnPACMeetingMgr& sharedInstance();

  // Whose window and account are meant; not owned. Without a manager it is the account 0, which no user has, and
  // nothing is asked for or written.
  void setMeetingMgr(vnMeetingMgr* manager) { m_pMeetingMgr = manager; }

  // The commands 11 and 12: notes the account and asks the client; 0. The reply goes on with the add. A client
  // that fails has told the user, and the appointment stays as it was.
  int addPACMeeting(MeetingWindow& window, std::uint64_t account);
  // The client has answered; nothing when no add waits for it.
  int onGetPACActionFinished(const Value& data);
  // Writes the conference of the account into the window. One that is turned off is told instead. Nothing for a
  // window that has closed.
  void schedulePACMeeting(MeetingWindow& window);
  // Whether an account is in use whose add has come to its end. One that still waits, or was refused, has written
  // nothing that a store could go on with.
  bool isAdded() const;

  // The user's own text and the way to dial in, with a blank between; absent when there is neither. What this
  // window added last is not the user's, and neither are numbers and ids, as below. Without a way to dial in, what
  // was added last stays but for those.
  OptionalText getNewLocationForPAC(const OptionalText& location) const;
  // The dedicated number, or else the conference's own place, or else its numbers and its id, or the id alone;
  // absent for an account that has none of them.
  OptionalText getLocationWithPACAccountNo(std::uint64_t account) const;
  // The location without the numbers and the id of every account, so that a second conference takes the place of
  // the first; absent for an absent or empty location.
  OptionalText getOLUserInputString(const OptionalText& location) const;

 private:
  // What the last add has put into a location, and how often that then held the same words.
  struct Added {
    HostObject appointment;
    std::string dialIn;
    std::size_t times;
  };

  std::uint64_t account() const;
  void executeGetPAC(MeetingWindow& window);
  void updateLocation(MeetingWindow& window);
  // What is the user's in a location, "" when nothing is; absent for an absent or empty one.
  OptionalText ownWords(const OptionalText& location) const;
  OptionalText withoutLastAdd(const OptionalText& location) const;

  vnMeetingMgr* m_pMeetingMgr = nullptr;
  bool m_isUnderWay = false;
  // The invitation that this add has written; absent before.
  OptionalText m_written;
  std::optional<Added> m_added;
};

}  // namespace vorn
