#pragma once

#include <cstddef>
#include <string_view>

namespace vornlab {

// The views of exactly that class that have been made in the stand-ins for the toolkit and have not ended.
std::size_t livingViews(std::string_view className);

}  // namespace vornlab
