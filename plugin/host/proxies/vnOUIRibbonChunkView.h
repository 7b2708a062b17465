#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// One chunk of the ribbon.
class vnOUIRibbonChunkView : public vnDelegateBase {
 public:
  explicit vnOUIRibbonChunkView(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {}

  Value attributedTitle() const { return getOLItemID("attributedTitle"); }
  OptionalText title() const { return text("title"); }
};

}  // namespace vorn
