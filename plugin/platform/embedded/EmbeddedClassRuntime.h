#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ClassRuntime.h"

namespace vorn {

// A small class runtime of our own: classes with single inheritance and metaclasses, methods that can be added
// and exchanged while running, and objects that are known to be alive or dead.
//
// The host defines its classes here and makes its objects; the plug-in sees only ClassRuntime. An address is
// never used twice, so a reference to a destroyed object stays recognisable for ever. Main thread only.
class EmbeddedClassRuntime final : public ClassRuntime {
 public:
  EmbeddedClassRuntime();
  ~EmbeddedClassRuntime() override;
  EmbeddedClassRuntime(const EmbeddedClassRuntime&) = delete;
  EmbeddedClassRuntime& operator=(const EmbeddedClassRuntime&) = delete;

  // Also defines a root class, for "".
  ClassRef defineClass(std::string_view name, std::string_view superclass) override;
  ClassRef defineClass(std::string_view name) { return defineClass(name, {}); }
  // Adds or replaces a method of a defined class. An unknown class changes nothing.
  void setInstanceMethod(std::string_view className, std::string_view selector, Implementation implementation);
  void setClassMethod(std::string_view className, std::string_view selector, Implementation implementation);

  // Makes an object that lives until destroy(). An unknown class gives the absent object.
  HostObject create(std::string_view className, std::shared_ptr<void> state = nullptr);
  // Makes an object that lives as long as a copy of the returned reference.
  HostObject createTemporary(std::string_view className, std::shared_ptr<void> state = nullptr);
  // Lets go of the object, which ends it as soon as no retained() reference holds it.
  void destroy(const HostObject& object);
  bool isAlive(const HostObject& object) const;
  // How many objects live, the classes' own among them.
  std::size_t liveObjects() const;
  // What the object was made with; null for an absent, dead or stateless object.
  template <typename State>
  std::shared_ptr<State> state(const HostObject& object) const {
    return std::static_pointer_cast<State>(stateOf(object));
  }
  void setState(const HostObject& object, std::shared_ptr<void> state);
  // Sends as the host does: a host method raises by throwing, and what it throws goes on to the caller.
  Value sendAsHost(const HostObject& receiver, std::string_view selector, const Arguments& arguments);

  ClassRef NSClassFromString(std::string_view name) override;
  ClassRef objc_getMetaClass(std::string_view name) override;
  using ClassRuntime::class_addMethod;
  bool class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                       std::string_view encoding, CharacterPointers characters) override;
  MethodRef class_getInstanceMethod(ClassRef target, std::string_view selector) override;
  MethodRef class_getClassMethod(ClassRef target, std::string_view selector) override;
  // Always "": what crosses here are values already.
  std::string unusableTypes(ClassRef target, std::string_view selector) override;
  void method_exchangeImplementations(MethodRef first, MethodRef second) override;
  HostObject instantiate(ClassRef target, std::string_view initialiser, const Arguments& arguments) override;
  HostObject classObject(ClassRef target) override;
  Answer call(const HostObject& receiver, std::string_view selector, const Arguments& arguments) override;
  bool respondsTo(const HostObject& receiver, std::string_view selector) override;
  bool isKindOf(const HostObject& receiver, ClassRef target) override;
  HostObject retained(const HostObject& object) override;
  std::string className(const HostObject& receiver) override;

 private:
  struct Method;
  struct Class;
  struct Place;
  struct Object;
  struct Tables;

  std::shared_ptr<void> stateOf(const HostObject& object) const;
  HostObject makeObject(Class* isa, std::shared_ptr<void> state);
  HostObject withKeeper(std::uintptr_t address, void (Tables::*atTheEnd)(std::uintptr_t address));

  std::shared_ptr<Tables> m_tables;
};

}  // namespace vorn
