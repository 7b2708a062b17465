// The application and its main window with the toolbar.

#include <algorithm>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

void HostWorld::defineMainWindow() {
  application = runtime.create("NSApplication");
  runtime.setClassMethod("NSApplication", "sharedApplication",
                         [this](const HostObject&, const Arguments&) { return Value(application); });
  method("NSApplication", "isActive", [](const HostObject&, const Arguments&) { return true; });
  method("NSApplication", "windows", [this](const HostObject&, const Arguments&) {
    Value list = Value::array();
    if (runtime.isAlive(mainWindowController)) list.append(send(mainWindowController, "window"));
    for (const auto& [id, editor] : editors) list.append(editor->window);
    return list;
  });
  runtime.defineClass("NSEvent", "NSObject");
  method("NSEvent", "window", [this](const HostObject&, const Arguments&) {
    return editorOfCurrentEvent ? editorOfCurrentEvent->window : HostObject();
  });
  method("NSApplication", "currentEvent", [this](const HostObject&, const Arguments&) {
    return editorOfCurrentEvent ? runtime.createTemporary("NSEvent") : HostObject();
  });
  method("NSApplication", "delegate", [this](const HostObject&, const Arguments&) { return appDelegate; });

  runtime.defineClass("ErageAppDelegate", "NSObject");
  appDelegate = runtime.create("ErageAppDelegate");
  action("ErageAppDelegate", "newCalendarMeeting:", [this](const HostObject&, const Arguments&) {
    send(classNamed("ERCalendarEventEditorWindowController"), "showWindowForNewMeeting");
  });

  runtime.defineClass("ERageMainWindowController", "NSWindowController");
  method("NSWindowController", "window", [this](const HostObject& self, const Arguments&) {
    const auto window = runtime.state<HostObject>(self);
    return window ? *window : HostObject();
  });
  for (const char* selector : {"windowDidBecomeMain:", "windowWillClose:", "loadMailPane", "loadCalendarPane"}) {
    action("ERageMainWindowController", selector, [](const HostObject&, const Arguments&) {});
  }
}

void HostWorld::defineToolbar() {
  runtime.defineClass("NSToolbar", "NSObject");
  method("NSToolbarItem", "initWithItemIdentifier:", [this](const HostObject& self, const Arguments& arguments) {
    properties(self).set("itemIdentifier", firstOf(arguments));
    return self;
  });
  method("NSToolbarItem", "itemIdentifier",
         [this](const HostObject& self, const Arguments&) { return properties(self)["itemIdentifier"]; });
  action("NSToolbarItem", "validate", [](const HostObject&, const Arguments&) {});
  // What the toolbar does with an item without a view that is clicked.
  action("NSToolbarItem", "mouseDown:", [this](const HostObject& self, const Arguments&) {
    send(send(self, "target").object(), send(self, "action").text(), {self});
  });

  // The host knows the items that it was set up with and makes no other.
  const auto identifiers = [this](const HostObject&, const Arguments&) {
    Value list = Value::array();
    for (const std::string& identifier : options.toolbar) list.append(identifier);
    return list;
  };
  method("ERageMainWindowController", "toolbarDefaultItemIdentifiers:", identifiers);
  method("ERageMainWindowController", "toolbarAllowedItemIdentifiers:", identifiers);
  method("ERageMainWindowController", "toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:",
         [this](const HostObject&, const Arguments& arguments) {
           const std::string identifier = argumentAt(arguments, 1).text();
           const bool isKnown =
               std::find(options.toolbar.begin(), options.toolbar.end(), identifier) != options.toolbar.end() ||
               identifier.starts_with("NSToolbar");
           if (!isKnown) return HostObject();
           return runtime.instantiate(runtime.NSClassFromString("NSToolbarItem"),
                                      "initWithItemIdentifier:", {identifier});
         });

  const auto items = [this](const HostObject& self, const Arguments&) {
    Value list = Value::array();
    if (const auto toolbar = runtime.state<HostToolbar>(self)) {
      for (const HostObject& item : toolbar->items) list.append(item);
    }
    return list;
  };
  method("NSToolbar", "items", items);
  method("NSToolbar", "visibleItems", items);
  method("NSToolbar", "isVisible", [](const HostObject&, const Arguments&) { return true; });
  // As on the platform, the delegate makes the item, and one that it does not make does not come in.
  action("NSToolbar",
         "insertItemWithItemIdentifier:atIndex:", [this](const HostObject& self, const Arguments& arguments) {
           const auto toolbar = runtime.state<HostToolbar>(self);
           const std::int64_t index = argumentAt(arguments, 1).integerValue();
           if (!toolbar || index < 0 || static_cast<std::size_t>(index) > toolbar->items.size()) return;
           const HostObject item =
               send(toolbar->delegate,
                    "toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:", {self, firstOf(arguments), true})
                   .object();
           if (!item) return;
           toolbar->items.insert(toolbar->items.begin() + index, runtime.retained(item));
           send(item, "setToolbar:", {self});
         });
}

HostWorld::Control HostWorld::toolbarControl(const ControlName& name) const {
  const HostObject window = send(mainWindowController, "window").object();
  const Value items = send(send(window, "toolbar").object(), "items");
  for (const Value& item : items.items()) {
    send(item.object(), "validate");
    const HostObject view = send(item.object(), "view").object();
    if (const Control found = controlAt(view ? view : item.object(), name); found.view) return found;
  }
  return {};
}

void HostWorld::defineRibbon() {
  const auto viewOf = [this](const HostObject& self) { return view(self); };
  constexpr HostMethodOn<HostView> ofChunk[] = {
      {"title", [](const HostCall&, HostView& view) { return Value(view.text); }},
      {"attributedTitle", [](const HostCall& call, HostView& view) {
         const auto text = std::make_shared<std::string>(view.text);
         return Value(call.world.runtime.createTemporary("NSAttributedString", text));
       }}};
  runtime.defineClass("NSAttributedString", "NSObject");
  method("NSAttributedString", "string", [this](const HostObject& self, const Arguments&) {
    const auto text = runtime.state<std::string>(self);
    return text ? Value(*text) : Value();
  });
  defineOn("OUIRibbonChunkView", ofChunk, viewOf);
  method("OUIRibbonView", "activeTabIndex",
         [this](const HostObject&, const Arguments&) { return static_cast<std::int64_t>(ribbon.tab); });
}

void HostWorld::buildRibbon() {
  const HostObject contentView = send(send(mainWindowController, "window").object(), "contentView").object();
  if (!contentView) return;
  send(ribbon.view, "removeFromSuperview");
  destroyViews(ribbon.view);
  ribbon.view = makeView("OUIRibbonView", rectangle(0, 700, 1200, 100));
  ribbon.container = makeView("OUIRibbonChunkContainerView", rectangle(0, 0, 1200, 80));
  send(ribbon.view, "addSubview:", {ribbon.container});
  send(contentView, "addSubview:", {ribbon.view});
}

void HostWorld::showRibbonTab(std::uint32_t tab) {
  ribbon.tab = tab;
  if (!ribbon.container) return;
  // The host takes out what it has put in, and nothing else.
  const Value before = send(ribbon.container, "subviews");
  for (const Value& chunk : before.items()) {
    if (runtime.className(chunk.object()) != "OUIRibbonChunkView") continue;
    send(chunk.object(), "removeFromSuperview");
    destroyViews(chunk.object());
  }
  double x = 0;
  for (const char* title : ribbonChunks(tab)) {
    constexpr double width = 120;
    const HostObject chunk = makeView("OUIRibbonChunkView", rectangle(x, 0, width, 80));
    view(chunk)->text = title;
    send(ribbon.container, "addSubview:", {chunk});
    x += width;
  }
  send(ribbon.container, "drawRect:", {rectangle(0, 0, 1200, 80)});
}

void HostWorld::fillMainWindow(HostWindow& window) {
  if (options.hasToolbar) fillToolbar(window);
  buildRibbon();
  grid.view = makeView("NSView", rectangle(0, 0, 1200, 700));
  send(window.contentView, "addSubview:", {grid.view});
  grid.controller = runtime.create("CCGridViewController");
  grid.wrapper = runtime.create("OLCalendarGridViewWrapper");
}

void HostWorld::fillToolbar(HostWindow& window) {
  const auto state = std::make_shared<HostToolbar>();
  state->delegate = window.controller;
  window.toolbar = runtime.create("NSToolbar", state);
  const Value identifiers = send(window.controller, "toolbarDefaultItemIdentifiers:", {window.toolbar});
  for (const Value& identifier : identifiers.items()) {
    send(window.toolbar,
         "insertItemWithItemIdentifier:atIndex:", {identifier, static_cast<std::int64_t>(state->items.size())});
  }
}

void HostWorld::emptyMainWindow() {
  const HostObject window = send(mainWindowController, "window").object();
  const HostObject toolbar = send(window, "toolbar").object();
  if (const auto held = runtime.state<HostToolbar>(toolbar)) {
    for (const HostObject& item : held->items) send(item, "setToolbar:", {Value()});
  }
  runtime.destroy(toolbar);
  ribbon = {};
  runtime.destroy(grid.wrapper);
  runtime.destroy(grid.controller);
  grid = {};
}

}  // namespace vornlab
