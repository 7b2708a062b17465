#include "platform/apple/MethodSignature.h"

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

#include "platform/apple/Conversions.h"
#include "platform/apple/TypeEncoding.h"

namespace vorn {

namespace {

ffi_type* nativeOf(char code) {
  switch (code) {
    case 'c': return &ffi_type_schar;
    case 'C':
    case 'B': return &ffi_type_uchar;
    case 's': return &ffi_type_sshort;
    case 'S': return &ffi_type_ushort;
    case 'i': return &ffi_type_sint;
    case 'I': return &ffi_type_uint;
    case 'l': return &ffi_type_slong;
    case 'L': return &ffi_type_ulong;
    case 'q': return &ffi_type_sint64;
    case 'Q': return &ffi_type_uint64;
    case 'f': return &ffi_type_float;
    case 'd': return &ffi_type_double;
    case 'v': return &ffi_type_void;
    case '@':
    case '#':
    case ':':
    case '*':
    case '^': return &ffi_type_pointer;
    default: return nullptr;
  }
}

template <typename Number>
Number readAs(const void* memory) {
  Number number{};
  std::memcpy(&number, memory, sizeof number);
  return number;
}

template <typename Number>
void writeAs(Number number, void* memory) {
  std::memcpy(memory, &number, sizeof number);
}

// The letters of the numbers in a structure, whatever structures they lie in; "" when there is anything else, or
// when they are not all of one kind, so that there would be gaps between them.
std::string numbersIn(std::string_view structure) {
  std::string letters;
  for (std::size_t at = 0; at < structure.size(); ++at) {
    const char c = structure[at];
    if (c == '{') {
      at = structure.find_first_of("=}", at);
      if (at == std::string_view::npos || structure[at] != '=') return "";
    } else if ((c == 'd' || c == 'f') && (letters.empty() || letters.front() == c)) {
      letters += c;
    } else if (c != '}') {
      return "";
    }
  }
  return letters;
}

constexpr std::string_view kRectangle[] = {"x", "y", "width", "height"};

std::span<const std::string_view> fieldsOf(std::string_view structure, std::size_t count) {
  if (count == 4) return kRectangle;
  if (count != 2) return {};
  const std::string_view name = structure.substr(0, structure.find('='));
  if (name.ends_with("Point")) return std::span(kRectangle).first(2);
  return name.ends_with("Size") ? std::span(kRectangle).last(2) : std::span<const std::string_view>();
}

// A flag passes for a boolean only where it is one; other numbers of one byte are numbers.
Value flagOrNumber(int byte) { return byte == 0 || byte == 1 ? Value(byte == 1) : Value(byte); }

Value textOrAbsent(const char* text) {
  return text ? Value(textFromFoundation(foundationText(std::string_view(text)))) : Value();
}

Value addressOrAbsent(const void* memory) {
  const auto address = readAs<std::uintptr_t>(memory);
  return address ? Value(address) : Value();
}

// Memory that ends with the present autorelease pool.
const char* lastingText(const Value& value) {
  if (!value.isText()) return nullptr;
  const std::string& text = value.text();
  return static_cast<const char*>([[NSData dataWithBytes:text.c_str() length:text.size() + 1] bytes]);
}

}  // namespace

std::unique_ptr<MethodType> MethodType::fromEncoding(std::string_view encoding) {
  constexpr std::string_view block = "@?";
  if (encoding.empty() || encoding.starts_with(block)) return nullptr;
  std::unique_ptr<MethodType> type(new MethodType());
  type->m_code = encoding.front();
  type->m_fillsRegister = std::string_view("cCBsSiI").find(type->m_code) != std::string_view::npos;
  type->m_pointsToCharacters = encoding == "*" || encoding == "^c" || encoding == "^C" || encoding == "^B";
  if (type->m_code != '{') {
    type->m_primitive = nativeOf(type->m_code);
    if (!type->m_primitive) return nullptr;
    return type;
  }
  const std::string letters = numbersIn(encoding);
  const std::span<const std::string_view> fields = fieldsOf(encoding, letters.size());
  if (fields.empty()) return nullptr;
  type->m_fields.assign(fields.begin(), fields.end());
  for (const char letter : letters) type->m_elements.push_back(nativeOf(letter));
  type->m_elements.push_back(nullptr);
  type->m_structure.type = FFI_TYPE_STRUCT;
  type->m_structure.elements = type->m_elements.data();
  return type;
}

Value MethodType::readArgument(const void* memory, CharacterPointers characters) const {
  if (!m_pointsToCharacters) return read(memory, LiveObjects::Holding::never);
  if (characters == CharacterPointers::texts) return textOrAbsent(readAs<const char*>(memory));
  return addressOrAbsent(memory);
}

Value MethodType::read(const void* memory, LiveObjects::Holding holding) const {
  switch (m_code) {
    case 'c': return flagOrNumber(readAs<signed char>(memory));
    case 'C':
    case 'B': return flagOrNumber(readAs<unsigned char>(memory));
    case 's': return readAs<short>(memory);
    case 'S': return int{readAs<unsigned short>(memory)};
    case 'i': return readAs<int>(memory);
    case 'I': return readAs<unsigned>(memory);
    case 'l': return readAs<long>(memory);
    case 'L': return readAs<unsigned long>(memory);
    case 'q': return readAs<long long>(memory);
    case 'Q': return readAs<unsigned long long>(memory);
    case 'f': return double{readAs<float>(memory)};
    case 'd': return readAs<double>(memory);
    case '@':
    case '#': return valueFromObject(readAs<id>(memory), holding);
    case ':': {
      const SEL selector = readAs<SEL>(memory);
      return selector ? Value(sel_getName(selector)) : Value();
    }
    case '*': return textOrAbsent(readAs<const char*>(memory));
    case '^': return addressOrAbsent(memory);
    case '{': return readStructure(memory);
    default: return {};
  }
}

void MethodType::write(const Value& value, void* memory) const {
  const std::int64_t number = value.integerValue();
  switch (m_code) {
    case 'c':
    case 'C': return writeAs(static_cast<unsigned char>(number), memory);
    case 'B': return writeAs(static_cast<unsigned char>(value.boolValue()), memory);
    case 's':
    case 'S': return writeAs(static_cast<unsigned short>(number), memory);
    case 'i':
    case 'I': return writeAs(static_cast<unsigned>(number), memory);
    case 'l':
    case 'L': return writeAs(static_cast<unsigned long>(number), memory);
    case 'q':
    case 'Q': return writeAs(number, memory);
    case 'f': return writeAs(static_cast<float>(value.realValue()), memory);
    case 'd': return writeAs(value.realValue(), memory);
    case '@':
    case '#': return writeAs(objectFromValue(value), memory);
    case ':': return writeAs(value.isText() ? sel_registerName(value.text().c_str()) : nullptr, memory);
    case '*': return writeAs(lastingText(value), memory);
    case '^':
      // A text where a pointer is wanted can only be meant as its characters.
      if (value.isText()) return writeAs(lastingText(value), memory);
      return writeAs(static_cast<std::uintptr_t>(value.isObject() ? 0 : number), memory);
    case '{': return writeStructure(value, memory);
    default: return;
  }
}

Value MethodType::readResult(const void* memory, LiveObjects::Holding holding) const {
  if (!m_fillsRegister) return read(memory, holding);
  const auto whole = static_cast<std::uint64_t>(readAs<ffi_arg>(memory));
  std::uint64_t narrow = whole;
  // The lowest bytes of a little-endian register come first, which is the only order that hosts have.
  return read(&narrow, holding);
}

void MethodType::writeResult(const Value& value, void* memory) const {
  if (!m_fillsRegister) return write(value, memory);
  std::uint64_t narrow = 0;
  write(value, &narrow);
  const bool isSigned = m_code == 'c' || m_code == 's' || m_code == 'i';
  const std::int64_t number = read(&narrow, LiveObjects::Holding::never).integerValue();
  writeAs(isSigned ? static_cast<ffi_arg>(number) : static_cast<ffi_arg>(narrow), memory);
}

Value MethodType::readStructure(const void* memory) const {
  Value result = Value::dictionary();
  const char* at = static_cast<const char*>(memory);
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    const bool isDouble = m_elements[i] == &ffi_type_double;
    result.set(m_fields[i], isDouble ? readAs<double>(at) : double{readAs<float>(at)});
    at += m_elements[i]->size;
  }
  return result;
}

void MethodType::writeStructure(const Value& value, void* memory) const {
  char* at = static_cast<char*>(memory);
  for (std::size_t i = 0; i < m_fields.size(); ++i) {
    const double number = value[m_fields[i]].realValue();
    if (m_elements[i] == &ffi_type_double) {
      writeAs(number, at);
    } else {
      writeAs(static_cast<float>(number), at);
    }
    at += m_elements[i]->size;
  }
}

std::unique_ptr<MethodSignature> MethodSignature::fromEncoding(const char* encoding) {
  constexpr std::size_t resultReceiverAndSelector = 3;
  const auto types = encoding ? splitTypeEncoding(encoding) : std::nullopt;
  if (!types || types->size() < resultReceiverAndSelector) return nullptr;
  std::unique_ptr<MethodSignature> signature(new MethodSignature());
  for (const std::string_view type : *types) {
    std::unique_ptr<MethodType> known = MethodType::fromEncoding(type);
    if (!known) return nullptr;
    if (!signature->m_result) {
      signature->m_result = std::move(known);
      continue;
    }
    if (known->isNothing()) return nullptr;
    signature->m_native.push_back(known->native());
    signature->m_arguments.push_back(std::move(known));
  }
  const auto count = static_cast<unsigned>(signature->m_native.size());
  const ffi_status status = ffi_prep_cif(&signature->m_call, FFI_DEFAULT_ABI, count, signature->m_result->native(),
                                         signature->m_native.data());
  return status == FFI_OK ? std::move(signature) : nullptr;
}

std::size_t MethodSignature::resultSize() const { return std::max(m_call.rtype->size, sizeof(ffi_arg)); }

}  // namespace vorn
