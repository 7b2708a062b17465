#pragma once

#include <vector>

#include "util/HostObject.h"
#include "util/Rect.h"

namespace vorn {

inline constexpr double g_vnActionAddtionView_NormalWidth = 400;
inline constexpr double g_vnActionAdditionView_RightMargin = 10;
inline constexpr double g_vnActionAdditionView_MinX = 460;

// Where the bar stands in a header: at the right edge, narrower rather than left of the least position. The
// height stays as it is. A header without room gives a width of 0.
Rect actionBarFrame(const Rect& superviewFrame, const Rect& barFrame, bool hasTimezone);

// Gives the bar among the views its place; nothing when there is none.
void placeActionBar(const std::vector<HostObject>& views, bool hasTimezone);

// Facts of a header.
//
// Whether it shows its line with a time zone, a visible text that nobody can edit: among its subviews, or among
// the views that an OLCalendarHeaderContainerView manages by itself.
bool vnHasTimezone(const HostObject& header);
bool vnHasTimezoneForHeaderContainer(const std::vector<HostObject>& managedViews);
// Whether the appointment has attachments, and the height that they take: 52 when the host does not say.
bool vnHasAttachment(const HostObject& header);
double vnGetAttachmentViewHeight(const HostObject& header);

}  // namespace vorn
