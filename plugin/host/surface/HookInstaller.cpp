#include "host/surface/HookInstaller.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "host/surface/classSwizzle.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

// What the host's runtime holds of an installed row. It outlives this system's shared instances.
struct Entry {
  const HookRow& row;
  ClassRuntime& runtime;
  std::string addedSelector;
  bool stands = false;

  Value run(const HostObject& receiver, const Arguments& arguments) const {
    // Without the exchange only the added selector leads here, from somebody who wants the host's method. There is
    // none; running our function would send the same selector again, without end.
    if (!stands) return {};
    HookCall call(runtime, addedSelector, receiver, arguments);
    // Between the end of this system and the end of the host, the host goes on alone.
    if (!Registry::platform().classRuntime) return call.forward();
    try {
      return row.function(call);
    } catch (const HostRaised&) {
      throw;
    } catch (...) {
      // The host must neither see our exceptions nor lose a call or its result to them: it works as if we were not
      // there.
      return call.hostResult() ? *call.hostResult() : call.forward();
    }
  }
};

// The row's entry in the class. The first start makes it and adds its method. As the hooks outlast the end of this
// system, a later start in the same host finds it there, and must not exchange what stands: that would undo it.
std::shared_ptr<Entry> entryIn(ClassRuntime& runtime, ClassRef target, const HookRow& row) {
  // An entry ends only with its runtime.
  static std::map<std::pair<const HookRow*, std::uintptr_t>, std::weak_ptr<Entry>> entries;
  std::weak_ptr<Entry>& known = entries[{&row, target.id}];
  if (auto standing = known.lock()) return standing;
  const auto entry = std::make_shared<Entry>(Entry{row, runtime, row.addedSelector()});
  known = entry;
  const auto implementation = [entry](const HostObject& receiver, const Arguments& arguments) {
    return entry->run(receiver, arguments);
  };
  // An added selector that the class has already is exchanged all the same.
  runtime.class_addMethod(target, entry->addedSelector, implementation, row.encoding, row.characters);
  return entry;
}

}  // namespace

std::string_view nameOfHookStanding(HookStanding standing) {
  switch (standing) {
    case HookStanding::stands: return "stands";
    case HookStanding::noClass: return "no class";
    case HookStanding::unsupportedHost: return "unsupported host";
    case HookStanding::noHostMethod: return "no host method";
    case HookStanding::unusableTypes: return "unusable types";
    case HookStanding::noAddedMethod: return "no added method";
  }
  return "";
}

HookInstaller& HookInstaller::sharedInstance() { return Registry::shared<HookInstaller>(); }

void HookInstaller::load() {
  if (m_loaded) return;
  m_loaded = true;
  for (const HookClass& hookClass : hookTable()) loadClass(hookClass);
}

void HookInstaller::loadClass(const HookClass& hookClass) {
  const bool wanted = !hookClass.prepare || hookClass.prepare();
  for (const HookRow& row : hookClass.rows) {
    m_states.push_back(wanted ? install(row) : HookState{&row, HookStanding::unsupportedHost, {}});
  }
  if (wanted && hookClass.finish) hookClass.finish();
}

HookState HookInstaller::install(const HookRow& row) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  const ClassRef hostClass = runtime ? runtime->NSClassFromString(row.hostClass) : ClassRef();
  if (!hostClass) return {&row, HookStanding::noClass, {}};
  const bool ofTheClass = row.method == HookMethod::ofTheClass;
  const ClassRef target = ofTheClass ? runtime->objc_getMetaClass(row.hostClass) : hostClass;

  const std::shared_ptr<Entry> entry = entryIn(*runtime, target, row);
  if (entry->stands) return {&row, HookStanding::stands, {}};
  entry->stands = ofTheClass
                      ? classSwizzle::method_ClassSwizzle(target, row.hostSelector, entry->addedSelector)
                      : classSwizzle::method_InstanceSwizzle(target, row.hostSelector, entry->addedSelector);
  if (entry->stands) return {&row, HookStanding::stands, {}};
  const std::string types = runtime->unusableTypes(target, row.hostSelector);
  if (!types.empty()) return {&row, HookStanding::unusableTypes, types};
  const MethodRef hostMethod = ofTheClass ? runtime->class_getClassMethod(target, row.hostSelector)
                                          : runtime->class_getInstanceMethod(target, row.hostSelector);
  return {&row, hostMethod ? HookStanding::noAddedMethod : HookStanding::noHostMethod, {}};
}

}  // namespace vorn
