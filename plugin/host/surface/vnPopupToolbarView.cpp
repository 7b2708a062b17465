#include "host/surface/vnPopupToolbarView.h"

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/HostMenu.h"
#include "host/surface/OwnClass.h"

namespace vorn {

namespace {

Value setImage(const HostObject& view, const Arguments& arguments) {
  if (const HostObject before = firstSubviewOfKind(view, "NSImageView")) {
    return askHost(before, "setImage:", arguments);
  }
  const Rect frame = frameOf(view);
  const HostObject shown =
      makeInHost("NSImageView", "initWithFrame:", {valueFromRect({0, 0, frame.width, frame.height})});
  askHost(shown, "setImage:", arguments);
  askHost(view, "addSubview:", {shown});
  return {};
}

Value mouseDown(const HostObject& view, const Arguments&) {
  popUp(askHost(view, "menu").object(), view);
  return {};
}

// A press on the image is a press on the view.
Value hitTest(const HostObject& view, const Arguments& arguments) {
  const Rect frame = frameOf(view);
  const Value& point = arguments.empty() ? Value() : arguments.front();
  const double x = point["x"].realValue() - frame.x;
  const double y = point["y"].realValue() - frame.y;
  const bool isInside = x >= 0 && y >= 0 && x < frame.width && y < frame.height;
  return isInside ? Value(view) : Value();
}

constexpr OwnMethod kToolbarPopupMethods[] = {
    {"setImage:", "v@:@", setImage}, {"mouseDown:", "v@:@", mouseDown}, {"hitTest:", "@@:{CGPoint=dd}", hitTest}};

}  // namespace

HostObject makePopupToolbarView(const Rect& frame, std::string_view imageName, const HostObject& menu) {
  const ClassRef viewClass = ownClass("vnPopupToolbarView", "NSView", kToolbarPopupMethods);
  const HostObject view = makeInHost(viewClass, "initWithFrame:", {valueFromRect(frame)});
  askHost(view, "setImage:", {imageNamed(imageName)});
  askHost(view, "setMenu:", {menu});
  return view;
}

}  // namespace vorn
