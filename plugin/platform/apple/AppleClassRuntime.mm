#include "platform/apple/AppleClassRuntime.h"

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <map>
#include <unordered_map>
#include <vector>

#include "platform/apple/Conversions.h"
#include "platform/apple/HostExceptions.h"
#include "platform/apple/MethodSignature.h"
#include "platform/apple/Ownership.h"
#include "platform/apple/Replacement.h"

namespace vorn {

namespace {

using Holding = LiveObjects::Holding;

Class classFrom(ClassRef reference) { return reinterpret_cast<Class>(reference.id); }

ClassRef referenceTo(Class target) { return ClassRef{reinterpret_cast<std::uintptr_t>(target)}; }

// Null for an empty name. The names that this system sends are a few hundred, and the runtime takes a lock and a
// copy of the name each time that it is asked.
SEL selectorNamed(std::string_view name) {
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  static std::unordered_map<std::string, SEL, Hash, std::equal_to<>> selectors;
  if (name.empty()) return nullptr;
  const auto found = selectors.find(name);
  if (found != selectors.end()) return found->second;
  return selectors.emplace(name, sel_registerName(std::string(name).c_str())).first->second;
}

id liveObject(const HostObject& reference) { return LiveObjects::instance().object(reference); }

bool fitsSelector(const MethodSignature& signature, SEL selector) {
  const std::string_view name = sel_getName(selector);
  return signature.argumentCount() == static_cast<std::size_t>(std::count(name.begin(), name.end(), ':'));
}

// As if all arguments and the result were objects.
std::shared_ptr<MethodSignature> signatureOfObjects(std::string_view selector) {
  std::string types = "@@:";
  types.append(static_cast<std::size_t>(std::count(selector.begin(), selector.end(), ':')), '@');
  return MethodSignature::fromEncoding(types.c_str());
}

// Lets the heirs of a class find what was exchanged in it.
void refreshHeirs([[maybe_unused]] Class target) {
#ifdef GNUSTEP
  // This runtime tells of an exchange only to the class itself, while heirs that have been used keep what they
  // found. It looks through them again when a method is added.
  static unsigned count = 0;
  const std::string name = "vn_exchange" + std::to_string(++count);
  const IMP any = class_getMethodImplementation([NSObject class], @selector(self));
  ::class_addMethod(target, sel_registerName(name.c_str()), any, "@@:");
#endif
}

// Zero memory for the result and the arguments of one call, each aligned for every type, and where each of them
// is. A host calls its readers thousands of times for one screen, and few take more than the stack has room for
// here.
class NativeValues {
 public:
  NativeValues(const MethodSignature& signature, id& object, SEL& selector) {
    const std::size_t count = signature.argumentCount();
    std::size_t words = wordsFor(signature.resultSize());
    for (std::size_t i = 0; i < count; ++i) words += wordsFor(signature.argumentSize(i));
    if (words > m_fewWords.size()) m_manyWords.resize(words);
    m_words = m_manyWords.empty() ? m_fewWords.data() : m_manyWords.data();
    std::memset(m_words, 0, words * sizeof(std::max_align_t));
    if (count + kOwnArguments > m_fewArguments.size()) m_manyArguments.resize(count + kOwnArguments);
    m_arguments = m_manyArguments.empty() ? m_fewArguments.data() : m_manyArguments.data();
    m_arguments[0] = &object;
    m_arguments[1] = &selector;
    std::size_t next = wordsFor(signature.resultSize());
    for (std::size_t i = 0; i < count; ++i) {
      m_arguments[i + kOwnArguments] = m_words + next;
      next += wordsFor(signature.argumentSize(i));
    }
  }
  NativeValues(const NativeValues&) = delete;
  NativeValues& operator=(const NativeValues&) = delete;

  void* result() { return m_words; }
  void** arguments() { return m_arguments; }
  // Counted from the first behind the selector.
  void* argument(std::size_t index) { return m_arguments[index + kOwnArguments]; }

 private:
  // The receiver and the selector.
  static constexpr std::size_t kOwnArguments = 2;
  static std::size_t wordsFor(std::size_t size) { return size / sizeof(std::max_align_t) + 1; }

  std::array<std::max_align_t, 8> m_fewWords;
  std::vector<std::max_align_t> m_manyWords;
  std::array<void*, 8> m_fewArguments;
  std::vector<void*> m_manyArguments;
  std::max_align_t* m_words = nullptr;
  void** m_arguments = nullptr;
};

void writeArgument(const MethodSignature& signature, std::size_t index, const Arguments& arguments,
                   const Replacement::Call* forwarded, void* memory) {
  if (index >= arguments.size()) return;
  const bool isPassedOn =
      forwarded && index < forwarded->native.size() && arguments[index] == forwarded->arguments[index];
  // What ended since the host passed it is nothing by now.
  const bool hasEnded = arguments[index].isObject() && !liveObject(arguments[index].object());
  if (isPassedOn && !hasEnded) {
    std::memcpy(memory, forwarded->native[index], signature.argumentSize(index));
  } else {
    signature.argument(index).write(arguments[index], memory);
  }
}

// An object that raises when it is looked at has no value; it still goes back to the host as what a call
// forwarded.
Value valueOrAbsent(id object) {
  try {
    return valueFromObject(object, Holding::whenUnowned);
  } catch (...) {
    return {};
  }
}

// What an object runs for a selector; without a signature nothing that can be called.
struct Callee {
  IMP code = nullptr;
  SEL selector = nullptr;
  std::shared_ptr<MethodSignature> signature;
};

// Runs the method; an object that it answers is retained for the caller, any other result is already the value.
Answer callNative(id object, Callee callee, const Replacement::Call* forwarded, const Arguments& arguments,
                  Retained<>& retained) {
  MethodSignature& signature = *callee.signature;
  NativeValues values(signature, object, callee.selector);
  for (std::size_t i = 0; i < signature.argumentCount(); ++i) {
    writeArgument(signature, i, arguments, forwarded, values.argument(i));
  }
  HostException raised = exceptionFrom(
      [&] { ffi_call(&signature.call(), FFI_FN(callee.code), values.result(), values.arguments()); });
  if (raised) return {{}, std::move(raised)};
  if (!signature.result().isObject())
    return {signature.result().readResult(values.result(), Holding::never), nullptr};
  id answered = nil;
  std::memcpy(&answered, values.result(), sizeof answered);
  retained = Retained<>(answered);
  return {};
}

Answer callInPool(id object, const Callee& callee, const Replacement::Call* forwarded, const Arguments& arguments,
                  Retained<>& retained) {
  // A reader of a flag or a number leaves nothing behind that would have to end with it.
  const MethodSignature& signature = *callee.signature;
  const bool onlyReads =
      signature.argumentCount() == 0 && !signature.result().isObject() && !signature.result().isNothing();
  // What a method leaves for the host's own caller, as behind an NSError**, has to last as long as that one's
  // pool.
  const AutoreleasePool pool(!onlyReads && !forwarded);
  return callNative(object, callee, forwarded, arguments, retained);
}

Answer callMethod(id object, const Callee& callee, Replacement::Call* forwarded, const Arguments& arguments) {
  Retained<> result;
  Answer answer = callInPool(object, callee, forwarded, arguments, result);
  if (answer.raised) return answer;
  // What the host made on the way has ended with the pool; what is left without an owner now was a temporary.
  // The result of a forwarded call is owned by the pool of the host, who gets it next.
  if (result.get()) answer.value = valueOrAbsent(result.get());
  if (forwarded) forwarded->setForwarded(result.get(), answer.value);
  return answer;
}

}  // namespace

struct AppleClassRuntime::Tables {
  struct PairHash {
    std::size_t operator()(const std::pair<Class, SEL>& pair) const {
      return std::hash<const void*>()(pair.first) * 31 + std::hash<const void*>()(pair.second);
    }
  };
  // A method as one class has it.
  struct Place {
    Class target;
    SEL selector;
  };

  std::map<std::pair<Class, std::string>, Place> places;
  std::unordered_map<Method, Replacement*> replacements;
  // Null for a method that cannot be called with values.
  std::unordered_map<Method, std::shared_ptr<MethodSignature>> signatures;
  std::unordered_map<std::pair<Class, SEL>, Callee, PairHash> callees;

  const std::shared_ptr<MethodSignature>& signatureOf(Method method) {
    const auto [entry, isNew] = signatures.try_emplace(method);
    if (!isNew) return entry->second;
    entry->second = MethodSignature::fromEncoding(method_getTypeEncoding(method));
    // With types that do not fit its selector, arguments would be lost on the way or made up.
    if (entry->second && !fitsSelector(*entry->second, method_getName(method))) entry->second = nullptr;
    return entry->second;
  }

  // What is run now. The runtime's search for a method is slow, its search for the code is not; a method that
  // still has the same code has the same types.
  const Callee& calleeOf(Class receiver, SEL selector) {
    Callee& callee = callees[{receiver, selector}];
    const IMP code = class_getMethodImplementation(receiver, selector);
    if (callee.selector && callee.code == code) return callee;
    const Method method = ::class_getInstanceMethod(receiver, selector);
    callee = Callee{code, selector, method ? signatureOf(method) : nullptr};
    return callee;
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

AppleClassRuntime::AppleClassRuntime() : m_tables(std::make_shared<Tables>()) {}

AppleClassRuntime::~AppleClassRuntime() = default;

ClassRef AppleClassRuntime::NSClassFromString(std::string_view name) {
  return referenceTo(objc_lookUpClass(std::string(name).c_str()));
}

ClassRef AppleClassRuntime::objc_getMetaClass(std::string_view name) {
  const Class found = classFrom(NSClassFromString(name));
  return found ? referenceTo(object_getClass(static_cast<id>(found))) : ClassRef();
}

bool AppleClassRuntime::class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                                        std::string_view encoding, CharacterPointers characters) {
  const SEL named = selectorNamed(selector);
  if (!target || !named || !implementation) return false;
  const std::string types(encoding);
  std::shared_ptr<MethodSignature> signature = MethodSignature::fromEncoding(types.c_str());
  // The types that it is added with do not count once it is exchanged, so they need neither be ones that we know
  // nor fit.
  if (!signature || !fitsSelector(*signature, named)) signature = signatureOfObjects(selector);
  std::unique_ptr<Replacement> made = Replacement::make(std::move(implementation), signature, characters);
  if (!made || !::class_addMethod(classFrom(target), named, made->code(), types.c_str())) return false;
  const Method method = ::class_getInstanceMethod(classFrom(target), named);
  m_tables->signatures[method] = std::move(signature);
  // The host's class refers to it as long as the process lives.
  m_tables->replacements[method] = made.release();
  return true;
}

MethodRef AppleClassRuntime::class_getInstanceMethod(ClassRef target, std::string_view selector) {
  const SEL named = selectorNamed(selector);
  if (!target || !named) return {};
  const Method found = ::class_getInstanceMethod(classFrom(target), named);
  if (!found || !m_tables->signatureOf(found)) return {};
  const auto entry = m_tables->places.try_emplace({classFrom(target), std::string(selector)},
                                                  Tables::Place{classFrom(target), named});
  return MethodRef{reinterpret_cast<std::uintptr_t>(&entry.first->second)};
}

MethodRef AppleClassRuntime::class_getClassMethod(ClassRef target, std::string_view selector) {
  if (!target) return {};
  const Class held = classFrom(target);
  return class_getInstanceMethod(
      class_isMetaClass(held) ? target : referenceTo(object_getClass(static_cast<id>(held))), selector);
}

std::string AppleClassRuntime::unusableTypes(ClassRef target, std::string_view selector) {
  const SEL named = selectorNamed(selector);
  const Method found = target && named ? ::class_getInstanceMethod(classFrom(target), named) : nullptr;
  if (!found || m_tables->signatureOf(found)) return "";
  const char* types = method_getTypeEncoding(found);
  return types && *types ? types : "?";
}

void AppleClassRuntime::method_exchangeImplementations(MethodRef first, MethodRef second) {
  if (!first || !second) return;
  const auto& a = *reinterpret_cast<const Tables::Place*>(first.id);
  const auto& b = *reinterpret_cast<const Tables::Place*>(second.id);
  const Method ownA = m_tables->ownMethod(a);
  const Method ownB = m_tables->ownMethod(b);
  m_tables->join(ownA, ownB, a.selector, b.selector);
  m_tables->join(ownB, ownA, b.selector, a.selector);
  ::method_exchangeImplementations(ownA, ownB);
  refreshHeirs(a.target);
  if (b.target != a.target) refreshHeirs(b.target);
  // The same code may be reached with other types now.
  m_tables->callees.clear();
}

ClassRef AppleClassRuntime::defineClass(std::string_view name, std::string_view superclass) {
  if (const ClassRef known = NSClassFromString(name)) return known;
  const Class host = classFrom(NSClassFromString(superclass));
  const Class made = host ? objc_allocateClassPair(host, std::string(name).c_str(), 0) : Nil;
  if (made) objc_registerClassPair(made);
  return referenceTo(made);
}

HostObject AppleClassRuntime::instantiate(ClassRef target, std::string_view initialiser,
                                          const Arguments& arguments) {
  if (!target) return {};
  LiveObjects& live = LiveObjects::instance();
  try {
    const HostObject unready = live.reference([classFrom(target) alloc], Holding::never);
    // The initialiser passes on our reference to what it gives, or has ended it.
    const HostObject made = call(unready, initialiser, arguments).value.object();
    if (!made) return {};
    const Retained<> ours = Retained<>::adopted(live.object(made));
    return live.reference(ours.get(), Holding::always);
  } catch (...) {
    // A class may refuse to make objects.
    return {};
  }
}

HostObject AppleClassRuntime::classObject(ClassRef target) {
  return LiveObjects::instance().reference(static_cast<id>(classFrom(target)), Holding::never);
}

Answer AppleClassRuntime::call(const HostObject& receiver, std::string_view selector, const Arguments& arguments) {
  const id object = liveObject(receiver);
  const SEL named = selectorNamed(selector);
  if (!object || !named) return {};
  try {
    const Retained<> receiverHeld(object);
    // A copy, for the call may lead to exchanges.
    const Callee callee = m_tables->calleeOf(object_getClass(object), named);
    if (!callee.signature) return {};
    return callMethod(object, callee, Replacement::forwardedBy(object, named), arguments);
  } catch (...) {
    // The host's values, on their way in or out, are code of the host too.
    return {};
  }
}

bool AppleClassRuntime::respondsTo(const HostObject& receiver, std::string_view selector) {
  const id object = liveObject(receiver);
  const SEL named = selectorNamed(selector);
  if (!object || !named) return false;
  try {
    return [object respondsToSelector:named];
  } catch (...) {
    // What stands for another object asks that one, which may raise.
    return false;
  }
}

bool AppleClassRuntime::isKindOf(const HostObject& receiver, ClassRef target) {
  const id object = liveObject(receiver);
  if (!object || !target) return false;
  try {
    return [object isKindOfClass:classFrom(target)];
  } catch (...) {
    return false;
  }
}

HostObject AppleClassRuntime::retained(const HostObject& object) {
  try {
    return LiveObjects::instance().reference(liveObject(object), Holding::always);
  } catch (...) {
    // What stands for another object may raise even here.
    return {};
  }
}

std::string AppleClassRuntime::className(const HostObject& receiver) {
  const id object = liveObject(receiver);
  if (!object) return "";
  try {
    return class_getName([object class]);
  } catch (...) {
    return "";
  }
}

}  // namespace vorn
