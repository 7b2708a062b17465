#include "host/surface/HostMenu.h"

#include <map>

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/OwnClass.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"

namespace vorn {

namespace {

// Images that were looked for, which buttons change between; absent for one that cannot be read.
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
  for (const MenuEntry& entry : entries) createMenuItemForMenu(menu, entry, target);
  return menu;
}

void popUp(const HostObject& menu, const HostObject& view) {
  if (!menu || !view) return;
  // The lower left corner, in the view's own measure.
  const bool isFlipped = booleanFromHost(askHost(view, "isFlipped"));
  const Value below = Value::dictionaryFromPairs({{"x", 0.0}, {"y", isFlipped ? frameOf(view).height : 0.0}});
  askHost(menu, "popUpMenuPositioningItem:atLocation:inView:", {Value(), below, view});
}

void forgetTarget(const HostObject& menu) {
  const Value items = askHost(menu, "itemArray");
  for (const Value& item : items.items()) askHost(item.object(), "setTarget:", {Value()});
}

HostObject imageNamed(std::string_view name) {
  auto& known = Registry::shared<KnownImages>().byName;
  if (const auto found = known.find(name); found != known.end()) return found->second;
  const std::string path = Registry::platform().surroundings->resourcePath(name, "png");
  const HostObject image = makeInHost("NSImage", "initWithContentsOfFile:", {path});
  askHost(image, "setName:", {name});
  return known.emplace(name, image).first->second;
}

}  // namespace vorn
