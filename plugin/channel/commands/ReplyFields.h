#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "util/Value.h"

namespace vorn {

// Cutting a reply of the client, in time linear in its size and without copying it.

// The fields before, between and behind the separators, but no more than the limit; what follows is not looked
// at. An empty text is one empty field. The fields live as long as the text.
std::vector<std::string_view> leadingFields(std::string_view text, char separator, std::size_t limit);

// The dictionary that a JSON text holds; absent when it is no JSON or anything but a dictionary.
Value dictionaryFromJSON(const OptionalText& text);

// The dictionary itself, or an empty one in the place of anything else.
Value dictionaryOrEmpty(const Value& value);

}  // namespace vorn
