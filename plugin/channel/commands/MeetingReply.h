#pragma once

#include <optional>
#include <string>

#include "util/Value.h"

namespace vorn {

class vnGetMeetingHelper;

// The reply to both requests for a meeting: at least 14 fields, of which the last two that can be there count.
struct MeetingReply {
  // The meeting's dictionary; absent when the field holds no base64 or no JSON.
  Value meeting;
  // The base64 message with the meeting's options; absent in a reply of 14 fields.
  OptionalText message;

  // Absent when the reply has fewer than 14 fields.
  static std::optional<MeetingReply> read(const std::string& content);

  // Hands both to the manager's reader; nothing without one. A reply without a message leaves the options of the
  // meeting before.
  void feed(vnGetMeetingHelper* helper, bool byUUID, bool forPMI) const;
};

}  // namespace vorn
