#pragma once

#include <string_view>

#include "platform/controls/ControlSet.h"

namespace vorn {

// The banner that tells of the end of plug-ins of this kind, until the user closes it. The controls outlive it.
// Main thread only.
class vnPluginTurnoffViewController {
 public:
  explicit vnPluginTurnoffViewController(ControlSet& controls);

  // The texts, and whether it is shown.
  void initFields();
  // What the user has clicked; nothing for a control that is not this banner's.
  void userChanged(std::string_view key);

 private:
  void updateCtrlPos();

  Control& m_view;
  // The sentence, of which one part is a link.
  Control& m_before;
  Control& m_link;
  Control& m_after;
  Control& m_helperLink;
  Control& m_closeButton;
};

}  // namespace vorn
