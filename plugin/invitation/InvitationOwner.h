#pragma once

#include "util/Value.h"

namespace vorn {

// What the body engine needs of the meeting manager that it works for.
class InvitationOwner {
 public:
  virtual ~InvitationOwner() = default;

  // The manager's last command is the update of a meeting.
  virtual bool isUpdateVornMeetingEvent() = 0;
  // The invitation goes above the user's own text.
  virtual bool putInvitationAtTheTop() = 0;
  // The digest of the invitation that was written last; absent when none was.
  virtual OptionalText encodeMailBody() = 0;
};

}  // namespace vorn
