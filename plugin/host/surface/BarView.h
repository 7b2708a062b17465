#pragma once

#include <memory>

#include "util/HostObject.h"
#include "util/Rect.h"

namespace vorn {

class vnActionAdditionView;

// The side of the bar that the host's runtime sees: what is sent to the view, such as the clicks of its buttons,
// arrives at its bar, for as long as that lives.
class BarView {
 public:
  // A view with no superview; absent when the host has no views.
  static HostObject make(const Rect& frame);
  static void connect(const HostObject& view, const std::shared_ptr<vnActionAdditionView>& bar);
  // The bar behind the view; null when it has ended.
  static std::shared_ptr<vnActionAdditionView> barOf(const HostObject& view);
};

}  // namespace vorn
