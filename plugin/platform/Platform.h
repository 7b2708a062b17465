#pragma once

namespace vorn {

class ClassRuntime;
class DistributedNotifications;
class NotificationCenter;
class Presenter;
class RunLoop;
class Surroundings;
class Trace;
class UserDefaults;
class Workspace;

// The world as this system knows it, handed over once, at load. Whoever hands it over owns the ports and keeps
// them until the registry has been emptied. The ports that are marked optional may be null.
struct Platform {
  RunLoop* runLoop = nullptr;
  NotificationCenter* notificationCenter = nullptr;
  ClassRuntime* classRuntime = nullptr;
  UserDefaults* userDefaults = nullptr;
  Workspace* workspace = nullptr;
  Presenter* presenter = nullptr;
  Surroundings* surroundings = nullptr;
  DistributedNotifications* distributedNotifications = nullptr;  // optional
  Trace* trace = nullptr;                                        // optional
};

// Whether every port is there that has to be.
inline bool isComplete(const Platform& platform) {
  return platform.runLoop && platform.notificationCenter && platform.classRuntime && platform.userDefaults &&
         platform.workspace && platform.presenter && platform.surroundings;
}

}  // namespace vorn
