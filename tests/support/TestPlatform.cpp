#include "tests/support/TestPlatform.h"

#include "platform/Registry.h"

namespace vorn {

TestPlatform::TestPlatform() {
  platform_.runLoop = &runLoop;
  platform_.notificationCenter = &notificationCenter;
  platform_.classRuntime = &classRuntime;
  platform_.userDefaults = &userDefaults;
  platform_.workspace = &workspace;
  platform_.presenter = &presenter;
  platform_.surroundings = &surroundings;
  platform_.distributedNotifications = &distributedNotifications;
  platform_.trace = &trace;
  reinstall();
}

TestPlatform::~TestPlatform() { Registry::reset(); }

void TestPlatform::reinstall() { Registry::install(platform_); }

void TestPlatform::restart() {
  Registry::reset();
  reinstall();
}

}  // namespace vorn
