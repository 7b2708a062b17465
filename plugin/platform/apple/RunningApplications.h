#pragma once

#include <string_view>

namespace vorn {

// True when a process of this session runs the application with the bundle identifier.
bool isApplicationRunning(std::string_view bundleIdentifier);

}  // namespace vorn
