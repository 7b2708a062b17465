#include "platform/embedded/EmbeddedClassRuntime.h"

#include <exception>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace vorn {

struct EmbeddedClassRuntime::Method {
  std::shared_ptr<const Implementation> implementation;
  std::string encoding;
};

struct EmbeddedClassRuntime::Class {
  // So that a name is looked up without a copy of it.
  struct HashOfName {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };
  template <typename Entry>
  using ByName = std::unordered_map<std::string, Entry, HashOfName, std::equal_to<>>;

  std::string name;
  Class* superclass = nullptr;
  // The class of the class object; null for a metaclass.
  Class* metaclass = nullptr;
  std::uintptr_t classObject = 0;
  ByName<std::unique_ptr<Method>> methods;

  Method* find(std::string_view selector) {
    for (Class* at = this; at; at = at->superclass) {
      const auto found = at->methods.find(selector);
      if (found != at->methods.end()) return found->second.get();
    }
    return nullptr;
  }

  // The class's own method; one that it inherits is copied into it. Null when there is none.
  Method* own(const std::string& selector) {
    const Method* inherited = find(selector);
    if (!inherited) return nullptr;
    const auto [entry, isNew] = methods.try_emplace(selector);
    if (isNew) entry->second = std::make_unique<Method>(*inherited);
    return entry->second.get();
  }
};

// A method as one class has it, which is what a reference to a method stands for.
struct EmbeddedClassRuntime::Place {
  Class* target = nullptr;
  std::string selector;
};

struct EmbeddedClassRuntime::Object {
  Class* isa = nullptr;
  std::shared_ptr<void> state;
  // How often the object is retained, and whether only that still keeps it.
  std::size_t holds = 0;
  bool isLetGo = false;
};

struct EmbeddedClassRuntime::Tables {
  std::vector<std::unique_ptr<Class>> classes;
  Class::ByName<Class*> byName;
  std::unordered_map<std::uintptr_t, Object> live;
  std::map<std::pair<Class*, std::string>, Place> places;
  std::uintptr_t nextAddress = 0x600000000010;

  Object* object(const HostObject& reference) {
    const auto found = live.find(reference.address());
    return found == live.end() ? nullptr : &found->second;
  }
  // The owner needs the object no more.
  void letGo(std::uintptr_t address) {
    const auto found = live.find(address);
    if (found == live.end()) return;
    found->second.isLetGo = true;
    endIfUnheld(address);
  }
  void release(std::uintptr_t address) {
    const auto found = live.find(address);
    if (found == live.end()) return;
    --found->second.holds;
    endIfUnheld(address);
  }
  void endIfUnheld(std::uintptr_t address) {
    const auto found = live.find(address);
    if (!found->second.isLetGo || found->second.holds > 0) return;
    // The state may hold further references; it goes after its entry so that they find the table whole.
    const std::shared_ptr<void> last = std::move(found->second.state);
    live.erase(found);
  }
  MethodRef method(Class* target, std::string_view selector) {
    if (!target->find(selector)) return {};
    Place& place = places[{target, std::string(selector)}];
    place = Place{target, std::string(selector)};
    return MethodRef{reinterpret_cast<std::uintptr_t>(&place)};
  }
  Class* named(std::string_view name) {
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
  }
};

EmbeddedClassRuntime::EmbeddedClassRuntime() : m_tables(std::make_shared<Tables>()) {}

EmbeddedClassRuntime::~EmbeddedClassRuntime() = default;

namespace {

template <typename Class>
Class* classFrom(ClassRef reference) {
  return reinterpret_cast<Class*>(reference.id);
}

}  // namespace

ClassRef EmbeddedClassRuntime::defineClass(std::string_view name, std::string_view superclass) {
  if (Class* existing = m_tables->named(name)) return ClassRef{reinterpret_cast<std::uintptr_t>(existing)};
  Class* parent = nullptr;
  if (!superclass.empty()) {
    parent = m_tables->named(superclass);
    if (!parent) return {};
  }
  auto metaclass = std::make_unique<Class>();
  metaclass->name = std::string(name);
  metaclass->superclass = parent ? parent->metaclass : nullptr;
  auto made = std::make_unique<Class>();
  made->name = std::string(name);
  made->superclass = parent;
  made->metaclass = metaclass.get();
  made->classObject = makeObject(metaclass.get(), nullptr).address();
  Class* result = made.get();
  m_tables->byName.emplace(made->name, result);
  m_tables->classes.push_back(std::move(metaclass));
  m_tables->classes.push_back(std::move(made));
  return ClassRef{reinterpret_cast<std::uintptr_t>(result)};
}

void EmbeddedClassRuntime::setInstanceMethod(std::string_view className, std::string_view selector,
                                             Implementation implementation) {
  Class* target = m_tables->named(className);
  if (!target) return;
  target->methods.erase(std::string(selector));
  class_addMethod(ClassRef{reinterpret_cast<std::uintptr_t>(target)}, selector, std::move(implementation), {});
}

void EmbeddedClassRuntime::setClassMethod(std::string_view className, std::string_view selector,
                                          Implementation implementation) {
  Class* target = m_tables->named(className);
  if (!target) return;
  target->metaclass->methods.erase(std::string(selector));
  class_addMethod(ClassRef{reinterpret_cast<std::uintptr_t>(target->metaclass)}, selector,
                  std::move(implementation), {});
}

HostObject EmbeddedClassRuntime::makeObject(Class* isa, std::shared_ptr<void> state) {
  const std::uintptr_t address = m_tables->nextAddress;
  m_tables->nextAddress += 0x10;
  m_tables->live.emplace(address, Object{isa, std::move(state)});
  return HostObject(address);
}

HostObject EmbeddedClassRuntime::create(std::string_view className, std::shared_ptr<void> state) {
  Class* isa = m_tables->named(className);
  return isa ? makeObject(isa, std::move(state)) : HostObject();
}

HostObject EmbeddedClassRuntime::createTemporary(std::string_view className, std::shared_ptr<void> state) {
  const HostObject made = create(className, std::move(state));
  if (!made) return {};
  return withKeeper(made.address(), &Tables::letGo);
}

HostObject EmbeddedClassRuntime::instantiate(ClassRef target, std::string_view initialiser,
                                             const Arguments& arguments) {
  if (!target) return {};
  const HostObject unready = makeObject(classFrom<Class>(target), nullptr);
  const HostObject made = send(unready, initialiser, arguments).object();
  if (made != unready) destroy(unready);
  return made ? withKeeper(made.address(), &Tables::letGo) : HostObject();
}

HostObject EmbeddedClassRuntime::retained(const HostObject& object) {
  Object* held = m_tables->object(object);
  if (!held) return {};
  ++held->holds;
  return withKeeper(object.address(), &Tables::release);
}

HostObject EmbeddedClassRuntime::withKeeper(std::uintptr_t address, void (Tables::*atTheEnd)(std::uintptr_t)) {
  // The last reference may outlive the runtime, so the keeper holds the tables only weakly.
  const std::weak_ptr<Tables> tables = m_tables;
  const auto end = [tables, address, atTheEnd](void*) {
    if (const auto held = tables.lock()) (held.get()->*atTheEnd)(address);
  };
  return HostObject(address, std::shared_ptr<void>(static_cast<void*>(nullptr), end));
}

void EmbeddedClassRuntime::destroy(const HostObject& object) { m_tables->letGo(object.address()); }

std::size_t EmbeddedClassRuntime::liveObjects() const { return m_tables->live.size(); }

bool EmbeddedClassRuntime::isAlive(const HostObject& object) const { return m_tables->object(object) != nullptr; }

std::shared_ptr<void> EmbeddedClassRuntime::stateOf(const HostObject& object) const {
  const Object* held = m_tables->object(object);
  return held ? held->state : nullptr;
}

void EmbeddedClassRuntime::setState(const HostObject& object, std::shared_ptr<void> state) {
  if (Object* held = m_tables->object(object)) held->state = std::move(state);
}

ClassRef EmbeddedClassRuntime::NSClassFromString(std::string_view name) {
  return ClassRef{reinterpret_cast<std::uintptr_t>(m_tables->named(name))};
}

ClassRef EmbeddedClassRuntime::objc_getMetaClass(std::string_view name) {
  Class* found = m_tables->named(name);
  return ClassRef{found ? reinterpret_cast<std::uintptr_t>(found->metaclass) : 0};
}

bool EmbeddedClassRuntime::class_addMethod(ClassRef target, std::string_view selector,
                                           Implementation implementation, std::string_view encoding,
                                           CharacterPointers) {
  if (!target || selector.empty() || !implementation) return false;
  auto method = std::make_unique<Method>();
  method->implementation = std::make_shared<const Implementation>(std::move(implementation));
  method->encoding = std::string(encoding);
  return classFrom<Class>(target)->methods.emplace(std::string(selector), std::move(method)).second;
}

MethodRef EmbeddedClassRuntime::class_getInstanceMethod(ClassRef target, std::string_view selector) {
  return target ? m_tables->method(classFrom<Class>(target), selector) : MethodRef();
}

MethodRef EmbeddedClassRuntime::class_getClassMethod(ClassRef target, std::string_view selector) {
  if (!target) return {};
  Class* held = classFrom<Class>(target);
  return m_tables->method(held->metaclass ? held->metaclass : held, selector);
}

std::string EmbeddedClassRuntime::unusableTypes(ClassRef, std::string_view) { return {}; }

void EmbeddedClassRuntime::method_exchangeImplementations(MethodRef first, MethodRef second) {
  if (!first || !second) return;
  const auto& a = *reinterpret_cast<const Place*>(first.id);
  const auto& b = *reinterpret_cast<const Place*>(second.id);
  Method* ownA = a.target->own(a.selector);
  Method* ownB = b.target->own(b.selector);
  if (ownA && ownB) std::swap(ownA->implementation, ownB->implementation);
}

HostObject EmbeddedClassRuntime::classObject(ClassRef target) {
  return target ? HostObject(classFrom<Class>(target)->classObject) : HostObject();
}

Answer EmbeddedClassRuntime::call(const HostObject& receiver, std::string_view selector,
                                  const Arguments& arguments) {
  try {
    return {sendAsHost(receiver, selector, arguments), nullptr};
  } catch (...) {
    return {{}, std::make_shared<const std::exception_ptr>(std::current_exception())};
  }
}

Value EmbeddedClassRuntime::sendAsHost(const HostObject& receiver, std::string_view selector,
                                       const Arguments& arguments) {
  Object* held = m_tables->object(receiver);
  if (!held) return {};
  const Method* method = held->isa->find(selector);
  if (!method) return {};
  // Held for the call: the method may exchange itself, and the receiver may be destroyed inside.
  const std::shared_ptr<const Implementation> implementation = method->implementation;
  const std::shared_ptr<void> state = held->state;
  try {
    return (*implementation)(receiver, arguments);
  } catch (const HostRaised& raised) {
    std::rethrow_exception(*static_cast<const std::exception_ptr*>(raised.exception.get()));
  }
}

bool EmbeddedClassRuntime::respondsTo(const HostObject& receiver, std::string_view selector) {
  Object* held = m_tables->object(receiver);
  return held && held->isa->find(selector);
}

bool EmbeddedClassRuntime::isKindOf(const HostObject& receiver, ClassRef target) {
  Object* held = m_tables->object(receiver);
  if (!held || !target) return false;
  for (Class* at = held->isa; at; at = at->superclass) {
    if (at == classFrom<Class>(target)) return true;
  }
  return false;
}

std::string EmbeddedClassRuntime::className(const HostObject& receiver) {
  Object* held = m_tables->object(receiver);
  return held ? held->isa->name : std::string();
}

}  // namespace vorn
