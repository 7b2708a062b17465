#pragma once

#include <memory>
#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// One open settings window, as the workflow needs it. Before it is on the screen for the first time it has no
// options yet: what it is asked gives absent or "", and what it is told is dropped. Main thread only.
class SettingsPanel {
 public:
  virtual ~SettingsPanel() = default;
  // The settings as the user sees them now.
  virtual Value getVnSettingsData() = 0;
  // What they would be after a commit, which also takes what stands in the controls alone. Nothing is changed.
  virtual Value settingsToCommit() = 0;
  // The e-mail of whom the personal meeting is; "" for oneself, and for a meeting with a number of its own.
  virtual std::string getScheduldForEmailFromUI() = 0;
  // The meeting information that the panel was loaded with first; empty for a new meeting.
  virtual Value getSiteMeetingInfo() = 0;
  // The personal meeting of whom is chosen, as meeting information; anything but a dictionary is taken for an
  // empty one. Nothing is shown of it before refreshSettingWindow().
  virtual void setPMIMeetingInfo(const Value& meetingInfo) = 0;
  // As commitStands(), with the passcode that the service has given the meeting: the record has it from now on,
  // and a dismissed panel goes back to it. None, and "", require none.
  virtual void updatePasswordAfterCommit(const OptionalText& passcode) = 0;
  // Takes the hosts that the service has refused, by an array of e-mails whose case does not matter, out of the
  // record and out of what a dismissed panel goes back to.
  virtual void filterInvalidAlternateHosts(const Value& emails) = 0;
  // As commitRefused(), and the record itself goes back to what stood before that commit; not while the panel is
  // on the screen, where the user goes on from what it shows.
  virtual void resetMeetingItemWhenUpdateError() = 0;
  // What was committed last did not come about, and the panel opens on it again.
  virtual void commitRefused() = 0;
  // The service has accepted it, and a later refusal leaves it alone.
  virtual void commitStands() = 0;
  // The people to schedule for have come: in a panel on the screen, what depends on the person is theirs from now
  // on. forOther: the dial-in countries are the chosen person's, if it is not oneself; otherwise the account's.
  virtual void setScheduleForListInfo(bool forOther) = 0;
};

// The open settings windows, by window id. There is none until the settings room is installed: a click then stops
// where it would open the panel. Main thread only.
class SettingsPanels {
 public:
  virtual ~SettingsPanels() = default;
  // Makes the panel of the window, which is not shown yet; one that is there loads its controls once more and
  // keeps what the user has set. Nothing for an empty id, and without a window to stand on.
  virtual void addSchSettingWindowToArray(const std::string& windowId, const Value& meetingData,
                                          const HostObject& parentWindow) = 0;
  // Shows the panel as a sheet on its window; nothing without one, and for one on the screen already.
  virtual void showSchSettingWindow(const std::string& windowId) = 0;
  // Null when no window is open for the id. What is asked of a panel may end its appointment's window, and with it
  // the panel: whoever asks for more keeps it meanwhile.
  virtual std::shared_ptr<SettingsPanel> getSchSettingWindowInArray(const OptionalText& windowId) = 0;
  // Loads a panel on the screen anew: with the personal meeting that was set last, if the panel still wants that
  // one, or with the account's defaults for a meeting with a number of its own. Nothing for a panel that the user
  // has left.
  virtual void refreshSettingWindow(const std::string& windowId, bool forPMI) = 0;
  // The appointment's window has closed: its id may be another window's soon.
  virtual void endSettingWindow(const OptionalText& windowId) = 0;
  // The panel itself shows why a commit was refused with the code.
  virtual bool tellsOfRefusal(int errorCode) const = 0;
};

// What the settings room remembers beyond all windows. Main thread only.
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
