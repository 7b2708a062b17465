#include "platform/apple/Conversions.h"

#import <Foundation/Foundation.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/apple/Ownership.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr int kDeepest = 100;
// In UTF-16 units: the converter counts bytes with 31 bits.
constexpr NSUInteger kLongestText = 700'000'000;

// The classes that have values. Asking for one by its name each time costs more than the rest of a small value.
struct ValueClasses {
  Class text = [NSString class];
  Class number = [NSNumber class];
  Class boolean = [[NSNumber numberWithBool:YES] class];
  Class null = [NSNull class];
  Class array = [NSArray class];
  Class dictionary = [NSDictionary class];
  Class notification = [NSNotification class];
};

const ValueClasses& classes() {
  static const ValueClasses all;
  return all;
}

std::string asUtf8(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8SequenceLength(text, at);
    if (isValidUtf8(text.substr(at, length))) {
      result += text.substr(at, length);
    } else {
      result += "\xEF\xBF\xBD";
    }
    at += length;
  }
  return result;
}

// A text of the host. Most that pass through a hook are never read.
class FoundationText final : public LateText {
 public:
  // Foundation's own text of the same characters: nobody changes it, and reading it runs none of the host's code.
  // One that cannot be read raises here, where the text still counts as absent.
  explicit FoundationText(NSString* text)
      : m_source(Retained<NSString*>::adopted([[NSString alloc] initWithString:text])) {}

  const std::string& text() const override {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_source.get()) {
      m_text = textFromFoundation(m_source.get());
      m_source = Retained<NSString*>();
    }
    return m_text;
  }

 private:
  mutable std::mutex m_mutex;
  // Until it is read.
  mutable Retained<NSString*> m_source;
  mutable std::string m_text;
};

// A short one costs less to make than to keep.
Value valueFromText(NSString* text) {
  constexpr NSUInteger kFewUnits = 32;
  if ([text length] <= kFewUnits) return textFromFoundation(text);
  return Value(std::make_shared<const FoundationText>(text));
}

Value valueFromNumber(NSNumber* number) {
  if ([number isKindOfClass:classes().boolean]) return Value([number boolValue] != NO);
  const char* type = [number objCType];
  if (*type == 'd' || *type == 'f') return [number doubleValue];
  if (*type == 'Q' || *type == 'L') return [number unsignedLongLongValue];
  return [number longLongValue];
}

Value valueAtDepth(id object, LiveObjects::Holding holding, int depth);

void addEntry(Value& dictionary, NSString* key, id object, LiveObjects::Holding holding, int depth) {
  dictionary.set(textFromFoundation(key), valueAtDepth(object, holding, depth));
}

Value valueAtDepth(id object, LiveObjects::Holding holding, int depth) {
  if (!object || depth > kDeepest) return {};
  // A class answers for itself, not for what its objects are.
  if (object == [object class]) return LiveObjects::instance().reference(object, holding);
  const ValueClasses& known = classes();
  if ([object isKindOfClass:known.text]) return valueFromText(object);
  if ([object isKindOfClass:known.number]) return valueFromNumber(object);
  if ([object isKindOfClass:known.null]) return nullptr;
  if ([object isKindOfClass:known.array]) {
    Value list = Value::array();
    NSEnumerator* items = [static_cast<NSArray*>(object) objectEnumerator];
    while (id item = [items nextObject]) list.append(valueAtDepth(item, holding, depth + 1));
    return list;
  }
  if ([object isKindOfClass:known.dictionary]) {
    std::vector<Value::Dictionary::Entry> entries;
    NSEnumerator* keys = [static_cast<NSDictionary*>(object) keyEnumerator];
    while (id key = [keys nextObject]) {
      if (![key isKindOfClass:known.text]) continue;
      Value value = valueAtDepth([static_cast<NSDictionary*>(object) objectForKey:key], holding, depth + 1);
      if (!value.isAbsent()) entries.emplace_back(textFromFoundation(key), std::move(value));
    }
    return Value::Dictionary(std::move(entries));
  }
  if ([object isKindOfClass:known.notification]) {
    NSNotification* notification = object;
    Value dictionary = Value::dictionary();
    addEntry(dictionary, @"name", [notification name], holding, depth + 1);
    addEntry(dictionary, @"object", [notification object], holding, depth + 1);
    addEntry(dictionary, @"userInfo", [notification userInfo], holding, depth + 1);
    return dictionary;
  }
  return LiveObjects::instance().reference(object, holding);
}

}  // namespace

id objectFromValue(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::absent: return nil;
    case Value::Kind::null: return [NSNull null];
    case Value::Kind::boolean: return [NSNumber numberWithBool:value.boolValue() ? YES : NO];
    case Value::Kind::integer: return [NSNumber numberWithLongLong:value.integerValue()];
    case Value::Kind::real: return [NSNumber numberWithDouble:value.realValue()];
    case Value::Kind::text: return foundationText(value.text());
    case Value::Kind::array: {
      NSMutableArray* list = [NSMutableArray arrayWithCapacity:value.count()];
      for (const Value& item : value.items()) {
        if (id object = objectFromValue(item)) [list addObject:object];
      }
      return list;
    }
    case Value::Kind::dictionary: {
      NSMutableDictionary* dictionary = [NSMutableDictionary dictionaryWithCapacity:value.count()];
      for (const auto& [key, entry] : value.entries()) {
        if (id object = objectFromValue(entry)) [dictionary setObject:object forKey:foundationText(key)];
      }
      return dictionary;
    }
    case Value::Kind::object: return [[LiveObjects::instance().object(value.object()) retain] autorelease];
  }
  return nil;
}

Value valueFromObject(id object, LiveObjects::Holding holding) { return valueAtDepth(object, holding, 0); }

NSString* foundationText(std::string_view text) {
  const auto make = [](std::string_view bytes) {
    return [[[NSString alloc] initWithBytes:bytes.data() length:bytes.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
  };
  return isValidUtf8(text) ? make(text) : make(asUtf8(text));
}

std::string textFromFoundation(NSString* text) {
  // Texts cross in every hooked read and write. This is a good deal quicker than asking for bytes, and a text
  // whose halves do not match is no error.
  const NSUInteger length = [text length];
  if (length > kLongestText) return "";
  std::u16string units(length, u'\0');
  [text getCharacters:reinterpret_cast<unichar*>(units.data()) range:NSMakeRange(0, length)];
  char16_t all = 0;
  for (const char16_t unit : units) all |= unit;
  // Nearly all of them are ASCII.
  if (all < 0x80) return std::string(units.begin(), units.end());
  constexpr std::size_t bytesAUnit = 3;
  constexpr UChar32 replacement = 0xFFFD;
  std::string bytes(length * bytesAUnit, '\0');
  std::int32_t written = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strToUTF8WithSub(bytes.data(), static_cast<std::int32_t>(bytes.size()), &written, units.data(),
                     static_cast<std::int32_t>(length), replacement, nullptr, &status);
  bytes.resize(U_SUCCESS(status) ? static_cast<std::size_t>(written) : 0);
  return bytes;
}

}  // namespace vorn
