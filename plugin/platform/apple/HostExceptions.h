#pragma once

#include "platform/ClassRuntime.h"

namespace vorn {

// What goes wrong in the host's own code, kept so that none of it unwinds through this system's. It is an object
// that was raised, or a C++ exception.

// Runs the body and gives what it raised or threw; null when it ended well.
HostException exceptionFrom(void (*body)(void* context), void* context);
template <typename Body>
HostException exceptionFrom(Body body) {
  return exceptionFrom([](void* context) { (*static_cast<Body*>(context))(); }, &body);
}

// Raises or throws the very same again. The caller has nothing left to clean up.
[[noreturn]] void raiseAgain(HostException exception);

}  // namespace vorn
