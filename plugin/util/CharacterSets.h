#pragma once

#include <string_view>
#include <vector>

namespace vorn {

// The platform's character sets, and the cuts made with them over UTF-8 text. A byte that belongs to no valid
// character is in none of the sets. All in linear time.

// A blank of Unicode (category Zs) or the tab.
bool isWhitespace(char32_t character);
// U+000A to U+000D, U+0085, U+2028, U+2029.
bool isNewline(char32_t character);
bool isWhitespaceOrNewline(char32_t character);
// A decimal digit of any script.
bool isDecimalDigit(char32_t character);

using CharacterSet = bool (*)(char32_t);

// The part of the text between the first and the last character outside the set.
std::string_view trimmed(std::string_view text, CharacterSet set);
// The part of the text before the first character outside the set.
std::string_view leading(std::string_view text, CharacterSet set);
// The pieces between newline characters, empty ones too; one piece for a text without any.
std::vector<std::string_view> splitLines(std::string_view text);

}  // namespace vorn
