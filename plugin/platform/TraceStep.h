#pragma once

#include <string_view>

#include "platform/Registry.h"
#include "platform/Trace.h"

namespace vorn {

// Tells the trace about a step when there is a trace; the facts are made only then.
template <typename MakeFacts>
void traceStep(std::string_view step, const MakeFacts& makeFacts) {
  if (Trace* trace = Registry::platform().trace) trace->note(step, makeFacts());
}

}  // namespace vorn
