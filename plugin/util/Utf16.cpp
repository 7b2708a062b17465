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

// A byte outside any valid sequence as one unit: a half that no valid text holds alone.
constexpr char16_t kStrayByte = 0xDC00;

bool isStrayByte(char16_t unit) { return unit >= kStrayByte + 0x80 && unit <= kStrayByte + 0xFF; }

char32_t characterOf(char16_t first, char16_t second) {
  return 0x10000 + ((static_cast<char32_t>(first) - 0xD800) << 10) + (static_cast<char32_t>(second) - 0xDC00);
}

void appendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) return append(character);
  if (character < 0x800) {
    append(0xC0 | (character >> 6));
  } else {
    if (character < 0x10000) {
      append(0xE0 | (character >> 12));
    } else {
      append(0xF0 | (character >> 18));
      append(0x80 | ((character >> 12) & 0x3F));
    }
    append(0x80 | ((character >> 6) & 0x3F));
  }
  append(0x80 | (character & 0x3F));
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

std::u16string toUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8SequenceLength(text, at);
    const char32_t character = characterAt(text, at);
    if (length == 4) {
      units += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
      const bool isStray = length == 1 && byteAt(text, at) >= 0x80;
      units += static_cast<char16_t>(isStray ? kStrayByte + byteAt(text, at) : character);
    }
    at += length;
  }
  return units;
}

std::string toUtf8(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char16_t unit = units[i];
    if (isHighSurrogate(unit) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
      appendUtf8(text, characterOf(unit, units[++i]));
    } else if (isStrayByte(unit)) {
      text += static_cast<char>(static_cast<unsigned char>(unit - kStrayByte));
    } else {
      appendUtf8(text, isHighSurrogate(unit) || isLowSurrogate(unit) ? 0xFFFD : unit);
    }
  }
  return text;
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
