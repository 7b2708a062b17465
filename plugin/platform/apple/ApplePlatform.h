#pragma once

#include <memory>
#include <string>
#include <utility>

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
  // The folder with the bundle's resources, and who draws panels, which may be null.
  ApplePlatform(const std::string& resources, std::unique_ptr<PanelDrawing> panels)
      : m_surroundings(resources),
        m_workspace({m_surroundings.applicationsDirectory(), m_surroundings.userApplicationsDirectory()}),
        m_presenter(m_runLoop, resources, std::move(panels)) {}

  Platform ports() {
    Platform platform;
    platform.runLoop = &m_runLoop;
    platform.notificationCenter = &m_center;
    platform.classRuntime = &m_classRuntime;
    platform.userDefaults = &m_userDefaults;
    platform.workspace = &m_workspace;
    platform.presenter = &m_presenter;
    platform.surroundings = &m_surroundings;
    platform.distributedNotifications = &m_distributedNotifications;
    return platform;
  }

 private:
  AppleRunLoop m_runLoop;
  NotificationCenter m_center;
  HostNotifications m_windowsClosing{m_center, "NSWindowWillCloseNotification"};
  AppleClassRuntime m_classRuntime;
  AppleUserDefaults m_userDefaults;
  AppleDistributedNotifications m_distributedNotifications;
  AppleSurroundings m_surroundings;
  AppleWorkspace m_workspace;
  ApplePresenter m_presenter;
};

}  // namespace vorn
