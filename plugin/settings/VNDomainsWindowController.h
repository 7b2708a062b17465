#pragma once

#include <string>
#include <string_view>

#include "settings/PanelParts.h"

namespace vorn {

// The window in which the domains of one sign-in choice are edited, or only seen where the account has locked
// them. One for each panel, shown again and again. Main thread only.
class VNDomainsWindowController {
 public:
  explicit VNDomainsWindowController(ControlSet& controls);

  void initWithLocalString();

  // The choice, a dictionary with the vn_Setting_MeetingAuth_* keys, and whether it can only be seen.
  void initMeetingAuth(const Value& auth) { m_selectMeetingAuth = auth; }
  void isDomainLocked(bool locked) { m_isDomainLocked = locked; }
  void showWindowSheet();
  void closeWindowSheet();
  void updateDomainUI();

  // What the user has changed; nothing for a control that is not this window's.
  void userChanged(std::string_view key);
  // The edited choice is posted as notify_Schedule_AuthDomainChanged about the panel's controls.
  void clickSaveButton();
  void clickCancelButton() { closeWindowSheet(); }
  // Marks the first domain that is none; false without one.
  bool checkDomainsError(const std::string& domains);

 private:
  ControlSet& m_controls;
  Value m_selectMeetingAuth;
  bool m_isDomainLocked = false;

  Control& m_window;
  Control& m_domainsTextField;
  Control& m_domainsErrorLabel;
  Control& m_SaveBtn;
  Control& m_cancelBtn;
};

// A sign-in choice has other domains; the choice itself is the posted dictionary. The object is the panel's set of
// controls: another panel may offer the same choice, and its meeting is another one.
inline constexpr std::string_view notify_Schedule_AuthDomainChanged = "notify_Schedule_AuthDomainChanged";

}  // namespace vorn
