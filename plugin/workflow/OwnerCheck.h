#pragma once

#include "workflow/MeetingWindow.h"

namespace vorn {

class vnMeetingDataMgr;

// Whether the owner of a window's meeting fits the account that the editor's From field shows; the settings button
// hangs on it. Main thread only.
class OwnerCheck {
 public:
  // Reads the working data of one window, which outlive the check.
  explicit OwnerCheck(const vnMeetingDataMgr& data) : m_data(data) {}

  // True also where there is nothing to check.
  bool checkScheduleOwnerMatched(MeetingWindow& window) const;
  // Only a meeting that has not been stored yet is checked.
  static bool needCheckOwnerMatched(MeetingWindow& window);

 private:
  const vnMeetingDataMgr& m_data;
};

}  // namespace vorn
