#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The header views of newer editors: they get a bar when they are made, and place it when they draw.
class vnHookOLAutoLayoutAttachmentsAcceptingView : public vnHookRoot {
 public:
  static Value vnOLAutoLayoutAttachmentsAcceptingView_initWithFrame(HookCall& call);
  static Value vnOLAutoLayoutAttachmentsAcceptingView_drawRect(HookCall& call);
};

}  // namespace vorn
