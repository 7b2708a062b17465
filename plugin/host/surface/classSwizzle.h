#pragma once

#include <string_view>

#include "platform/ClassRuntime.h"

namespace vorn {

// Exchanges the host's implementation of a method with one that was added to the same class.
//
// False, and no change, when the class or either method is missing. An inherited method is exchanged for this
// class and its heirs alone.
class classSwizzle {
 public:
  static bool method_ClassSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL);
  static bool method_InstanceSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL);
};

}  // namespace vorn
