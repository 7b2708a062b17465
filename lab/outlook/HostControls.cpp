// The toolkit's buttons, menus and images, and a person's hand on them.

#include <filesystem>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

// What can be set at a control and read again.
struct Property {
  enum class Kind { copied, retained, notOwned };
  const char* className;
  const char* reader;
  const char* setter;
  Kind kind = Kind::copied;
};

constexpr Property kProperties[] = {
    {"NSView", "toolTip", "setToolTip:"},
    {"NSView", "menu", "setMenu:", Property::Kind::retained},
    {"NSButton", "title", "setTitle:"},
    {"NSButton", "image", "setImage:", Property::Kind::retained},
    {"NSButton", "imagePosition", "setImagePosition:"},
    {"NSButton", "isEnabled", "setEnabled:"},
    {"NSButton", "target", "setTarget:", Property::Kind::notOwned},
    {"NSButton", "action", "setAction:"},
    {"NSImage", "name", "setName:"},
    {"NSMenu", "title", "setTitle:"},
    {"NSMenuItem", "title", "setTitle:"},
    {"NSMenuItem", "isEnabled", "setEnabled:"},
    {"NSMenuItem", "tag", "setTag:"},
    {"NSMenuItem", "submenu", "setSubmenu:", Property::Kind::retained},
    {"NSMenuItem", "target", "setTarget:", Property::Kind::notOwned},
    {"NSMenuItem", "action", "setAction:"},
    {"NSImageView", "image", "setImage:", Property::Kind::retained},
    {"NSToolbarItem", "label", "setLabel:"},
    {"NSToolbarItem", "paletteLabel", "setPaletteLabel:"},
    {"NSToolbarItem", "toolTip", "setToolTip:"},
    {"NSToolbarItem", "image", "setImage:", Property::Kind::retained},
    {"NSToolbarItem", "view", "setView:", Property::Kind::retained},
    {"NSToolbarItem", "isEnabled", "setEnabled:"},
    {"NSToolbarItem", "minSize", "setMinSize:"},
    {"NSToolbarItem", "maxSize", "setMaxSize:"},
    {"NSToolbarItem", "menuFormRepresentation", "setMenuFormRepresentation:", Property::Kind::retained},
    {"NSToolbarItem", "toolbar", "setToolbar:", Property::Kind::notOwned},
    {"NSToolbarItem", "target", "setTarget:", Property::Kind::notOwned},
    {"NSToolbarItem", "action", "setAction:"},
};

bool isEnabled(const HostWorld& world, const HostObject& control) {
  const Value told = world.send(control, "isEnabled");
  return told.isAbsent() || told.boolValue();
}

bool isShown(const HostWorld& world, HostObject view) {
  for (; world.runtime.isAlive(view); view = world.send(view, "superview").object()) {
    if (world.send(view, "isHidden").boolValue()) return false;
  }
  return true;
}

// What the toolkit does with a control that is pressed, or with an item that is chosen.
void sendAction(const HostWorld& world, const HostObject& sender) {
  if (!isEnabled(world, sender)) return;
  world.send(world.send(sender, "target").object(), world.send(sender, "action").text(), {sender});
}

HostObject itemOf(const HostWorld& world, const HostObject& menu, const ControlName& name) {
  const Value items = world.send(menu, "itemArray");
  for (const Value& item : items.items()) {
    const bool isOfTag = !name.tag || world.send(item.object(), "tag").integerValue() == *name.tag;
    if (isOfTag && world.send(item.object(), "action").text() == name.action) return item.object();
  }
  return {};
}

}  // namespace

Value& HostWorld::properties(const HostObject& object) {
  if (runtime.isKindOf(object, runtime.NSClassFromString("NSView"))) return view(object)->properties;
  if (!runtime.state<HostThing>(object)) runtime.setState(object, std::make_shared<HostThing>());
  return runtime.state<HostThing>(object)->properties;
}

void HostWorld::defineControls() {
  for (const char* name : {"NSImage", "NSMenu", "NSMenuItem"}) runtime.defineClass(name, "NSObject");
  runtime.defineClass("NSToolbarItem", "NSObject");
  for (const char* name : {"NSButton", "NSImageView"}) runtime.defineClass(name, "NSView");
  method("NSObject", "init", [](const HostObject& self, const Arguments&) { return self; });
  for (const Property& property : kProperties) {
    const std::string name = property.reader;
    method(property.className, property.reader,
           [this, name](const HostObject& self, const Arguments&) { return properties(self)[name]; });
    action(property.className, property.setter,
           [this, name, kind = property.kind](const HostObject& self, const Arguments& arguments) {
             Value given = firstOf(arguments);
             if (kind == Property::Kind::retained) given = runtime.retained(given.object());
             if (kind == Property::Kind::notOwned) given = HostObject(given.object().address());
             properties(self).set(name, given);
           });
  }
  action("NSButton", "mouseDown:", [this](const HostObject& self, const Arguments&) { sendAction(*this, self); });
  method("NSImage",
         "initWithContentsOfFile:", [](const HostObject& self, const Arguments& arguments) -> HostObject {
           std::error_code unknown;
           return std::filesystem::is_regular_file(firstOf(arguments).text(), unknown) ? self : HostObject();
         });

  method("NSMenuItem",
         "initWithTitle:action:keyEquivalent:", [this](const HostObject& self, const Arguments& arguments) {
           properties(self).set("title", firstOf(arguments));
           properties(self).set("action", argumentAt(arguments, 1));
           return self;
         });
  method("NSMenu", "initWithTitle:", [this](const HostObject& self, const Arguments& arguments) {
    properties(self).set("title", firstOf(arguments));
    properties(self).set("itemArray", Value::array());
    return self;
  });
  action("NSMenu", "addItem:", [this](const HostObject& self, const Arguments& arguments) {
    Value items = properties(self)["itemArray"];
    items.append(runtime.retained(firstOf(arguments).object()));
    properties(self).set("itemArray", items);
  });
  method("NSMenu", "itemArray",
         [this](const HostObject& self, const Arguments&) { return properties(self)["itemArray"]; });
  // The menu stands until the person has chosen, which is at once here.
  action("NSMenu",
         "popUpMenuPositioningItem:atLocation:inView:", [this](const HostObject& self, const Arguments&) {
           const HostObject chosen = menuChoice ? itemOf(*this, self, *menuChoice) : HostObject();
           hasChosen = chosen && isEnabled(*this, chosen);
           if (hasChosen) sendAction(*this, chosen);
         });
}

HostWorld::Control HostWorld::controlNamed(const HostObject& root, const ControlName& name) const {
  const Value subviews = send(root, "subviews");
  for (const Value& entry : subviews.items()) {
    if (const Control found = controlAt(entry.object(), name); found.view) return found;
    if (const Control found = controlNamed(entry.object(), name); found.view) return found;
  }
  return {};
}

HostWorld::Control HostWorld::controlAt(const HostObject& view, const ControlName& name) const {
  if (const HostObject item = itemOf(*this, send(view, "menu").object(), name)) return {view, item};
  return send(view, "action").text() == name.action ? Control{view, {}} : Control();
}

bool HostWorld::press(const Control& control, const ControlName& name) {
  if (!look(control).isShown || !isEnabled(*this, control.view)) return false;
  if (!control.item) {
    send(control.view, "mouseDown:", {Value(nullptr)});
    return true;
  }
  menuChoice = name;
  hasChosen = false;
  send(control.view, "mouseDown:", {Value(nullptr)});
  menuChoice.reset();
  return hasChosen;
}

OutlookHost::Control HostWorld::look(const Control& control) const {
  OutlookHost::Control seen;
  if (!control.view) return seen;
  const HostObject named = control.item ? control.item : control.view;
  seen.exists = true;
  seen.isShown = isShown(*this, control.view);
  seen.isEnabled = isEnabled(*this, control.view) && isEnabled(*this, named);
  seen.title = send(named, "title").text();
  if (seen.title.empty()) seen.title = send(named, "label").text();
  seen.image = send(send(control.view, "image").object(), "name").text();
  seen.toolTip = send(control.view, "toolTip").text();
  const Value frame = send(control.view, "frame");
  seen.frame = {frame["x"].realValue(), frame["y"].realValue(), frame["width"].realValue(),
                frame["height"].realValue()};
  return seen;
}

}  // namespace vornlab
