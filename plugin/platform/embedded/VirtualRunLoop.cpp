#include "platform/embedded/VirtualRunLoop.h"

#include <algorithm>

namespace vorn {

bool VirtualRunLoop::runNextBy(double time) {
  const double due = nextDue();
  if (due > time) return false;
  m_now = std::max(m_now, due);
  runNext();
  return true;
}

void VirtualRunLoop::runDue() {
  while (runNextBy(m_now)) {
  }
}

bool VirtualRunLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  const double end = m_now + timeoutSeconds;
  while (!condition()) {
    if (runNextBy(end)) continue;
    m_now = end;
    return condition();
  }
  return true;
}

}  // namespace vorn
