#pragma once

#include <vector>

#include "platform/Presenter.h"
#include "util/HostObject.h"

namespace vorn {

inline constexpr double g_vnActionAddtionView_NormalWidth = 400;
inline constexpr double g_vnActionAdditionView_RightMargin = 10;
inline constexpr double g_vnActionAdditionView_MinX = 460;

// Where the bar stands in a header: at the right edge, narrower rather than left of the least position. The
// height stays as it is. A header without room gives a width of 0.
Rect actionBarFrame(const Rect& superviewFrame, const Rect& barFrame, bool hasTimezone);

// Gives the bar among the views its place; nothing when there is none.
void placeActionBar(const std::vector<HostObject>& views, bool hasTimezone);

// True when a header shows its line with a time zone.
bool vnHasTimezone(const HostObject& header);

}  // namespace vorn
