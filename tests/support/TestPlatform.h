#pragma once

#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/EmbeddedPresenter.h"
#include "platform/embedded/VirtualRunLoop.h"
#include "tests/support/FakePorts.h"

namespace vorn {

// A fresh world for one test: installed in the registry while this object lives, with a virtual clock, a class
// runtime without classes, a temporary home folder and ports that record. One at a time.
//
// A test replaces a port by changing platform() and calling reinstall() before the first shared instance is used.
class TestPlatform {
 public:
  TestPlatform();
  // Empties the registry before the ports go.
  ~TestPlatform();
  TestPlatform(const TestPlatform&) = delete;
  TestPlatform& operator=(const TestPlatform&) = delete;

  Platform& platform() { return m_platform; }
  void reinstall();
  // What a fresh process starts with: no shared instances, the same ports with what they hold.
  void restart();

  VirtualRunLoop runLoop;
  NotificationCenter notificationCenter;
  EmbeddedClassRuntime classRuntime;
  MemoryUserDefaults userDefaults;
  FakeWorkspace workspace;
  // Leaves alerts open until a test answers them.
  EmbeddedPresenter presenter;
  TestSurroundings surroundings;
  RecordingNotifications distributedNotifications;
  RecordingTrace trace;

 private:
  Platform m_platform;
};

}  // namespace vorn
