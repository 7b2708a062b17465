#include "platform/apple/Conversions.h"

#import <Foundation/Foundation.h>

#include <cstdint>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr int kDeepest = 100;

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

Value valueFromNumber(NSNumber* number) {
  static const Class booleans = [[NSNumber numberWithBool:YES] class];
  if ([number isKindOfClass:booleans]) return Value([number boolValue] != NO);
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
  if ([object isKindOfClass:[NSString class]]) return textFromFoundation(object);
  if ([object isKindOfClass:[NSNumber class]]) return valueFromNumber(object);
  if ([object isKindOfClass:[NSNull class]]) return nullptr;
  if ([object isKindOfClass:[NSArray class]]) {
    Value list = Value::array();
    NSEnumerator* items = [static_cast<NSArray*>(object) objectEnumerator];
    while (id item = [items nextObject]) list.append(valueAtDepth(item, holding, depth + 1));
    return list;
  }
  if ([object isKindOfClass:[NSDictionary class]]) {
    Value dictionary = Value::dictionary();
    NSEnumerator* keys = [static_cast<NSDictionary*>(object) keyEnumerator];
    while (id key = [keys nextObject]) {
      if (![key isKindOfClass:[NSString class]]) continue;
      addEntry(dictionary, key, [static_cast<NSDictionary*>(object) objectForKey:key], holding, depth + 1);
    }
    return dictionary;
  }
  if ([object isKindOfClass:[NSNotification class]]) {
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
  NSData* bytes = [text dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES];
  return bytes ? std::string(static_cast<const char*>([bytes bytes]), [bytes length]) : std::string();
}

}  // namespace vorn
