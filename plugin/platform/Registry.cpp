#include "platform/Registry.h"

#include "platform/ClassRuntime.h"
#include "util/HostObjectQuestions.h"

#include <unordered_map>
#include <vector>

namespace vorn {

namespace {

class QuestionsToTheRuntime final : public HostObjectQuestions {
 public:
  std::string classNameOf(const HostObject& object) const override { return runtime().className(object); }
  bool isKindOfClass(const HostObject& object, std::string_view className) const override {
    const ClassRef wanted = runtime().NSClassFromString(className);
    return wanted && runtime().isKindOf(object, wanted);
  }
  Value subviewsOf(const HostObject& view) const override { return runtime().send(view, "subviews"); }

 private:
  static ClassRuntime& runtime() { return *Registry::platform().classRuntime; }
};

const QuestionsToTheRuntime questionsToTheRuntime;

struct SharedInstances {
  Platform platform;
  std::unordered_map<std::type_index, void*> byType;
  std::vector<std::shared_ptr<void>> inOrder;

  // A process that just exits has taken its host's runtime apart by now, so nothing here may reach it any more.
  ~SharedInstances() {
    setHostObjectQuestions(nullptr);
    platform = Platform{};
    while (!inOrder.empty()) inOrder.pop_back();
  }
};

SharedInstances& instances() {
  static SharedInstances all;
  return all;
}

}  // namespace

void Registry::install(const Platform& platform) {
  instances().platform = platform;
  setHostObjectQuestions(platform.classRuntime ? &questionsToTheRuntime : nullptr);
}

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
  setHostObjectQuestions(nullptr);
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
