#pragma once

#include <objc/objc.h>

namespace vorn {

// Calls back while the object is deallocated, on the thread on which that happens. To be called once for an
// object.
void watchDeath(id object, void (*died)(id object));

}  // namespace vorn
