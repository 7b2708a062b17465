#pragma once

#include <string>
#include <string_view>

namespace vornlab {

// Standard base64 with padding and without line breaks.
std::string base64(std::string_view bytes);

}  // namespace vornlab
