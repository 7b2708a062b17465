#include "platform/apple/AppleClassRuntime.h"

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <unordered_map>
#include <vector>

#include "platform/apple/Conversions.h"
#include "platform/apple/MethodSignature.h"
#include "platform/apple/Replacement.h"

namespace vorn {

namespace {

using Holding = LiveObjects::Holding;

class Pool {
 public:
  Pool() : pool_([[NSAutoreleasePool alloc] init]) {}
  ~Pool() { [pool_ drain]; }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

 private:
  NSAutoreleasePool* pool_;
};

class Hold {
 public:
  explicit Hold(id object) : object_([object retain]) {}
  ~Hold() { [object_ release]; }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  id object_;
};

Class classFrom(ClassRef reference) { return reinterpret_cast<Class>(reference.id); }

ClassRef referenceTo(Class target) { return ClassRef{reinterpret_cast<std::uintptr_t>(target)}; }

// Null for an empty name.
SEL selectorNamed(std::string_view name) {
  return name.empty() ? nullptr : sel_registerName(std::string(name).c_str());
}

id liveObject(const HostObject& reference) { return LiveObjects::instance().object(reference); }

// Memory for one native value, zero and aligned for all of them.
class NativeValue {
 public:
  explicit NativeValue(std::size_t size) : words_(size / sizeof(std::max_align_t) + 1) {}
  void* memory() { return words_.data(); }

 private:
  std::vector<std::max_align_t> words_;
};

void writeArgument(const MethodSignature& signature, std::size_t index, const Arguments& arguments,
                   const Replacement::Call* forwarded, void* memory) {
  if (index >= arguments.size()) return;
  const bool isPassedOn =
      forwarded && index < forwarded->native.size() && arguments[index] == forwarded->arguments[index];
  if (isPassedOn) {
    std::memcpy(memory, forwarded->native[index], signature.argumentSize(index));
  } else {
    signature.argument(index).write(arguments[index], memory);
  }
}

// Runs the method; an object that it answers is retained for the caller, any other result is already the value.
Value callNative(id object, Method method, MethodSignature& signature, const Replacement::Call* forwarded,
                 const Arguments& arguments, id& retained) {
  const Pool pool;
  SEL selector = method_getName(method);
  std::vector<NativeValue> values;
  std::vector<void*> native = {&object, &selector};
  for (std::size_t i = 0; i < signature.argumentCount(); ++i) {
    values.emplace_back(signature.argumentSize(i));
    native.push_back(values.back().memory());
    writeArgument(signature, i, arguments, forwarded, native.back());
  }
  NativeValue result(signature.resultSize());
  ffi_call(&signature.call(), FFI_FN(method_getImplementation(method)), result.memory(), native.data());
  if (!signature.result().isObject()) return signature.result().readResult(result.memory(), Holding::never);
  std::memcpy(&retained, result.memory(), sizeof retained);
  [retained retain];
  return {};
}

Value call(id object, Method method, MethodSignature& signature, Replacement::Call* forwarded,
           const Arguments& arguments) {
  id retained = nil;
  const Value plain = callNative(object, method, signature, forwarded, arguments, retained);
  if (!retained) return plain;
  // What the host made on the way has ended with the pool; what is left without an owner now was a temporary.
  const Hold held(retained);
  [retained release];
  const Value answer = valueFromObject(retained, Holding::whenUnowned);
  if (forwarded) {
    [forwarded->forwardedResult release];
    forwarded->forwardedResult = [retained retain];
    forwarded->forwardedValue = answer;
  }
  return answer;
}

}  // namespace

struct AppleClassRuntime::Tables {
  // A method as one class has it.
  struct Place {
    Class target;
    SEL selector;
  };

  std::map<std::pair<Class, std::string>, Place> places;
  std::unordered_map<Method, Replacement*> replacements;
  // Null for a method that cannot be called with values.
  std::unordered_map<Method, std::shared_ptr<MethodSignature>> signatures;

  const std::shared_ptr<MethodSignature>& signatureOf(Method method) {
    const auto [entry, isNew] = signatures.try_emplace(method);
    if (isNew) entry->second = MethodSignature::fromEncoding(method_getTypeEncoding(method));
    return entry->second;
  }

  // The class's own method at the place; one that it inherits is copied into it.
  Method ownMethod(const Place& place) {
    const Method found = ::class_getInstanceMethod(place.target, place.selector);
    const Method inherited = ::class_getInstanceMethod(class_getSuperclass(place.target), place.selector);
    if (found != inherited) return found;
    ::class_addMethod(place.target, place.selector, method_getImplementation(found),
                      method_getTypeEncoding(found));
    const Method own = ::class_getInstanceMethod(place.target, place.selector);
    signatures[own] = signatureOf(found);
    return own;
  }

  // Makes a replacement ready to be called under the selector of the host's method.
  void join(Method added, Method host, SEL addedSelector, SEL hostSelector) {
    const auto found = replacements.find(added);
    if (found == replacements.end() || replacements.contains(host)) return;
    const std::shared_ptr<MethodSignature> signature = signatureOf(host);
    signatures[added] = signature;
    found->second->setSignature(signature);
    found->second->setSelectors(hostSelector, addedSelector);
  }
};

AppleClassRuntime::AppleClassRuntime() : tables_(std::make_shared<Tables>()) {}

AppleClassRuntime::~AppleClassRuntime() = default;

ClassRef AppleClassRuntime::NSClassFromString(std::string_view name) {
  return referenceTo(objc_lookUpClass(std::string(name).c_str()));
}

ClassRef AppleClassRuntime::objc_getMetaClass(std::string_view name) {
  const Class found = classFrom(NSClassFromString(name));
  return found ? referenceTo(object_getClass(static_cast<id>(found))) : ClassRef();
}

bool AppleClassRuntime::class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                                        std::string_view encoding) {
  const SEL named = selectorNamed(selector);
  if (!target || !named || !implementation) return false;
  const std::string types(encoding);
  std::shared_ptr<MethodSignature> signature = MethodSignature::fromEncoding(types.c_str());
  // The types that it is added with do not count once it is exchanged, so they need not be ones that we know.
  if (!signature) signature = MethodSignature::fromEncoding("@@:");
  std::unique_ptr<Replacement> made = Replacement::make(std::move(implementation), std::move(signature));
  if (!made || !::class_addMethod(classFrom(target), named, made->code(), types.c_str())) return false;
  // The host's class refers to it as long as the process lives.
  tables_->replacements[::class_getInstanceMethod(classFrom(target), named)] = made.release();
  return true;
}

MethodRef AppleClassRuntime::class_getInstanceMethod(ClassRef target, std::string_view selector) {
  const SEL named = selectorNamed(selector);
  if (!target || !named) return {};
  const Method found = ::class_getInstanceMethod(classFrom(target), named);
  if (!found || !tables_->signatureOf(found)) return {};
  const auto entry = tables_->places.try_emplace({classFrom(target), std::string(selector)},
                                                 Tables::Place{classFrom(target), named});
  return MethodRef{reinterpret_cast<std::uintptr_t>(&entry.first->second)};
}

MethodRef AppleClassRuntime::class_getClassMethod(ClassRef target, std::string_view selector) {
  if (!target) return {};
  const Class held = classFrom(target);
  return class_getInstanceMethod(
      class_isMetaClass(held) ? target : referenceTo(object_getClass(static_cast<id>(held))), selector);
}

void AppleClassRuntime::method_exchangeImplementations(MethodRef first, MethodRef second) {
  if (!first || !second) return;
  const auto& a = *reinterpret_cast<const Tables::Place*>(first.id);
  const auto& b = *reinterpret_cast<const Tables::Place*>(second.id);
  const Method ownA = tables_->ownMethod(a);
  const Method ownB = tables_->ownMethod(b);
  tables_->join(ownA, ownB, a.selector, b.selector);
  tables_->join(ownB, ownA, b.selector, a.selector);
  ::method_exchangeImplementations(ownA, ownB);
}

HostObject AppleClassRuntime::classObject(ClassRef target) {
  return LiveObjects::instance().reference(static_cast<id>(classFrom(target)), Holding::never);
}

Value AppleClassRuntime::send(const HostObject& receiver, std::string_view selector, const Arguments& arguments) {
  const id object = liveObject(receiver);
  const SEL named = selectorNamed(selector);
  if (!object || !named) return {};
  const Hold receiverHeld(object);
  const Method method = ::class_getInstanceMethod(object_getClass(object), named);
  if (!method) return {};
  const std::shared_ptr<MethodSignature> signature = tables_->signatureOf(method);
  if (!signature) return {};

  try {
    return call(object, method, *signature, Replacement::forwardedBy(object, named), arguments);
  } catch (...) {
    // A host method that raises must not take the process along; its result is simply not there.
    return {};
  }
}

bool AppleClassRuntime::respondsTo(const HostObject& receiver, std::string_view selector) {
  const id object = liveObject(receiver);
  const SEL named = selectorNamed(selector);
  return object && named && [object respondsToSelector:named];
}

bool AppleClassRuntime::isKindOf(const HostObject& receiver, ClassRef target) {
  const id object = liveObject(receiver);
  return object && target && [object isKindOfClass:classFrom(target)];
}

std::string AppleClassRuntime::className(const HostObject& receiver) {
  const id object = liveObject(receiver);
  return object ? class_getName([object class]) : "";
}

}  // namespace vorn
