#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The header views of older editors, which get a bar when they are made.
class vnHookOLAttachmentsAcceptingView : public vnHookRoot {
 public:
  static Value vnOLAttachmentsAcceptingView_initWithFrame(HookCall& call);
};

}  // namespace vorn
