#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorn {

// Searches whose time is linear in the text and what is searched for together, whatever they hold. Positions are
// bytes; not found is std::string_view::npos, and so is every search for the empty text.

// The first occurrence; in UTF-16 the positions are units.
std::size_t findText(std::string_view text, std::string_view wanted);
std::size_t findText(std::u16string_view text, std::u16string_view wanted);
// The last occurrence, upper- and lower-case letters of ASCII being the same. What is looked for is markup and
// other fixed text; letters that change their length with their case could only move the positions.
std::size_t findLastIgnoringCase(std::string_view text, std::string_view wanted);
// The first occurrence in the same way.
std::size_t findIgnoringCase(std::string_view text, std::string_view wanted);

// The text with every occurrence replaced, left to right; what a replacement brings in is not searched again. What
// is wanted is short and not empty.
std::string replacingAll(std::string_view text, std::string_view wanted, std::string_view replacement);

// The text with the span from start to end, which lie in it in this order, replaced; made in one allocation of its
// final size.
std::string replacingSpan(std::string_view text, std::size_t start, std::size_t end, std::string_view replacement);

}  // namespace vorn
