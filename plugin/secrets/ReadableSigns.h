#pragma once

#include <unicode/uchar.h>

#include "secrets/ReadableText.h"

namespace vorn {

// What the characters of a ReadableText are to the rules.

inline bool isDigitSign(char32_t c) { return c >= '0' && c <= '9'; }
inline bool isLetterSign(char32_t c) {
  return c < 0x80 ? c >= 'a' && c <= 'z' : u_isalpha(static_cast<UChar32>(c)) != 0;
}
// Scripts in which words stand without blanks between.
inline bool isOfWordlessScript(char32_t c) { return c >= 0x0E00 && (c < 0x0E80 || c >= 0x2E80); }
inline bool isLineEnd(char32_t c) { return c == '\n' || c == '\r' || c == 0x2028 || c == 0x2029; }
inline bool isBlankSign(char32_t c) { return c == ' ' || c == '\t' || isLineEnd(c); }
inline bool isDash(char32_t c) { return c == '-' || (c >= 0x2010 && c <= 0x2015); }

// The place behind the words when they stand at that place of the text, or 0. A blank of theirs stands for one or
// a few blanks or for a hyphen, and a straight apostrophe for a curved one as well.
inline std::size_t endOfWords(const ReadableText& text, std::size_t at, std::u32string_view words) {
  constexpr std::size_t kMostBlanks = 4;
  for (const char32_t wanted : words) {
    const char32_t there = text[at];
    if (wanted == ' ') {
      if (!isBlankSign(there) && !isDash(there)) return 0;
      for (std::size_t i = 0; i < kMostBlanks && isBlankSign(text[at + 1]); ++i) ++at;
    } else if (there != wanted && !(wanted == '\'' && there == 0x2019)) {
      return 0;
    }
    ++at;
  }
  return at;
}

// Whether words of a table that hide nothing stand there, such as "required".
bool standsNoSecret(const ReadableText& text, std::size_t at);

}  // namespace vorn
