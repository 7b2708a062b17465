#pragma once

#include <string_view>

#include "util/HostObject.h"
#include "util/Rect.h"

namespace vorn {

// A view of the toolbar that shows an image of the bundle and opens a menu below itself when it is pressed. It
// holds the menu, and lives as long as a copy of the reference or the item that shows it. Absent when the host has
// no views. Its class in the host's runtime is "vnPopupToolbarView".
HostObject makePopupToolbarView(const Rect& frame, std::string_view imageName, const HostObject& menu);

}  // namespace vorn
