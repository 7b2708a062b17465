#include "util/Utf16.h"

#include <simdjson.h>

#include <algorithm>

namespace vorn {

namespace {

unsigned byteAt(std::string_view text, std::size_t position) { return static_cast<unsigned char>(text[position]); }

bool isContinuation(std::string_view text, std::size_t position) {
  return position < text.size() && (byteAt(text, position) & 0xC0) == 0x80;
}

// The second byte's range is narrower after some first bytes: that excludes overlong forms, surrogates and
// everything beyond the last code point.
bool isValidSecond(unsigned first, unsigned second) {
  switch (first) {
    case 0xE0: return second >= 0xA0;
    case 0xED: return second <= 0x9F;
    case 0xF0: return second >= 0x90;
    case 0xF4: return second <= 0x8F;
    default: return true;
  }
}

std::size_t unitsOf(std::size_t sequenceLength) { return sequenceLength == 4 ? 2 : 1; }

// Walks to the last character boundary at or before the given number of units.
std::size_t walkUnits(std::string_view text, std::size_t units) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t length = utf8SequenceLength(text, at);
    if (unitsOf(length) > units) break;
    units -= unitsOf(length);
    at += length;
  }
  return at;
}

}  // namespace

std::size_t utf8SequenceLength(std::string_view text, std::size_t position) {
  const unsigned first = byteAt(text, position);
  const std::size_t length = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text, position + i)) return 1;
  }
  if (length > 1 && !isValidSecond(first, byteAt(text, position + 1))) return 1;
  return length;
}

char32_t characterAt(std::string_view text, std::size_t position) {
  const std::size_t length = utf8SequenceLength(text, position);
  const unsigned first = byteAt(text, position);
  if (length == 1) return first < 0x80 ? first : 0xFFFD;
  char32_t character = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) character = (character << 6) | (byteAt(text, position + i) & 0x3F);
  return character;
}

std::size_t previousCharacter(std::string_view text, std::size_t position) {
  for (std::size_t length = 2; length <= 4 && length <= position; ++length) {
    if (utf8SequenceLength(text, position - length) == length) return position - length;
  }
  return position - 1;
}

bool isValidUtf8(std::string_view text) { return simdjson::validate_utf8(text.data(), text.size()); }

std::size_t utf16Length(std::string_view text) { return utf16Position(text, text.size()); }

std::string_view utf16Prefix(std::string_view text, std::size_t units) {
  return text.substr(0, walkUnits(text, units));
}

std::string_view utf16Suffix(std::string_view text, std::size_t units) {
  const std::size_t length = utf16Length(text);
  if (length <= units) return text;
  const std::size_t skipped = length - units;
  std::size_t at = walkUnits(text, skipped);
  // Half of the character at the cut would be kept.
  if (utf16Position(text, at) < skipped) at += utf8SequenceLength(text, at);
  return text.substr(at);
}

std::size_t utf16Position(std::string_view text, std::size_t bytePosition) {
  const std::size_t end = std::min(bytePosition, text.size());
  std::size_t units = 0;
  for (std::size_t at = 0; at < end;) {
    const std::size_t length = utf8SequenceLength(text, at);
    if (at + length > end) break;
    units += unitsOf(length);
    at += length;
  }
  return units;
}

std::size_t bytePosition(std::string_view text, std::size_t utf16Position) {
  return walkUnits(text, utf16Position);
}

}  // namespace vorn
