#pragma once

#include <string>

#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/AppleDistributedNotifications.h"
#include "platform/apple/ApplePresenter.h"
#include "platform/apple/AppleRunLoop.h"
#include "platform/apple/AppleSurroundings.h"
#include "platform/apple/AppleUserDefaults.h"
#include "platform/apple/AppleWorkspace.h"
#include "platform/apple/HostNotifications.h"

namespace vorn {

// All ports of an Objective-C host's process. To be made on the main thread.
class ApplePlatform {
 public:
  // The folder with the bundle's resources.
  explicit ApplePlatform(const std::string& resources)
      : surroundings_(resources),
        workspace_({surroundings_.applicationsDirectory(), surroundings_.userApplicationsDirectory()}) {}

  Platform ports() {
    Platform platform;
    platform.runLoop = &runLoop_;
    platform.notificationCenter = &center_;
    platform.classRuntime = &classRuntime_;
    platform.userDefaults = &userDefaults_;
    platform.workspace = &workspace_;
    platform.presenter = &presenter_;
    platform.surroundings = &surroundings_;
    platform.distributedNotifications = &distributedNotifications_;
    return platform;
  }

 private:
  AppleRunLoop runLoop_;
  NotificationCenter center_;
  HostNotifications windowsClosing_{center_, "NSWindowWillCloseNotification"};
  AppleClassRuntime classRuntime_;
  AppleUserDefaults userDefaults_;
  AppleDistributedNotifications distributedNotifications_;
  AppleSurroundings surroundings_;
  AppleWorkspace workspace_;
  ApplePresenter presenter_{runLoop_};
};

}  // namespace vorn
