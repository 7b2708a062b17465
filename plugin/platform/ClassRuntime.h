#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "util/Value.h"

namespace vorn {

// A class or a metaclass of the runtime; false when absent.
struct ClassRef {
  std::uintptr_t id = 0;
  explicit operator bool() const { return id != 0; }
  friend bool operator==(ClassRef a, ClassRef b) { return a.id == b.id; }
};

// A method of one class; false when absent.
struct MethodRef {
  std::uintptr_t id = 0;
  explicit operator bool() const { return id != 0; }
  friend bool operator==(MethodRef a, MethodRef b) { return a.id == b.id; }
};

using Arguments = std::vector<Value>;

// What a method of the host raised, as its runtime keeps it: nobody else looks inside. Null for nothing.
using HostException = std::shared_ptr<const void>;

// What came of a call: its result, or what was raised in place of one.
struct Answer {
  Value value;
  HostException raised;
};

// Thrown in a replacement to end it with what the host's own method has raised.
struct HostRaised {
  HostException exception;
};

// What a method does: the receiver and the arguments in the order of the selector, and the result; absent where
// the method has none. It may throw HostRaised: when nothing of this system is left on the stack, the runtime
// raises in the host what is in it. Whatever else is to be thrown is caught before.
using Implementation = std::function<Value(const HostObject& receiver, const Arguments& arguments)>;

// What a pointer to characters means among the arguments of a method that is added. The types do not tell: a text
// and a flag that is to be filled in may be written alike, and a flag must not be read up to a zero behind it.
enum class CharacterPointers {
  // An address, good only for passing on.
  opaque,
  // A C text in UTF-8.
  texts,
};

// The runtime that the host's classes live in, reached by name alone.
//
// Main thread only. Nothing here throws: a missing class, a missing selector, an absent or a dead object, and a
// host method that raises all answer absent, false or a false reference; call() alone tells the last from the
// others. Operations that the platform itself names carry its names.
class ClassRuntime {
 public:
  virtual ~ClassRuntime() = default;

  virtual ClassRef NSClassFromString(std::string_view name) = 0;
  // The class of the class object: its instance methods are the class methods.
  virtual ClassRef objc_getMetaClass(std::string_view name) = 0;
  // Adds a method to the class itself. False, and no change, when the class has one of that selector already.
  virtual bool class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                               std::string_view encoding, CharacterPointers characters) = 0;
  // The method that an instance of the class runs for the selector, inherited ones included.
  virtual MethodRef class_getInstanceMethod(ClassRef target, std::string_view selector) = 0;
  // The same for the class object. A metaclass is its own metaclass here.
  virtual MethodRef class_getClassMethod(ClassRef target, std::string_view selector) = 0;
  // Why instances of the class answer to the selector and yet there is no method for it here: the types of one
  // that cannot be called with values, or whose types do not fit its selector. "" for every other method, and for
  // none.
  virtual std::string unusableTypes(ClassRef target, std::string_view selector) = 0;
  // Each class that was asked for the methods keeps the exchange to itself: a method that it inherits is copied
  // into it first, and the class it comes from and its other heirs stay as they are.
  virtual void method_exchangeImplementations(MethodRef first, MethodRef second) = 0;

  // Makes a class of ours below one of the host's. A name that is known already gives the class that has it; an
  // unknown superclass gives a false reference.
  virtual ClassRef defineClass(std::string_view name, std::string_view superclass) = 0;
  // Makes an object of the class by one of its initialisers. It lives as long as a copy of the reference, or as
  // long as the host holds it. Absent for a false reference, and when the initialiser gives none.
  virtual HostObject instantiate(ClassRef target, std::string_view initialiser, const Arguments& arguments) = 0;
  // The object that stands for the class as a receiver; absent for a false reference.
  virtual HostObject classObject(ClassRef target) = 0;
  // Sends a selector by name.
  virtual Answer call(const HostObject& receiver, std::string_view selector, const Arguments& arguments) = 0;
  virtual bool respondsTo(const HostObject& receiver, std::string_view selector) = 0;
  // True for an instance of the class or of one that inherits from it.
  virtual bool isKindOf(const HostObject& receiver, ClassRef target) = 0;
  // A reference that keeps its object alive until the last copy is gone, whatever the host lets go of meanwhile;
  // absent for an absent or a dead object. For what a delayed call needs of the host.
  virtual HostObject retained(const HostObject& object) = 0;
  // The name of the object's own class; "" for an absent or a dead object.
  virtual std::string className(const HostObject& receiver) = 0;

  bool class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                       std::string_view encoding) {
    return class_addMethod(target, selector, std::move(implementation), encoding, CharacterPointers::opaque);
  }
  // The same, for whom what was raised is as good as nothing.
  Value send(const HostObject& receiver, std::string_view selector, const Arguments& arguments) {
    return call(receiver, selector, arguments).value;
  }
  Value send(const HostObject& receiver, std::string_view selector) {
    return send(receiver, selector, Arguments{});
  }
};

}  // namespace vorn
