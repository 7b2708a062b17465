#include "host/proxies/HostViews.h"

#include "host/proxies/vnDelegateBase.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "util/vnOLUtils.h"

namespace vorn {

HostObject hostApplication() {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  if (!runtime) return {};
  return askHost(runtime->classObject(runtime->NSClassFromString("NSApplication")), "sharedApplication").object();
}

void activateHostApplication() {
  const HostObject application = hostApplication();
  if (!booleanFromHost(askHost(application, "isActive")))
    askHost(application, "activateIgnoringOtherApps:", {true});
}

std::vector<HostObject> subviewsOf(const HostObject& view) {
  const Value listed = askHost(view, "subviews");
  std::vector<HostObject> result;
  for (const Value& subview : listed.items()) {
    if (subview.isObject()) result.push_back(subview.object());
  }
  return result;
}

HostObject firstSubviewOfKind(const HostObject& view, std::string_view className) {
  std::vector<HostObject> found;
  vnOLUtils::GetSubViewOfKind(view, OptionalText(className), found);
  return found.empty() ? HostObject() : found.front();
}

Rect frameOf(const HostObject& view) { return rectFromValue(askHost(view, "frame")); }

void setFrameOf(const HostObject& view, const Rect& frame) { askHost(view, "setFrame:", {valueFromRect(frame)}); }

Value valueFromRect(const Rect& rect) {
  return Value::dictionaryFromPairs(
      {{"x", rect.x}, {"y", rect.y}, {"width", rect.width}, {"height", rect.height}});
}

Rect rectFromValue(const Value& value) {
  return Rect{value["x"].realValue(), value["y"].realValue(), value["width"].realValue(),
              value["height"].realValue()};
}

}  // namespace vorn
