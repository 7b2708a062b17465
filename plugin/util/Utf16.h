#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorn {

// Lengths and positions in UTF-16 units over UTF-8 text: a character outside the basic plane counts two, every
// other one counts one. A byte that belongs to no valid sequence counts one. All in time linear in the text.

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

std::size_t utf16Length(std::string_view text);

// The first units of the text; the whole text when it is no longer. A character of which only one half would fit
// is left out whole.
std::string_view utf16Prefix(std::string_view text, std::size_t units);
// The last units of the text, in the same way.
std::string_view utf16Suffix(std::string_view text, std::size_t units);

// The units before a byte position; a position inside a character counts from the character's start, one behind
// the end is the end.
std::size_t utf16Position(std::string_view text, std::size_t bytePosition);
// The byte position of a unit position; a position inside a surrogate pair is the character's start, one behind
// the end is the end.
std::size_t bytePosition(std::string_view text, std::size_t utf16Position);

// The text in UTF-16 units, for work in which many positions count, and the way back. A byte that belongs to no
// valid sequence becomes one unit of U+DC80 to U+DCFF, and comes back as that byte; any other half of a pair comes
// back as U+FFFD.
std::u16string toUtf16(std::string_view text);
std::string toUtf8(std::u16string_view units);

// True when the whole text is UTF-8 as the standard has it: no overlong form, no surrogate, nothing beyond
// U+10FFFF.
bool isValidUtf8(std::string_view text);

// The bytes of the character at a byte position, which is inside the text: 1 to 4, and 1 for a byte that begins
// no valid sequence.
std::size_t utf8SequenceLength(std::string_view text, std::size_t position);
// The character at a byte position, which is inside the text; U+FFFD for a byte that begins no valid sequence.
char32_t characterAt(std::string_view text, std::size_t position);
// The byte position of the character that ends at a byte position above 0.
std::size_t previousCharacter(std::string_view text, std::size_t position);

}  // namespace vorn
