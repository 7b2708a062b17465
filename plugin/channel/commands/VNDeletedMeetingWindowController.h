#pragma once

#include <string>

#include "util/HostObject.h"

namespace vorn {

// The notice after a deletion: the meeting is not lost, it lies among the recently deleted ones. Main thread only.
class VNDeletedMeetingWindowController {
 public:
  // Puts the notice on the window and returns. The answer may come during the call, or after the end of this
  // object and of the window's manager.
  static void showSheet(const HostObject& parentWindow);
  // Where the deleted meetings are: the account's page, or the one that was known last; "" when none is.
  static std::string getMeetingTrashCanLink();
};

}  // namespace vorn
