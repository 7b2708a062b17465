#pragma once

#include "host/surface/HookCall.h"

namespace vorn {

// The base of the hook classes: each holds the replacements for one class of the host.
class vnHookRoot {
 public:
  // The replacement of a row that exists so that the host's method can be called under its added name.
  static Value forward(HookCall& call) { return call.forward(); }
};

}  // namespace vorn
