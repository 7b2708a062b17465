#pragma once

#include <ffi.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ClassRuntime.h"
#include "platform/apple/LiveObjects.h"
#include "util/Value.h"

namespace vorn {

// One argument or result of a method, as the machine passes it.
//
// Objects, numbers, classes, selectors and C texts become values; one-byte integers 0 and 1 are booleans, for that
// is what a host means by them. A rectangle is a dictionary of "x", "y", "width" and "height", a point has the
// first two and a size the last two. Any other pointer is the number of its address. Main thread only.
class MethodType {
 public:
  // One type without qualifiers. Null for one that has no value: a union, an array, a bit field, a vector, a
  // block, a number that is too large or not of the usual kinds, or another structure.
  static std::unique_ptr<MethodType> fromEncoding(std::string_view type);

  ffi_type* native() { return m_structure.elements ? &m_structure : m_primitive; }
  bool isObject() const { return m_code == '@'; }
  bool isNothing() const { return m_code == 'v'; }

  Value read(const void* memory, LiveObjects::Holding holding) const;
  // An argument of a call to us. It is its caller's, so nothing is held.
  Value readArgument(const void* memory, CharacterPointers characters) const;
  // The memory has room for the native type and is zero. A C text stays as long as the present autorelease pool.
  void write(const Value& value, void* memory) const;
  // A result as the machine returns it: small integers fill a whole register.
  Value readResult(const void* memory, LiveObjects::Holding holding) const;
  void writeResult(const Value& value, void* memory) const;

 private:
  MethodType() = default;
  Value readStructure(const void* memory) const;
  void writeStructure(const Value& value, void* memory) const;

  char m_code = 'v';
  // A result of the type comes in a whole register, whose upper bytes count for whoever reads it.
  bool m_fillsRegister = false;
  bool m_pointsToCharacters = false;
  ffi_type* m_primitive = &ffi_type_void;
  // A structure of numbers, with the keys of its fields.
  ffi_type m_structure{};
  std::vector<ffi_type*> m_elements;
  std::vector<std::string_view> m_fields;
};

// The types of a method, from the runtime's encoding. The first two arguments are the receiver and the selector.
class MethodSignature {
 public:
  // Null when one of the types has no value, when there is no receiver or selector, and for no encoding at all.
  static std::unique_ptr<MethodSignature> fromEncoding(const char* encoding);

  ffi_cif& call() { return m_call; }
  const MethodType& result() const { return *m_result; }
  // The arguments behind the selector.
  std::size_t argumentCount() const { return m_arguments.size() - 2; }
  const MethodType& argument(std::size_t index) const { return *m_arguments[index + 2]; }
  std::size_t argumentSize(std::size_t index) const { return m_native[index + 2]->size; }
  std::size_t resultSize() const;

 private:
  MethodSignature() = default;

  std::unique_ptr<MethodType> m_result;
  std::vector<std::unique_ptr<MethodType>> m_arguments;
  std::vector<ffi_type*> m_native;
  ffi_cif m_call{};
};

}  // namespace vorn
