#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings/VNAllowDenyRCController.h"

namespace vorn {

// A policy was saved in the window of a panel: posted with vn_Setting_RegionType and vn_Setting_RegionCodes, for
// the panel that has those controls. The others keep theirs.
inline constexpr std::string_view notify_Schedule_RegionPolicyChanged = "notify_Schedule_RegionPolicyChanged";

// The window in which the user lists the regions that may join, or those that may not. Each of the two lists is
// kept while the other is shown. Whoever may not change them reads them there.
//
// One for each panel, opened again and again. What is saved is posted, to the panel that it belongs to. Main
// thread only.
class VNAllowDenyRCWindowController {
 public:
  explicit VNAllowDenyRCWindowController(const PanelParts& panel);

  // Whose regions they are, "" for oneself, and a policy with vn_Setting_RegionType and vn_Setting_RegionCodes.
  void initRegionPolicy(const std::string& email, const Value& regionPolicy);
  void showWindowSheet();

  // Closes it; nothing is saved.
  void endSheet();

  // What the user has done; nothing for a control that is not this window's.
  void userChanged(std::string_view key);
  void closeAllowDenyRCSearchListWindow() { m_allowDenyRCController.closeAllowDenyRCSearchListWindow(); }

  // The names of the regions that the policy lists.
  std::string getRegionCountries() const;
  const std::string& getScheduleForEmail() const { return m_scheduleForEmail; }

 private:
  void initializeItems();
  void showLocked();
  void showEditable();
  bool isLocked() const;
  // As it was opened: an account that comes anew meanwhile changes nothing of what the user sees.
  bool isReadOnly() const { return !m_lockedLabel.hidden; }
  std::vector<std::string>& codesOf(bool isAllow) {
    return isAllow ? m_arrAllowRegionCodes : m_arrBlockRegionCodes;
  }
  void clickAllowDenyRadioButton(bool isAllow);
  void clickSaveButton();
  void clickCancelButton();
  void checkSaveButtonStatus();

  const PanelParts& m_panel;
  std::vector<std::string> m_arrAllowRegionCodes;
  std::vector<std::string> m_arrBlockRegionCodes;
  std::string m_scheduleForEmail;
  std::int64_t m_regionType = 0;

  Control& m_window;
  Control& m_allowButton;
  Control& m_blockButton;
  Control& m_regionsLabel;
  Control& m_textField;
  Control& m_lockedLabel;
  Control& m_saveButton;
  Control& m_cancelButton;
  VNAllowDenyRCController m_allowDenyRCController;
};

}  // namespace vorn
