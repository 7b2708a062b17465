#pragma once

#include <map>
#include <memory>
#include <string>

#include "settings/VnSettingWindowController.h"

namespace vorn {

// The settings sheets of all appointment windows, by window id. Process-wide; main thread only.
class SchSettingWndCtrlMgr final : public SettingsPanels {
 public:
  static SchSettingWndCtrlMgr& sharedInstance();

  // Puts itself in force for the workflow, where the presenter can draw a panel; elsewhere a click stops where the
  // panel would open, and a refused commit is told in an alert.
  void install();

  // Nothing for an empty id and without a window. A sheet that is there is loaded once more.
  void addSchSettingWindowToArray(const std::string& windowId, const Value& meetingData,
                                  const HostObject& parentWindow) override;
  void showSchSettingWindow(const std::string& windowId) override;
  std::shared_ptr<SettingsPanel> getSchSettingWindowInArray(const OptionalText& windowId) override;
  void refreshSettingWindow(const std::string& windowId, bool forPMI) override;
  // Nothing of it must meet the next window, whose id may be the same.
  void endSettingWindow(const OptionalText& windowId) override;
  // Of a refused passcode, security option, template or tracking field, each where it is chosen.
  bool tellsOfRefusal(int /*errorCode*/) const override { return true; }

 private:
  std::shared_ptr<VnSettingWindowController> find(const OptionalText& windowId) const;

  std::map<std::string, std::shared_ptr<VnSettingWindowController>> m_windows;
};

}  // namespace vorn
