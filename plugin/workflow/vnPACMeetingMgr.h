#pragma once

#include <cstdint>

#include "util/Value.h"

namespace vorn {

class vnMeetingMgr;

// Writes a personal audio conference, a standing telephone conference of the user, into the location of an
// appointment. Nothing is created on the service. Main thread only.
class vnPACMeetingMgr {
 public:
  // Whose account is meant; not owned. Without a manager it is the account 0, which no user has.
  void setMeetingMgr(vnMeetingMgr* manager) { m_pMeetingMgr = manager; }

  // The user's own text and the way to dial in, with a blank between; absent when there is neither.
  OptionalText getNewLocationForPAC(const OptionalText& location) const;
  // The dedicated number, or else the conference's own location, or else the numbers with the conference's id;
  // absent for an account that has none of them.
  OptionalText getLocationWithPACAccountNo(std::uint64_t account) const;
  // The location without the numbers and the id of every account, so that a second conference takes the place of
  // the first; absent for an absent or empty location.
  OptionalText getOLUserInputString(const OptionalText& location) const;

 private:
  vnMeetingMgr* m_pMeetingMgr = nullptr;
};

}  // namespace vorn
