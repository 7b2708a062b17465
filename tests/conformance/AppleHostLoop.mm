#include "tests/conformance/AppleHostLoop.h"

#import <Foundation/Foundation.h>

#include <chrono>

#include "platform/apple/Ownership.h"

namespace vorn {

double AppleHostLoop::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool AppleHostLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  constexpr double turn = 0.001;
  const double end = now() + timeoutSeconds;
  NSString* mode = m_depth++ == 0 ? NSDefaultRunLoopMode : @"NSModalPanelRunLoopMode";
  while (!condition() && now() < end) {
    const AutoreleasePool pool;
    [[NSRunLoop currentRunLoop] runMode:mode beforeDate:[NSDate dateWithTimeIntervalSinceNow:turn]];
  }
  --m_depth;
  return condition();
}

}  // namespace vorn
