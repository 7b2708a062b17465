#pragma once

#include <string_view>

#include "util/Value.h"

namespace vorn {

// A copy in which secrets are covered, those in its keys included; `key` is the one that the value stands under.
// What is empty, true, false or null hides nothing and stays.
Value covered(const Value& value, std::string_view key = {});

}  // namespace vorn
