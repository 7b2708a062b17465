#pragma once

#include <string_view>

namespace vorn {

// Shows a folder that exists to the user, without waiting; false when it could not be shown.
bool showFolder(std::string_view path);

}  // namespace vorn
