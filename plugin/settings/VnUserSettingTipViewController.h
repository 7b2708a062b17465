#pragma once

#include <string_view>

#include "platform/controls/ControlSet.h"
#include "settings/SettingsContext.h"

namespace vorn {

// The banner that says where the account's own settings are, for a new meeting with a number of its own, until the
// user closes it. Controls and context outlive it. Main thread only.
class VnUserSettingTipViewController {
 public:
  VnUserSettingTipViewController(ControlSet& controls, const SettingsContext& context);

  // The panel shows the personal meeting.
  void setIsForPMI(bool isForPMI) { m_isForPMI = isForPMI; }
  // The texts, and whether it is shown.
  void initFields();
  // What the user has clicked; nothing for a control that is not this banner's.
  void userChanged(std::string_view key);

 private:
  void updateCtrlPos();

  const SettingsContext& m_context;
  bool m_isForPMI = false;

  Control& m_view;
  Control& m_text;
  Control& m_changeSettingsLink;
  Control& m_closeButton;
};

}  // namespace vorn
