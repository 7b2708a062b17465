#pragma once

#include <memory>

#include "util/HostObject.h"

namespace vorn {

class vnActionAdditionView;

// The side of the bar that the host's runtime sees: what is sent to the view arrives at its bar, for as long as
// that lives.
//
// The view answers the clicks onClickAddVornMeeting:, onClickCancelVornMeeting: and onClickChangeSettings:, and
// tells what it shows by isAddButtonHidden, isCancelButtonHidden, isChangeButtonHidden and isChangeButtonEnabled.
class BarView {
 public:
  static void connect(const HostObject& view, const std::shared_ptr<vnActionAdditionView>& bar);
};

}  // namespace vorn
