#include "host/surface/MainWindowToolbar.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"

namespace vorn {

namespace {

// The platform's own items.
constexpr std::string_view kFlexibleSpace = "NSToolbarFlexibleSpaceItem";
constexpr std::string_view kSeparator = "NSToolbarSeparatorItem";

std::vector<std::string> identifiersOf(const HostObject& toolbar, std::string_view list) {
  const Value items = askHost(toolbar, list);
  std::vector<std::string> identifiers;
  for (const Value& item : items.items()) identifiers.push_back(askHost(item.object(), "itemIdentifier").text());
  return identifiers;
}

void insert(const HostObject& toolbar, std::string_view identifier, std::size_t index) {
  askHost(toolbar, "insertItemWithItemIdentifier:atIndex:", {identifier, static_cast<std::int64_t>(index)});
}

}  // namespace

void addUIToMainWindow(std::string_view toolbarIdentifier) {
  const Value windows = askHost(hostApplication(), "windows");
  for (const Value& window : windows.items()) {
    const HostObject controller = askHost(window.object(), "windowController").object();
    if (!isKindOfHostClass(controller, "ERageMainWindowController")) continue;
    addVornButtonToToolbar(askHost(controller, "window").object(), toolbarIdentifier);
  }
}

void addVornButtonToToolbar(const HostObject& window, std::string_view toobarIdentifier) {
  const HostObject toolbar = askHost(window, "toolbar").object();
  if (!booleanFromHost(askHost(toolbar, "isVisible"))) return;
  const std::vector<std::string> visible = identifiersOf(toolbar, "visibleItems");
  if (std::find(visible.begin(), visible.end(), toobarIdentifier) != visible.end()) return;

  const std::vector<std::string> items = identifiersOf(toolbar, "items");
  const auto space = std::find(items.rbegin(), items.rend(), kFlexibleSpace);
  const std::size_t index = space == items.rend() ? 0 : static_cast<std::size_t>(items.rend() - space) - 1;
  insert(toolbar, toobarIdentifier, index);
  // A host that refuses our item must not be left with a separator that keeps nothing apart.
  const std::vector<std::string> now = identifiersOf(toolbar, "items");
  if (std::find(now.begin(), now.end(), toobarIdentifier) == now.end()) return;
  // Behind a separator, another one keeps the item apart from what stands before it.
  if (index != 0 && items[index - 1] == kSeparator) insert(toolbar, kSeparator, index);
}

}  // namespace vorn
