// Views and windows.

#include <algorithm>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr std::string_view kWindowWillClose = "NSWindowWillCloseNotification";

Value initWithFrame(const HostCall& call, HostView& view) {
  view.frame = call.first();
  return call.self;
}

// Whatever is drawn is drawn.
Value draw(const HostCall&, HostView&) { return true; }

using ViewMethod = HostMethodOn<HostView>;

constexpr ViewMethod kOfView[] = {
    {"initWithFrame:", initWithFrame},
    {"frame", [](const HostCall&, HostView& view) { return view.frame; }},
    {"setFrame:",
     [](const HostCall& call, HostView& view) {
       view.frame = call.first();
       return Value();
     }},
    {"isHidden", [](const HostCall&, HostView& view) { return Value(view.isHidden); }},
    {"setHidden:",
     [](const HostCall& call, HostView& view) {
       view.isHidden = call.first().boolValue();
       return Value();
     }},
    {"superview", [](const HostCall&, HostView& view) { return Value(view.superview); }},
    {"window", [](const HostCall& call, HostView&) { return Value(call.world.windowOf(call.self)); }},
    {"subviews",
     [](const HostCall& call, HostView& view) {
       Value list = Value::array();
       for (const HostObject& below : view.subviews) {
         if (call.world.runtime.isAlive(below)) list.append(below);
       }
       return list;
     }},
    {"addSubview:",
     [](const HostCall& call, HostView&) {
       call.world.addSubview(call.self, call.first().object());
       return Value();
     }},
    {"removeFromSuperview",
     [](const HostCall& call, HostView&) {
       call.world.removeFromSuperview(call.self);
       return Value();
     }},
    {"drawRect:", draw},
};

constexpr ViewMethod kOfTextField[] = {
    {"isEditable", [](const HostCall&, HostView&) { return Value(true); }},
    {"stringValue", [](const HostCall&, HostView& view) { return Value(view.text); }},
    {"setStringValue:",
     [](const HostCall& call, HostView& view) {
       view.text = call.first().text();
       return Value();
     }},
};

constexpr ViewMethod kOwnInitialiser[] = {{"initWithFrame:", initWithFrame}};
constexpr ViewMethod kOwnDrawing[] = {{"drawRect:", draw}};

constexpr HostMethodOn<HostWindow> kOfWindow[] = {
    {"windowController", [](const HostCall&, HostWindow& window) { return Value(window.controller); }},
    {"contentView", [](const HostCall&, HostWindow& window) { return Value(window.contentView); }},
    {"toolbar", [](const HostCall&, HostWindow& window) { return Value(window.toolbar); }},
    {"isVisible", [](const HostCall&, HostWindow& window) { return Value(window.isVisible); }},
    {"close",
     [](const HostCall& call, HostWindow& window) {
       if (!window.isVisible) return Value();
       window.isVisible = false;
       call.world.center.post(kWindowWillClose, reinterpret_cast<const void*>(call.self.address()),
                              Value::dictionaryFromPairs({{"object", call.self}}));
       if (const auto editor = call.world.editorOf(call.self)) call.world.retireEditor(editor);
       return Value();
     }},
};

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
  // A view belongs to its superview, and to whoever else holds it, and never to what is below it.
  const HostObject held = runtime.retained(subview);
  removeFromSuperview(subview);
  view(subview)->superview = HostObject(superview.address());
  view(superview)->subviews.push_back(held);
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

  const auto viewOf = [this](const HostObject& self) { return view(self); };
  defineOn("NSView", kOfView, viewOf);
  defineOn("NSTextField", kOfTextField, viewOf);
  defineOn("NSWindow", kOfWindow, [this](const HostObject& self) { return runtime.state<HostWindow>(self); });

  // The plug-in exchanges initWithFrame: and drawRect: of these classes one by one, so each that is listed with a
  // method has one of its own: exchanging an inherited one would change all views.
  runtime.defineClass("OLAttachmentsAcceptingView", "NSView");
  runtime.defineClass("OLCalendarHeaderContainerView", "OLAttachmentsAcceptingView");
  runtime.defineClass("OLAutoLayoutView", "NSView");
  runtime.defineClass("OLAutoLayoutAttachmentsAcceptingView", "OLAutoLayoutView");
  for (const char* name : {"OUIRibbonView", "OUIRibbonChunkView", "OUIRibbonChunkContainerView"}) {
    runtime.defineClass(name, "NSView");
  }
  for (const char* name : {"OLAttachmentsAcceptingView", "OLAutoLayoutAttachmentsAcceptingView"}) {
    defineOn(name, kOwnInitialiser, viewOf);
  }
  for (const char* name : {"OLCalendarHeaderContainerView", "OLAutoLayoutView",
                           "OLAutoLayoutAttachmentsAcceptingView", "OUIRibbonChunkContainerView"}) {
    defineOn(name, kOwnDrawing, viewOf);
  }
  method("OLCalendarHeaderContainerView", "managedSubviewsData",
         [this](const HostObject& self, const Arguments&) { return send(self, "subviews"); });
}

}  // namespace vornlab
