#pragma once

#include <cstdint>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Looking for one of the people whom an account may schedule for, in a list of dictionaries as "bosses" is. Texts
// are compared without case. Any thread; no state.

// The index of the first one whose text under the key is the wanted one; -1 when there is none, and when nothing
// or the empty text is wanted.
std::int64_t indexOfPerson(const Value& people, std::string_view key, const OptionalText& wanted);
// The first one with that address; absent where the index would be -1.
Value personWithEmail(const Value& people, const OptionalText& email);

}  // namespace vorn
