#include "host/surface/HostMenu.h"

#include <map>

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/OwnClass.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"

namespace vorn {

namespace {

// Images that were read, which buttons change between.
struct KnownImages {
  std::map<std::string, HostObject, std::less<>> byName;
};

}  // namespace

HostObject createMenuItemForMenu(const HostObject& menu, const MenuEntry& entry, const HostObject& target) {
  const HostObject item =
      makeInHost("NSMenuItem", "initWithTitle:action:keyEquivalent:", {entry.title, entry.action, ""});
  askHost(item, "setTarget:", {target});
  askHost(item, "setTag:", {entry.tag});
  askHost(item, "setEnabled:", {true});
  askHost(menu, "addItem:", {item});
  return item;
}

HostObject makeMenu(std::string_view title, std::span<const MenuEntry> entries, const HostObject& target) {
  const HostObject menu = makeInHost("NSMenu", "initWithTitle:", {title});
  // Otherwise the toolkit would look for each item's target in the window's chain and disable it.
  askHost(menu, "setAutoenablesItems:", {false});
  for (const MenuEntry& entry : entries) createMenuItemForMenu(menu, entry, target);
  return menu;
}

void popUp(const HostObject& menu, const HostObject& view) {
  ClassRuntime& runtime = *Registry::platform().classRuntime;
  const HostObject menus = runtime.classObject(runtime.NSClassFromString("NSMenu"));
  const HostObject event = askHost(hostApplication(), "currentEvent").object();
  if (menu) askHost(menus, "popUpContextMenu:withEvent:forView:", {menu, event, view});
}

HostObject imageNamed(std::string_view name) {
  auto& known = Registry::shared<KnownImages>().byName;
  if (const auto found = known.find(name); found != known.end()) return found->second;
  const std::string path = Registry::platform().surroundings->resourcePath(name, "png");
  const HostObject image = makeInHost("NSImage", "initWithContentsOfFile:", {path});
  if (!image) return {};
  askHost(image, "setName:", {name});
  known.emplace(name, image);
  return image;
}

}  // namespace vorn
