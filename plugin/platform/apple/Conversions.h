#pragma once

#include <objc/objc.h>

#include <string>
#include <string_view>

#include "platform/apple/LiveObjects.h"
#include "util/Value.h"

@class NSString;

namespace vorn {

// Foundation's objects and our values, both ways. Main thread only.

// An autoreleased object. Absent, and an object that has died, give nil. Numbers keep their kind; null is NSNull.
id objectFromValue(const Value& value);
// Nil gives absent. Text, numbers, NSNull, arrays and dictionaries become values, a notification a dictionary of
// its "name", "object" and "userInfo"; entries under keys that are no texts are left out, and what lies deeper
// than a hundred containers is. Everything else, dates included, stays an object of the host.
Value valueFromObject(id object, LiveObjects::Holding holding);

// An autoreleased text. What is not UTF-8 shows as the replacement character.
NSString* foundationText(std::string_view text);
// "" for nil. A lone surrogate shows as the replacement character.
std::string textFromFoundation(NSString* text);

}  // namespace vorn
