#include "host/surface/classSwizzle.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

classSwizzle::Outcome exchange(ClassRuntime& runtime, MethodRef host, MethodRef added) {
  if (!host) return classSwizzle::Outcome::noHostMethod;
  if (!added) return classSwizzle::Outcome::noAddedMethod;
  runtime.method_exchangeImplementations(host, added);
  return classSwizzle::Outcome::exchanged;
}

}  // namespace

bool classSwizzle::method_ClassSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL) {
  return exchangeClassMethod(target, origSEL, altSEL) == Outcome::exchanged;
}

bool classSwizzle::method_InstanceSwizzle(ClassRef target, std::string_view origSEL, std::string_view altSEL) {
  return exchangeInstanceMethod(target, origSEL, altSEL) == Outcome::exchanged;
}

classSwizzle::Outcome classSwizzle::exchangeClassMethod(ClassRef target, std::string_view origSEL,
                                                        std::string_view altSEL) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  if (!runtime || !target) return Outcome::noClass;
  return exchange(*runtime, runtime->class_getClassMethod(target, origSEL),
                  runtime->class_getClassMethod(target, altSEL));
}

classSwizzle::Outcome classSwizzle::exchangeInstanceMethod(ClassRef target, std::string_view origSEL,
                                                           std::string_view altSEL) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  if (!runtime || !target) return Outcome::noClass;
  return exchange(*runtime, runtime->class_getInstanceMethod(target, origSEL),
                  runtime->class_getInstanceMethod(target, altSEL));
}

}  // namespace vorn
