#pragma once

#include "platform/controls/ControlSet.h"

namespace vorn {

// The banner for accounts of one country that have no paid plan. The controls outlive it. Main thread only.
class vnEpidemicTipViewController {
 public:
  explicit vnEpidemicTipViewController(ControlSet& controls);

  // Shows or hides it.
  void initFields();

 private:
  Control& m_view;
  Control& m_text;
};

}  // namespace vorn
