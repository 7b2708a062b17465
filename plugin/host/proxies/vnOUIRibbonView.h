#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The ribbon. Nobody makes one.
class vnOUIRibbonView : public vnDelegateBase {
 public:
  explicit vnOUIRibbonView(const HostObject& delegate) : vnDelegateBase("OUIRibbonView", delegate) {}
};

}  // namespace vorn
