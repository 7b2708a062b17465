#include "platform/Registry.h"

#include <unordered_map>
#include <vector>

namespace vorn {

namespace {

struct SharedInstances {
  Platform platform;
  std::unordered_map<std::type_index, void*> byType;
  std::vector<std::shared_ptr<void>> inOrder;
};

SharedInstances& instances() {
  static SharedInstances all;
  return all;
}

}  // namespace

void Registry::install(const Platform& platform) { instances().platform = platform; }

void Registry::reset() {
  SharedInstances& all = instances();
  // An instance's end may reach another one that is older, which is then still there.
  while (!all.inOrder.empty()) {
    const std::shared_ptr<void> youngest = std::move(all.inOrder.back());
    all.inOrder.pop_back();
    for (auto entry = all.byType.begin(); entry != all.byType.end();) {
      entry = entry->second == youngest.get() ? all.byType.erase(entry) : std::next(entry);
    }
  }
  all.platform = Platform{};
}

const Platform& Registry::platform() { return instances().platform; }

void* Registry::find(std::type_index type) {
  const auto found = instances().byType.find(type);
  return found == instances().byType.end() ? nullptr : found->second;
}

void Registry::keep(std::type_index type, std::shared_ptr<void> instance, void* address) {
  instances().byType[type] = address;
  instances().inOrder.push_back(std::move(instance));
}

}  // namespace vorn
