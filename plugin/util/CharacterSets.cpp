#include "util/CharacterSets.h"

#include <unicode/uchar.h>

#include "util/Utf16.h"

namespace vorn {

bool isWhitespace(char32_t character) {
  if (character < 0x80) return character == ' ' || character == '\t';
  return u_charType(static_cast<UChar32>(character)) == U_SPACE_SEPARATOR;
}

bool isNewline(char32_t character) {
  return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 ||
         character == 0x2029;
}

bool isWhitespaceOrNewline(char32_t character) { return isWhitespace(character) || isNewline(character); }

bool isDecimalDigit(char32_t character) {
  if (character < 0x80) return character >= '0' && character <= '9';
  return u_charType(static_cast<UChar32>(character)) == U_DECIMAL_DIGIT_NUMBER;
}

std::string_view trimmed(std::string_view text, CharacterSet set) {
  std::size_t begin = leading(text, set).size();
  std::size_t end = text.size();
  while (end > begin) {
    const std::size_t last = previousCharacter(text, end);
    if (!set(characterAt(text, last))) break;
    end = last;
  }
  return text.substr(begin, end - begin);
}

std::string_view leading(std::string_view text, CharacterSet set) {
  std::size_t end = 0;
  while (end < text.size() && set(characterAt(text, end))) end += utf8SequenceLength(text, end);
  return text.substr(0, end);
}

std::vector<std::string_view> splitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8SequenceLength(text, at);
    if (isNewline(characterAt(text, at))) {
      lines.push_back(text.substr(begin, at - begin));
      begin = at + length;
    }
    at += length;
  }
  lines.push_back(text.substr(begin));
  return lines;
}

}  // namespace vorn
