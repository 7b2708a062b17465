#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// The addresses in what the client says of refused alternate hosts: items with commas between, each up to its "#".
Value refusedAlternateHosts(std::string_view moreInfo);
// What the user is told of them.
std::string getAlternateHostDisplayError(const Value& emails);

}  // namespace vorn
