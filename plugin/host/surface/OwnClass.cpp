#include "host/surface/OwnClass.h"

#include "platform/Registry.h"

namespace vorn {

ClassRef ownClass(std::string_view name, std::string_view superclass, std::span<const OwnMethod> methods) {
  ClassRuntime& runtime = *Registry::platform().classRuntime;
  const ClassRef known = runtime.defineClass(name, superclass);
  for (const OwnMethod& method : methods) {
    const auto guarded = [run = method.run](const HostObject& receiver, const Arguments& arguments) {
      // What the host keeps of ours may still be clicked when this system has ended.
      if (!Registry::platform().classRuntime) return Value();
      try {
        return run(receiver, arguments);
      } catch (...) {
        return Value();
      }
    };
    runtime.class_addMethod(known, method.selector, guarded, method.encoding);
  }
  return known;
}

HostObject makeInHost(ClassRef target, std::string_view initialiser, const Arguments& arguments) {
  return Registry::platform().classRuntime->instantiate(target, initialiser, arguments);
}

HostObject makeInHost(std::string_view hostClass, std::string_view initialiser, const Arguments& arguments) {
  return makeInHost(Registry::platform().classRuntime->NSClassFromString(hostClass), initialiser, arguments);
}

}  // namespace vorn
