#include "host/proxies/vnERageMainWindowController.h"

#include "host/proxies/HostViews.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

void keepFirst(const HostObject& root, std::string_view className, HostObject& kept) {
  if (const HostObject found = firstSubviewOfKind(root, className)) kept = found;
}

}  // namespace

vnERageMainWindowController& vnERageMainWindowController::sharedInstance() {
  return Registry::shared<vnERageMainWindowController>();
}

void vnERageMainWindowController::setDelegate(const HostObject& delegate) {
  // The first is kept as long as its window is there: a main window may be closed and another one opened.
  if (booleanFromHost(askHost(window(), "isVisible")) || !isKindOfHostClass(delegate, className())) return;
  vnDelegateBase::setDelegate(delegate);
  connectChild();
}

void vnERageMainWindowController::initMembers() {
  const HostObject mainWindow = window();
  if (!booleanFromHost(askHost(mainWindow, "isVisible"))) return;
  const HostObject contentView = askHost(mainWindow, "contentView").object();
  keepFirst(contentView, "OUIRibbonChunkContainerView", m_idOLRibbonChunkContainerView);
  keepFirst(contentView, "OUIRibbonView", m_idOUIRibbonView);
}

std::uint32_t vnERageMainWindowController::currentActiveTabIndex() const {
  // A ribbon that has ended, or does not say, is none.
  const Value tab = askHost(m_idOUIRibbonView, "activeTabIndex");
  return static_cast<std::uint32_t>(tab.isNumber() ? tab.integerValue() : -1);
}

bool vnERageMainWindowController::isHomeMailOrCalendarTab() const {
  const std::uint32_t tab = currentActiveTabIndex();
  return tab == kMailTab || tab == kCalendarTab;
}

bool vnERageMainWindowController::needAddVornButton() const {
  return m_idOLRibbonChunkContainerView && m_idOUIRibbonView && isHomeMailOrCalendarTab();
}

void vnERageMainWindowController::cleanup() {
  m_idOLRibbonChunkContainerView = {};
  m_idOUIRibbonView = {};
}

}  // namespace vorn
