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

  ffi_type* native() { return structure_.elements ? &structure_ : primitive_; }
  bool isObject() const { return code_ == '@'; }
  bool isNothing() const { return code_ == 'v'; }

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
  bool fillsRegister() const;

  char code_ = 'v';
  bool pointsToCharacters_ = false;
  ffi_type* primitive_ = &ffi_type_void;
  // A structure of numbers, with the keys of its fields.
  ffi_type structure_{};
  std::vector<ffi_type*> elements_;
  std::vector<std::string_view> fields_;
};

// The types of a method, from the runtime's encoding. The first two arguments are the receiver and the selector.
class MethodSignature {
 public:
  // Null when one of the types has no value, when there is no receiver or selector, and for no encoding at all.
  static std::unique_ptr<MethodSignature> fromEncoding(const char* encoding);

  ffi_cif& call() { return call_; }
  const MethodType& result() const { return *result_; }
  // The arguments behind the selector.
  std::size_t argumentCount() const { return arguments_.size() - 2; }
  const MethodType& argument(std::size_t index) const { return *arguments_[index + 2]; }
  std::size_t argumentSize(std::size_t index) const { return native_[index + 2]->size; }
  std::size_t resultSize() const;

 private:
  MethodSignature() = default;

  std::unique_ptr<MethodType> result_;
  std::vector<std::unique_ptr<MethodType>> arguments_;
  std::vector<ffi_type*> native_;
  ffi_cif call_{};
};

}  // namespace vorn
