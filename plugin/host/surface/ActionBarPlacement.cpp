#include "host/surface/ActionBarPlacement.h"

#include <algorithm>

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnOLAutoLayoutAttachmentsAcceptingView.h"
#include "host/surface/BarView.h"
#include "host/surface/vnActionAdditionView.h"
#include "util/CharacterSets.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr double kTopWithTimezone = 13;
constexpr double kTopWithoutTimezone = -10;

bool isHidden(const HostObject& field) {
  return booleanFromHost(askHost(field, "isHidden")) ||
         booleanFromHost(askHost(field, "isHiddenOrHasHiddenAncestor"));
}

// "+01:00", with the minus of a keyboard or of a book.
bool beginsWithDistance(std::string_view text) {
  for (const std::string_view sign : {"+", "-", "\u2212"}) {
    if (!text.starts_with(sign)) continue;
    text.remove_prefix(sign.size());
    return !text.empty() && isDecimalDigit(static_cast<unsigned char>(text.front()));
  }
  return false;
}

// The host names a zone by its distance first: "(UTC+01:00) Berlin". A text that only speaks of a time somewhere
// is somebody's subject or place.
bool namesTimezone(std::string_view text) {
  text = trimmed(text, isWhitespaceOrNewline);
  if (text.starts_with('(')) text.remove_prefix(1);
  if (!text.starts_with("UTC") && !text.starts_with("GMT")) return false;
  text.remove_prefix(3);
  return text.empty() || text.front() == ')' || beginsWithDistance(text);
}

bool showsTimezone(const HostObject& field) {
  // What can be edited is the user's, whatever is written there.
  if (isHidden(field) || booleanFromHost(askHost(field, "isEditable"))) return false;
  return namesTimezone(askHost(field, "stringValue").text());
}

}  // namespace

Rect actionBarFrame(const Rect& superviewFrame, const Rect& barFrame, bool hasTimezone) {
  const double right = superviewFrame.width - g_vnActionAdditionView_RightMargin;
  const double left = std::max(right - g_vnActionAddtionView_NormalWidth, g_vnActionAdditionView_MinX);
  return Rect{left, hasTimezone ? kTopWithTimezone : kTopWithoutTimezone, std::max(right - left, 0.0),
              barFrame.height};
}

void placeActionBar(const std::vector<HostObject>& views, bool hasTimezone) {
  const auto bar = std::find_if(views.begin(), views.end(), [](const HostObject& view) {
    return isExactlyOfHostClass(view, vnActionAdditionView::kViewClass);
  });
  if (bar == views.end()) return;
  const HostObject superview = askHost(*bar, "superview").object();
  if (!superview) return;
  const Rect frame = actionBarFrame(frameOf(superview), frameOf(*bar), hasTimezone);
  // The toolkit draws the header anew when a view in it is given another frame, which leads here again.
  if (frameOf(*bar) != frame) setFrameOf(*bar, frame);
  if (const auto placed = BarView::barOf(*bar)) placed->layOut(frame.width);
}

bool vnHasTimezone(const HostObject& header) {
  std::vector<HostObject> fields;
  vnOLUtils::GetSubViewOfKind(header, "NSTextField", fields);
  return std::any_of(fields.begin(), fields.end(), showsTimezone);
}

bool vnHasTimezoneForHeaderContainer(const std::vector<HostObject>& managedViews) {
  return std::any_of(managedViews.begin(), managedViews.end(), [](const HostObject& view) {
    return (isKindOfHostClass(view, "NSTextField") && showsTimezone(view)) || vnHasTimezone(view);
  });
}

bool vnHasAttachment(const HostObject& header) {
  return vnOLAutoLayoutAttachmentsAcceptingView(header).hasAttachments();
}

double vnGetAttachmentViewHeight(const HostObject& header) {
  return vnOLAutoLayoutAttachmentsAcceptingView(header).getAttachmentsViewHeight();
}

}  // namespace vorn
