#include "host/surface/vnHookERageMainWindowController.h"

#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnGetClientVersionHelper.h"
#include "channel/transport/vnIPCChannel.h"
#include "host/proxies/vnERageMainWindowController.h"
#include "host/surface/MainWindowRibbon.h"
#include "host/surface/MainWindowToolbar.h"
#include "host/surface/vnCommandItemMgr.h"
#include "host/surface/vnToolbarItemMgr.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"

namespace vorn {

namespace {

constexpr std::string_view kVersionThatNeedsToolbarItems = "14.5";

// The window of a notification, which comes as the host's object or as its content.
HostObject windowOf(const Value& notification) {
  if (notification.isDictionary()) return notification["object"].object();
  return askHost(notification.object(), "object").object();
}

}  // namespace

bool vnHookERageMainWindowController::prepare() {
  vnIPCChannel::initIPCChannel();
  vnGetClientVersionHelper::sharedInstance().getClientVersion();
  return vnAppHelper::sharedInstance().isSupportedOutlookVersion();
}

void vnHookERageMainWindowController::finish() {
  if (vnAppHelper::sharedInstance().OutlookVersion().starts_with(kVersionThatNeedsToolbarItems)) {
    addUIToMainWindow(m_scheduleMeetingItemIdentifier);
    addUIToMainWindow(m_instantMeetingItemIdentifier);
  }
  vnCommandItemMgr::sharedInstance().initPluginInstance();
}

Value vnHookERageMainWindowController::vn_ERageMainWindowController_toolbarItem(HookCall& call) {
  if (const HostObject item =
          vnToolbarItemMgr::sharedInstance().itemForIdentifier(call.argument(1).text(), call.argument(0).object()))
    return item;
  return call.forward();
}

Value vnHookERageMainWindowController::vn_ERageMainWindowController_loadPane(HookCall& call) {
  Value result = call.forward();
  scheduleInitVnRibbonView();
  return result;
}

Value vnHookERageMainWindowController::vn_ERageMainWindowController_windowDidBecomeMain(HookCall& call) {
  const HostObject window = windowOf(call.argument(0));
  const HostObject controller = askHost(window, "windowController").object();
  if (controller && booleanFromHost(askHost(window, "isVisible"))) {
    vnERageMainWindowController::sharedInstance().setDelegate(controller);
  }
  return call.forward();
}

Value vnHookERageMainWindowController::vn_ERageMainWindowController_windowWillClose(HookCall& call) {
  vnIPCChannel::releaseIPCChannel();
  vnERageMainWindowController& mainWindow = vnERageMainWindowController::sharedInstance();
  Registry::platform().runLoop->cancelPrevious(&mainWindow);
  mainWindow.cleanup();
  return call.forward();
}

}  // namespace vorn
