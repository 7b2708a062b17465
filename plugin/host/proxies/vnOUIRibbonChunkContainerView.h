#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The view that holds the ribbon's chunks. Nobody makes one.
class vnOUIRibbonChunkContainerView : public vnDelegateBase {
 public:
  explicit vnOUIRibbonChunkContainerView(const HostObject& delegate)
      : vnDelegateBase("OUIRibbonChunkContainerView", delegate) {}
};

}  // namespace vorn
