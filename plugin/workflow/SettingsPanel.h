#pragma once

#include <memory>
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
  // What they would be after a commit, which also takes what stands in the controls alone. Nothing is changed.
  virtual Value settingsToCommit() = 0;
  virtual std::string getScheduldForEmailFromUI() = 0;
  virtual Value getSiteMeetingInfo() = 0;
  virtual void setPMIMeetingInfo(const Value& meetingInfo) = 0;
  virtual void updatePasswordAfterCommit(const OptionalText& passcode) = 0;
  virtual void filterInvalidAlternateHosts(const Value& emails) = 0;
  virtual void resetMeetingItemWhenUpdateError() = 0;
  // What was committed last did not come about, and the panel opens on it again.
  virtual void commitRefused() = 0;
  // The service has accepted it, and a later refusal leaves it alone.
  virtual void commitStands() = 0;
  virtual void setScheduleForListInfo(bool arrived) = 0;
};

// The open settings windows, by window id. There is none until the settings room is installed: a click then stops
// where it would open the panel.
class SettingsPanels {
 public:
  virtual ~SettingsPanels() = default;
  virtual void addSchSettingWindowToArray(const std::string& windowId, const Value& meetingData,
                                          const HostObject& parentWindow) = 0;
  virtual void showSchSettingWindow(const std::string& windowId) = 0;
  // Null when no window is open for the id. What is asked of a panel may end its appointment's window, and with it
  // the panel: whoever asks for more keeps it meanwhile.
  virtual std::shared_ptr<SettingsPanel> getSchSettingWindowInArray(const OptionalText& windowId) = 0;
  virtual void refreshSettingWindow(const std::string& windowId, bool forPMI) = 0;
  // The appointment's window has closed: its id may be another window's soon.
  virtual void endSettingWindow(const OptionalText& windowId) = 0;
  // The panel itself shows why a commit was refused with the code.
  virtual bool tellsOfRefusal(int errorCode) const = 0;
};

// What the settings room remembers beyond all windows.
class AlternateHostHistory {
 public:
  virtual ~AlternateHostHistory() = default;
  // Remembers the addresses that a commit went out with, to be offered the next time somebody types one.
  virtual void addToInputAlternateHostHistory(const Value& alternateHosts) = 0;
};

// The settings windows and the history in force; null without. The caller keeps what it hands over alive until the
// registry is reset.
SettingsPanels* settingsPanels();
void setSettingsPanels(SettingsPanels* panels);
AlternateHostHistory* alternateHostHistory();
void setAlternateHostHistory(AlternateHostHistory* history);
// The window open for the id; null without one.
std::shared_ptr<SettingsPanel> openSettingsPanel(const OptionalText& windowId);
// The appointment's window with the id has closed.
void endSettingsPanel(const OptionalText& windowId);

}  // namespace vorn
