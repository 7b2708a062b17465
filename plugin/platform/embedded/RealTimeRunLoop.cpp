#include "platform/embedded/RealTimeRunLoop.h"

#include <algorithm>
#include <chrono>

namespace vorn {

namespace {

// The system's clock cannot be told of an endless wait.
constexpr double kLongestWaitSeconds = 3600;

}  // namespace

double RealTimeRunLoop::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool RealTimeRunLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  const double end = now() + timeoutSeconds;
  while (!condition()) {
    const double due = nextDue();
    const double present = now();
    if (present >= end) return false;
    if (due <= present) {
      runNext();
    } else {
      waitForPost(std::min({due - present, end - present, kLongestWaitSeconds}));
    }
  }
  return true;
}

}  // namespace vorn
