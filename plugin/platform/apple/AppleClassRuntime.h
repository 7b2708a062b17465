#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/ClassRuntime.h"

namespace vorn {

// The Objective-C runtime of the host's process, the system's or GNUstep's.
//
// A replacement becomes a method implementation whose argument types are those of the host's method it is
// exchanged with; the encoding it was added with counts only as long as there is none. A host method with a type
// that has no value counts as missing. What a replacement forwards unchanged reaches the host as the very objects
// that the host passed, and the result likewise. An inherited method is copied into the class before it is
// exchanged, so the class it comes from stays as it is. Replacements stay in the host's classes when this object
// has gone. Main thread only.
class AppleClassRuntime final : public ClassRuntime {
 public:
  AppleClassRuntime();
  ~AppleClassRuntime() override;
  AppleClassRuntime(const AppleClassRuntime&) = delete;
  AppleClassRuntime& operator=(const AppleClassRuntime&) = delete;

  ClassRef NSClassFromString(std::string_view name) override;
  ClassRef objc_getMetaClass(std::string_view name) override;
  using ClassRuntime::class_addMethod;
  bool class_addMethod(ClassRef target, std::string_view selector, Implementation implementation,
                       std::string_view encoding, CharacterPointers characters) override;
  MethodRef class_getInstanceMethod(ClassRef target, std::string_view selector) override;
  MethodRef class_getClassMethod(ClassRef target, std::string_view selector) override;
  std::string unusableTypes(ClassRef target, std::string_view selector) override;
  void method_exchangeImplementations(MethodRef first, MethodRef second) override;
  ClassRef defineClass(std::string_view name, std::string_view superclass) override;
  HostObject instantiate(ClassRef target, std::string_view initialiser, const Arguments& arguments) override;
  HostObject classObject(ClassRef target) override;
  Answer call(const HostObject& receiver, std::string_view selector, const Arguments& arguments) override;
  bool respondsTo(const HostObject& receiver, std::string_view selector) override;
  bool isKindOf(const HostObject& receiver, ClassRef target) override;
  HostObject retained(const HostObject& object) override;
  std::string className(const HostObject& receiver) override;

 private:
  struct Tables;

  std::shared_ptr<Tables> m_tables;
};

}  // namespace vorn
