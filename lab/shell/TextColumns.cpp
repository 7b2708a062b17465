#include "lab/shell/TextColumns.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "util/Utf16.h"

namespace vornlab {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// How many characters at the beginning are such as most of what is printed: of a byte and a column each, and
// nobody has to be asked about them.
std::size_t plainAtBegin(std::string_view text) {
  const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
}

// What has no place of its own on a line, or changes the direction of what follows.
bool movesTheCursor(UChar32 character) {
  switch (u_charType(character)) {
    case U_CONTROL_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR: return true;
    default: return u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0;
  }
}

std::size_t widthOf(UChar32 character) {
  switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR: return 0;
    default: break;
  }
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

// The byte behind the last character that has room, and how many columns are taken up to there.
struct Cut {
  std::size_t bytes = 0;
  std::size_t columns = 0;
};

Cut cutAt(std::string_view text, std::size_t columns) {
  Cut cut;
  while (cut.bytes < text.size()) {
    if (const std::size_t plain = plainAtBegin(text.substr(cut.bytes, columns - cut.columns)); plain > 0) {
      cut.columns += plain;
      cut.bytes += plain;
      continue;
    }
    const std::size_t width = widthOf(static_cast<UChar32>(vorn::characterAt(text, cut.bytes)));
    if (cut.columns + width > columns) break;
    cut.columns += width;
    cut.bytes += vorn::utf8SequenceLength(text, cut.bytes);
  }
  return cut;
}

template <typename Instead>
std::string withoutControls(std::string_view text, const Instead& instead) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (const std::size_t plain = plainAtBegin(text.substr(at)); plain > 0) {
      result += text.substr(at, plain);
      at += plain;
      continue;
    }
    const char32_t character = vorn::characterAt(text, at);
    const std::size_t length = vorn::utf8SequenceLength(text, at);
    const bool isNoUtf8 = character == kReplacement && length == 1;
    if (isNoUtf8 || movesTheCursor(static_cast<UChar32>(character))) {
      result += instead(character);
    } else {
      result += text.substr(at, length);
    }
    at += length;
  }
  return result;
}

}  // namespace

std::string onTerminal(std::string_view text) {
  return withoutControls(text, [](char32_t) { return std::string(" "); });
}

std::string jsonOnTerminal(std::string_view json) {
  return withoutControls(json, [](char32_t character) {
    // What parts its lines.
    if (character == '\n') return std::string("\n");
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(character));
    return std::string(escape.data());
  });
}

std::size_t columnsOf(std::string_view text) { return cutAt(text, std::string_view::npos).columns; }

std::string cutToColumns(std::string_view text, std::size_t columns) {
  const Cut whole = cutAt(text, columns);
  if (whole.bytes == text.size() || columns == 0) return std::string(text.substr(0, whole.bytes));
  return std::string(text.substr(0, cutAt(text, columns - 1).bytes)) + "…";
}

std::string filledToColumns(std::string_view text, std::size_t columns) {
  std::string result = cutToColumns(text, columns);
  return result + std::string(columns - columnsOf(result), ' ');
}

}  // namespace vornlab
