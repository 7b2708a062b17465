#pragma once

#include <limits>

#include "platform/embedded/ScheduledRunLoop.h"

namespace vorn {

// A run loop whose clock stands still until somebody runs it, and then jumps from one due time to the next.
//
// Sixty seconds pass in no time and in an exact order. What other threads post is taken at the present time.
class VirtualRunLoop final : public ScheduledRunLoop {
 public:
  double now() const override { return m_now; }
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;
  // Runs everything that is due now, without moving the clock.
  void runDue();

 protected:
  double dueOfPost() const override { return std::numeric_limits<double>::infinity(); }

 private:
  // Moves the clock to the next due time and runs what is due; false when that is later.
  bool runNextBy(double time);

  double m_now = 0;
};

}  // namespace vorn
