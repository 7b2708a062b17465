#include "host/surface/MainWindowRibbon.h"

#include "host/proxies/vnERageMainWindowController.h"
#include "host/surface/vnMainRibbonView.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"

namespace vorn {

namespace {

constexpr double kDelay = 0.01;
constexpr std::string_view kInitVnRibbonView = "initVnRibbonView";

}  // namespace

void initVnRibbonView() {
  vnERageMainWindowController& mainWindow = vnERageMainWindowController::sharedInstance();
  // The host may have built its ribbon anew, or only now.
  mainWindow.initMembers();
  vnMainRibbonView& ribbon = vnMainRibbonView::sharedInstance();
  // The chunks of a tab without our button may come to stand where it was.
  if (!mainWindow.needAddVornButton()) return ribbon.hide();
  ribbon.setOlMainWindowActivedTab(mainWindow.currentActiveTabIndex());
  ribbon.initWithOLRibbonChunkContainerView(mainWindow.ribbonChunkContainerView());
}

void scheduleInitVnRibbonView() {
  const void* target = &vnERageMainWindowController::sharedInstance();
  RunLoop& loop = *Registry::platform().runLoop;
  loop.cancelPrevious(target, kInitVnRibbonView);
  loop.performAfter(kDelay, target, kInitVnRibbonView, &initVnRibbonView);
}

}  // namespace vorn
