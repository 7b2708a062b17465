#include "settings/SchSettingWndCtrlMgr.h"

#include "platform/Presenter.h"
#include "platform/Registry.h"
#include "settings/VNAlternateHostHelper.h"

namespace vorn {

SchSettingWndCtrlMgr& SchSettingWndCtrlMgr::sharedInstance() { return Registry::shared<SchSettingWndCtrlMgr>(); }

void SchSettingWndCtrlMgr::install() {
  const Presenter* presenter = Registry::platform().presenter;
  if (!presenter || !presenter->canShowPanels()) return;
  setSettingsPanels(this);
  setAlternateHostHistory(&VNAlternateHostHelper::sharedInstance());
}

std::shared_ptr<VnSettingWindowController> SchSettingWndCtrlMgr::find(const OptionalText& windowId) const {
  const auto found = windowId ? m_windows.find(*windowId) : m_windows.end();
  return found == m_windows.end() ? nullptr : found->second;
}

// The meeting data are the manager's, and the sheet asks the manager for its meeting when it is shown.
void SchSettingWndCtrlMgr::addSchSettingWindowToArray(const std::string& windowId, const Value& /*meetingData*/,
                                                      const HostObject& parentWindow) {
  if (windowId.empty() || !parentWindow) return;
  if (const auto window = find(windowId)) {
    window->initFields(false);
  } else {
    m_windows[windowId] = std::make_shared<VnSettingWindowController>(windowId, parentWindow);
  }
}

void SchSettingWndCtrlMgr::showSchSettingWindow(const std::string& windowId) {
  if (const auto window = find(windowId)) window->showWindowSheet();
}

std::shared_ptr<SettingsPanel> SchSettingWndCtrlMgr::getSchSettingWindowInArray(const OptionalText& windowId) {
  return find(windowId);
}

void SchSettingWndCtrlMgr::refreshSettingWindow(const std::string& windowId, bool forPMI) {
  if (const auto window = find(windowId)) window->refreshUI(forPMI);
}

void SchSettingWndCtrlMgr::endSettingWindow(const OptionalText& windowId) {
  if (windowId) m_windows.erase(*windowId);
}

}  // namespace vorn
