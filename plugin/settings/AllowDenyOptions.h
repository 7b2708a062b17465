#pragma once

#include <string_view>

#include "platform/NotificationCenter.h"
#include "settings/VNAllowDenyRCWindowController.h"

namespace vorn {

// The regions that may join the meeting: the option, what it says beside the switch, and its window.
//
// Main thread only.
class AllowDenyOptions {
 public:
  explicit AllowDenyOptions(const PanelParts& panel);

  // The steps of loading.
  void checkAccountLocked();
  void initAllowDenyOptionBox();
  // The tip that the policy has taken dial-in countries away.
  void updateAllowDenyImpactCountriesTipViewUI(bool isHidden);

  // What the user has done; nothing for a control that is not this group's.
  void userChanged(std::string_view key);
  void closeAllowDenyRCSearchListWindow() { m_window.closeAllowDenyRCSearchListWindow(); }

  // Closes its window without taking anything over; nothing for a closed one.
  void endWindow() { m_window.endSheet(); }
  // What a commit writes.
  void writeAllowDeny();

 private:
  bool isLocked() const;
  std::string email() const { return m_panel.record.scheduleForEmail().value_or(""); }
  std::vector<std::string> defaultRegionCodes() const;
  void updateAllowDenyTextUI();
  void onClickAllowDenyButton();
  void onClickAllowDenyEditButton();
  void onUpdateRegionPolicyChanged(const Value& userInfo);
  void openWindow(const Value& codes);

  const PanelParts& m_panel;
  Control& m_allowDenyBox;
  Control& m_allowDenyButton;
  Control& m_allowDenyText;
  Control& m_allowDenyEditButton;
  Control& m_tipView;
  Control& m_tipText;
  VNAllowDenyRCWindowController m_window;
  NotificationCenter::Subscription m_policyChanged;
};

}  // namespace vorn
