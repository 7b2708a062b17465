#pragma once

#include <string_view>
#include <vector>

#include "util/HostObject.h"
#include "util/Rect.h"
#include "util/Value.h"

namespace vorn {

// The host's application object; absent when the host has none.
HostObject hostApplication();
// Brings the host to the front unless it is there.
void activateHostApplication();
// The direct subviews of a view; none for anything that has none.
std::vector<HostObject> subviewsOf(const HostObject& view);
// The first view of a class below a view, depth first; absent when there is none.
HostObject firstSubviewOfKind(const HostObject& view, std::string_view className);
// The frame of a view in its superview; empty when it has none.
Rect frameOf(const HostObject& view);
void setFrameOf(const HostObject& view, const Rect& frame);

// A rectangle as it travels to and from the host: a dictionary of "x", "y", "width" and "height".
Value valueFromRect(const Rect& rect);
Rect rectFromValue(const Value& value);

}  // namespace vorn
