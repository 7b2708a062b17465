#pragma once

#include <cstdint>

#include "workflow/MeetingNumbers.h"

namespace vorn {

// The state of a manager. Nothing checks that a transition is legal: the state only tells the next reply why it
// was asked for, and stays until something overwrites it.
class vnMeetingState {
 public:
  std::uint64_t state() const { return m_State; }
  void setState(std::uint64_t state);

 private:
  std::uint64_t m_State = VnStateIdle;
};

}  // namespace vorn
