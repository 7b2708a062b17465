#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// What the host's body editor holds, of whatever class.
class vnOLWordMailEditorContent : public vnDelegateBase {
 public:
  explicit vnOLWordMailEditorContent(const HostObject& delegate)
      : vnDelegateBase(ownClassName(delegate), delegate) {}

  // The body as HTML text. A body may be large: the value shares it.
  Value bodyContent() const { return getOLItemID("bodyContent"); }
};

}  // namespace vorn
