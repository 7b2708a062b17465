#pragma once

#include <functional>

#include "platform/RunLoop.h"

namespace vorn {

// A run loop as its owner sees it: something that can be run.
class HostRunLoop : public RunLoop {
 public:
  // Seconds on the loop's own clock; only differences mean something.
  virtual double now() const = 0;
  // Runs tasks and timers until the condition holds, which is tested after each of them, or the time in seconds
  // on the loop's clock is over. Answers whether the condition holds.
  virtual bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) = 0;
  // Runs for a time in seconds on the loop's clock.
  void runFor(double seconds) {
    runUntil([] { return false; }, seconds);
  }
  // Brings forward, in their order, the delayed calls that are due within that many seconds, for a caller who
  // would wait for nothing but time. A loop whose clock may be moved moves it instead; on any other, timers keep
  // their time.
  virtual void hasten(double seconds) { runFor(seconds); }
};

}  // namespace vorn
