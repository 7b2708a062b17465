#include "host/surface/classSwizzle.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

using Lookup = MethodRef (ClassRuntime::*)(ClassRef, std::string_view);

bool exchange(Lookup lookup, ClassRef target, std::string_view origSEL, std::string_view altSEL) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  if (!runtime || !target) return false;
  const MethodRef host = (runtime->*lookup)(target, origSEL);
  const MethodRef added = (runtime->*lookup)(target, altSEL);
  if (!host || !added) return false;
  runtime->method_exchangeImplementations(host, added);
  return true;
}

}  // namespace

bool classSwizzle::method_ClassSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL) {
  return exchange(&ClassRuntime::class_getClassMethod, target, origSEL, altSEL);
}

bool classSwizzle::method_InstanceSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL) {
  return exchange(&ClassRuntime::class_getInstanceMethod, target, origSEL, altSEL);
}

}  // namespace vorn
