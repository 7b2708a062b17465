#pragma once

#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// One open settings window, as the workflow needs it.
class SettingsPanel {
 public:
  virtual ~SettingsPanel() = default;
  // The settings as the user sees them now.
  virtual Value getVnSettingsData() = 0;
  virtual std::string getScheduldForEmailFromUI() = 0;
  virtual Value getSiteMeetingInfo() = 0;
  virtual void setPMIMeetingInfo(const Value& meetingInfo) = 0;
  virtual void updatePasswordAfterCommit(const OptionalText& passcode) = 0;
  virtual void filterInvalidAlternateHosts(const Value& emails) = 0;
  virtual void resetMeetingItemWhenUpdateError() = 0;
  virtual void setScheduleForListInfo(bool arrived) = 0;
};

// The open settings windows, by window id, and what else the workflow asks of the settings room. There is none
// until that room stands: a click then stops where it would open the panel.
class SettingsPanels {
 public:
  virtual ~SettingsPanels() = default;
  virtual void addSchSettingWindowToArray(const std::string& windowId, const Value& meetingData,
                                          const HostObject& parentWindow) = 0;
  virtual void showSchSettingWindow(const std::string& windowId) = 0;
  // Null when no window is open for the id.
  virtual SettingsPanel* getSchSettingWindowInArray(const OptionalText& windowId) = 0;
  virtual void refreshSettingWindow(const std::string& windowId, bool forPMI) = 0;

  // Remembers the addresses that a commit went out with, to be offered the next time somebody types one.
  virtual void addToInputAlternateHostHistory(const Value& alternateHosts) = 0;
};

// The settings windows in force; null without a panel. The caller keeps what it hands over alive until the
// registry is reset.
SettingsPanels* settingsPanels();
void setSettingsPanels(SettingsPanels* panels);
// The window open for the id; null without one.
SettingsPanel* openSettingsPanel(const OptionalText& windowId);

}  // namespace vorn
