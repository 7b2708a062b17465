#pragma once

#include "util/Value.h"

namespace vorn {

// The null test, and JSON to and from text. Any thread; no state. The only report of a failure is the absent
// result.
class vStringUtils {
 public:
  // True for absence and for the null object; false for everything else, the empty text too.
  static bool isNullString(const Value& object);

  // Pretty-printed JSON in UTF-8, two blanks a level, keys in the order of the dictionary. Absent for anything but
  // a dictionary or an array, and when it holds something that JSON has no form for: a host object, a number that
  // is not finite, text that is not UTF-8, nesting beyond 512 levels.
  static OptionalText toJSONData(const Value& content);
  static OptionalText toJSONString(const Value& content);

  // Reads JSON in UTF-8. Any value may stand at the top, so a caller that expects a dictionary must be ready for
  // a bare number. Whole numbers keep 64 bits, those above the signed range as their bit pattern; of equal keys
  // the last one counts. Absent for absence and for everything that is not JSON, for a whole number beyond 64
  // bits and for nesting beyond 512 levels.
  static Value toArrayOrNSDictionaryWithData(const OptionalText& data);
  static Value toArrayOrNSDictionary(const OptionalText& text);

  // The bytes of the text in UTF-8, which it is kept in; absent for absence. Nobody calls it: the reader above
  // takes the text where it lies.
  static OptionalText stringToNSData(const OptionalText& text);
};

}  // namespace vorn
