#include "tests/support/TestPlatform.h"

#include "platform/Registry.h"

namespace vorn {

TestPlatform::TestPlatform() {
  presenter.setAnswer({});
  m_platform.runLoop = &runLoop;
  m_platform.notificationCenter = &notificationCenter;
  m_platform.classRuntime = &classRuntime;
  m_platform.userDefaults = &userDefaults;
  m_platform.workspace = &workspace;
  m_platform.presenter = &presenter;
  m_platform.surroundings = &surroundings;
  m_platform.distributedNotifications = &distributedNotifications;
  m_platform.trace = &trace;
  reinstall();
}

TestPlatform::~TestPlatform() { Registry::reset(); }

void TestPlatform::reinstall() { Registry::install(m_platform); }

void TestPlatform::restart() {
  Registry::reset();
  reinstall();
}

}  // namespace vorn
