#pragma once

#include "platform/embedded/ScheduledRunLoop.h"

namespace vorn {

// The run loop of a process that lives in real time. The thread that makes it is the main thread; it runs the
// loop with runUntil() or runFor().
class RealTimeRunLoop final : public ScheduledRunLoop {
 public:
  double now() const override;
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;
  void hasten(double seconds) override { bringForward(now() + seconds); }

 protected:
  // A post is due when it arrives, so it keeps its place among timers that come due while the main thread is busy.
  double dueOfPost() const override { return now(); }
};

}  // namespace vorn
