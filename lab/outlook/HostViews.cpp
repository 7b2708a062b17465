// Views and windows.

#include <algorithm>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr std::string_view kWindowWillClose = "NSWindowWillCloseNotification";

}  // namespace

Value firstOf(const Arguments& arguments) { return argumentAt(arguments, 0); }

Value argumentAt(const Arguments& arguments, std::size_t index) {
  return index < arguments.size() ? arguments[index] : Value();
}

void HostWorld::define(std::string_view className, std::span<const HostMethod> rows) {
  for (const auto& [selector, answer] : rows) {
    runtime.setInstanceMethod(className, selector,
                              [this, answer = answer](const HostObject& self, const Arguments& arguments) {
                                return answer({*this, self, arguments});
                              });
  }
}

Value rectangle(double x, double y, double width, double height) {
  return Value::dictionaryFromPairs({{"x", x}, {"y", y}, {"width", width}, {"height", height}});
}

std::shared_ptr<HostView> HostWorld::view(const HostObject& object) {
  // A view of the plug-in's own class comes without a state.
  if (!runtime.state<HostView>(object)) runtime.setState(object, std::make_shared<HostView>());
  std::shared_ptr<HostView> held = runtime.state<HostView>(object);
  return held ? held : std::make_shared<HostView>();
}

HostObject HostWorld::makeView(std::string_view className, const Value& frame) {
  return send(runtime.create(className, std::make_shared<HostView>()), "initWithFrame:", {frame}).object();
}

void HostWorld::addSubview(const HostObject& superview, const HostObject& subview) {
  if (!runtime.isAlive(subview) || superview == subview) return;
  removeFromSuperview(subview);
  view(subview)->superview = superview;
  view(superview)->subviews.push_back(subview);
}

void HostWorld::removeFromSuperview(const HostObject& object) {
  const std::shared_ptr<HostView> held = view(object);
  if (runtime.isAlive(held->superview)) std::erase(view(held->superview)->subviews, object);
  held->superview = {};
}

HostObject HostWorld::windowOf(const HostObject& object) {
  HostObject at = object;
  while (runtime.isAlive(at)) {
    const std::shared_ptr<HostView> held = view(at);
    if (held->window) return runtime.isAlive(held->window) ? held->window : HostObject();
    at = held->superview;
  }
  return {};
}

void HostWorld::destroyViews(const HostObject& object) {
  if (!runtime.isAlive(object)) return;
  for (const HostObject& below : std::vector<HostObject>(view(object)->subviews)) destroyViews(below);
  runtime.destroy(object);
}

void HostWorld::defineViews() {
  runtime.defineClass("NSObject");
  for (const char* name :
       {"NSView", "NSWindow", "NSWindowController", "NSViewController", "NSTimeZone", "NSApplication"}) {
    runtime.defineClass(name, "NSObject");
  }
  runtime.defineClass("NSTextField", "NSView");

  const auto initWithFrame = [this](const HostObject& self, const Arguments& arguments) {
    view(self)->frame = firstOf(arguments);
    return self;
  };
  method("NSView", "initWithFrame:", initWithFrame);
  method("NSView", "frame", [this](const HostObject& self, const Arguments&) { return view(self)->frame; });
  action("NSView", "setFrame:", [this](const HostObject& self, const Arguments& arguments) {
    view(self)->frame = firstOf(arguments);
  });
  method("NSView", "isHidden", [this](const HostObject& self, const Arguments&) { return view(self)->isHidden; });
  action("NSView", "setHidden:", [this](const HostObject& self, const Arguments& arguments) {
    view(self)->isHidden = firstOf(arguments).boolValue();
  });
  method("NSView", "superview",
         [this](const HostObject& self, const Arguments&) { return view(self)->superview; });
  method("NSView", "window", [this](const HostObject& self, const Arguments&) { return windowOf(self); });
  method("NSView", "subviews", [this](const HostObject& self, const Arguments&) {
    Value list = Value::array();
    for (const HostObject& below : view(self)->subviews) {
      if (runtime.isAlive(below)) list.append(below);
    }
    return list;
  });
  action("NSView", "addSubview:", [this](const HostObject& self, const Arguments& arguments) {
    addSubview(self, firstOf(arguments).object());
  });
  action("NSView", "removeFromSuperview",
         [this](const HostObject& self, const Arguments&) { removeFromSuperview(self); });
  method("NSView", "drawRect:", [](const HostObject&, const Arguments&) { return true; });

  method("NSTextField", "isEditable", [](const HostObject&, const Arguments&) { return true; });
  method("NSTextField", "stringValue",
         [this](const HostObject& self, const Arguments&) { return view(self)->text; });
  action("NSTextField", "setStringValue:", [this](const HostObject& self, const Arguments& arguments) {
    view(self)->text = firstOf(arguments).text();
  });

  method("NSWindow", "windowController", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostWindow>(self);
    return window ? window->controller : HostObject();
  });
  method("NSWindow", "contentView", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostWindow>(self);
    return window ? window->contentView : HostObject();
  });
  method("NSWindow", "toolbar", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostWindow>(self);
    return window ? window->toolbar : HostObject();
  });
  method("NSWindow", "isVisible", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostWindow>(self);
    return window && window->isVisible;
  });
  action("NSWindow", "close", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostWindow>(self);
    if (!window || !window->isVisible) return;
    window->isVisible = false;
    center.post(kWindowWillClose, reinterpret_cast<const void*>(self.address()),
                Value::dictionaryFromPairs({{"object", self}}));
    if (const auto editor = editorOf(self)) retireEditor(editor);
  });

  // The plug-in exchanges initWithFrame: and drawRect: of these classes one by one, so each that is listed with a
  // method has one of its own: exchanging an inherited one would change all views.
  runtime.defineClass("OLAttachmentsAcceptingView", "NSView");
  runtime.defineClass("OLCalendarHeaderContainerView", "OLAttachmentsAcceptingView");
  runtime.defineClass("OLAutoLayoutView", "NSView");
  runtime.defineClass("OLAutoLayoutAttachmentsAcceptingView", "OLAutoLayoutView");
  for (const char* name : {"OUIRibbonView", "OUIRibbonChunkView", "OUIRibbonChunkContainerView"}) {
    runtime.defineClass(name, "NSView");
  }
  method("OLAttachmentsAcceptingView", "initWithFrame:", initWithFrame);
  method("OLAutoLayoutAttachmentsAcceptingView", "initWithFrame:", initWithFrame);
  for (const char* name : {"OLCalendarHeaderContainerView", "OLAutoLayoutView",
                           "OLAutoLayoutAttachmentsAcceptingView", "OUIRibbonChunkContainerView"}) {
    method(name, "drawRect:", [](const HostObject&, const Arguments&) { return true; });
  }
  method("OLCalendarHeaderContainerView", "managedSubviewsData",
         [this](const HostObject& self, const Arguments&) { return send(self, "subviews"); });
}

}  // namespace vornlab
