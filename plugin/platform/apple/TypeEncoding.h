#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace vorn {

// Cuts the types of a method, as the compiler has written them down, into single types: the result, the receiver,
// the selector, and each argument. Qualifiers and the offsets behind the types are left out.
//
// The runtime's own functions for this end the process over a type that they do not know. Here an encoding that is
// broken off, or has a letter that is none, gives absent, in time linear in its length.
std::optional<std::vector<std::string_view>> splitTypeEncoding(std::string_view encoding);

}  // namespace vorn
