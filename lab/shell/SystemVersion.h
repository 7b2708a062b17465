#pragma once

#include <optional>
#include <string>

#include "platform/Surroundings.h"

namespace vornlab {

// The version in a text such as "10.15.0"; absent for any other text.
std::optional<vorn::Surroundings::Version> parseSystemVersion(const std::string& text);

}  // namespace vornlab
