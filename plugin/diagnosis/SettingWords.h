#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// The entries of a settings dictionary, as people who give support may see them.

// One value in words.
std::string shownSetting(std::string_view key, const Value& value);

}  // namespace vorn
