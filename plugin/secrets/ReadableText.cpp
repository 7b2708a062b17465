#include "secrets/ReadableText.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <optional>

namespace vorn {

namespace {

// What one place of a text says, and the place behind it.
struct Read {
  char32_t character;
  std::size_t end;
};

// More nesting than that is nobody's mistake.
constexpr int kMostNesting = 8;
constexpr std::size_t kMostBackslashes = 64;
constexpr std::size_t kLongestEntity = 10;

int valueOfHex(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

char at(std::string_view text, std::size_t place) { return place < text.size() ? text[place] : '\0'; }

std::optional<char32_t> hexAt(std::string_view text, std::size_t place, std::size_t digits) {
  char32_t value = 0;
  for (std::size_t i = place; i < place + digits; ++i) {
    const int digit = i < text.size() ? valueOfHex(text[i]) : -1;
    if (digit < 0) return std::nullopt;
    value = value * 16 + static_cast<char32_t>(digit);
  }
  return value;
}

Read plainAt(std::string_view text, std::size_t place) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  // Four bytes are the longest that a character takes.
  const auto length = static_cast<std::int32_t>(std::min<std::size_t>(text.size() - place, 4));
  std::int32_t offset = 0;
  UChar32 character = 0;
  U8_NEXT(bytes + place, offset, length, character);
  if (character < 0) return {0xFFFD, place + 1};
  return {static_cast<char32_t>(character), place + static_cast<std::size_t>(offset)};
}

std::optional<Read> percentAt(std::string_view text, std::size_t place) {
  std::array<char, 4> bytes{};
  const auto byteAt = [text](std::size_t& from) -> std::optional<char> {
    if (at(text, from) != '%') return std::nullopt;
    // "%2540" is "%40", packed once more, and so on.
    std::size_t digits = from + 1;
    while (text.substr(digits, 2) == "25" && hexAt(text, digits + 2, 2)) digits += 2;
    const auto value = hexAt(text, digits, 2);
    if (!value) return std::nullopt;
    from = digits + 2;
    return static_cast<char>(*value);
  };
  std::size_t from = place;
  const auto first = byteAt(from);
  if (!first) return std::nullopt;
  if ((static_cast<unsigned char>(*first) & 0x80U) == 0) return Read{static_cast<char32_t>(*first), from};
  bytes[0] = *first;
  std::size_t count = 1;
  std::array<std::size_t, 5> ends{place, from};
  for (; count < bytes.size(); ++count) {
    const auto next = byteAt(from);
    if (!next || (static_cast<unsigned char>(*next) & 0xC0U) != 0x80U) break;
    bytes[count] = *next;
    ends[count + 1] = from;
  }
  const Read read = plainAt(std::string_view(bytes.data(), count), 0);
  return Read{read.character, ends[read.end]};
}

// Names of entities that stand for one letter with a mark begin with that letter.
std::optional<char32_t> namedEntity(std::string_view name) {
  constexpr std::pair<std::string_view, char32_t> kNames[] = {
      {"nbsp", ' '},   {"lt", '<'},   {"gt", '>'},       {"quot", '"'},    {"apos", '\''},
      {"commat", '@'}, {"num", '#'},  {"ast", '*'},      {"colon", ':'},   {"equals", '='},
      {"period", '.'}, {"Tab", '\t'}, {"NewLine", '\n'}, {"rsquo", 0x2019}};
  for (const auto& [known, character] : kNames) {
    if (name == known) return character;
  }
  for (const std::string_view mark : {"acute", "grave", "circ", "uml", "tilde", "cedil", "ring", "caron"}) {
    if (name.size() == mark.size() + 1 && name.ends_with(mark)) return static_cast<char32_t>(name[0]);
  }
  return std::nullopt;
}

std::optional<Read> entityAt(std::string_view text, std::size_t place) {
  std::size_t from = place + 1;
  // "&amp;#64;" is "&#64;", packed once more.
  for (int i = 0; i < kMostNesting && text.substr(from, 4) == "amp;"; ++i) from += 4;
  if (at(text, from) == '#') {
    const bool isHex = (at(text, from + 1) | 0x20) == 'x';
    const std::size_t begin = from + (isHex ? 2 : 1);
    char32_t value = 0;
    std::size_t end = begin;
    for (; end < text.size() && end < begin + kLongestEntity; ++end) {
      const int digit = valueOfHex(text[end]);
      if (digit < 0 || (!isHex && digit > 9)) break;
      value = value * (isHex ? 16 : 10) + static_cast<char32_t>(digit);
      if (value > 0x10FFFF) return std::nullopt;
    }
    if (end == begin) return std::nullopt;
    return Read{value, at(text, end) == ';' ? end + 1 : end};
  }
  std::size_t end = from;
  while (end < text.size() && end < from + kLongestEntity && isAsciiLetter(text[end])) ++end;
  if (at(text, end) == ';') {
    if (const auto named = namedEntity(text.substr(from, end - from))) return Read{*named, end + 1};
  }
  if (from > place + 1) return Read{'&', from};
  return std::nullopt;
}

// JSON and iCalendar both write a backslash before what they escape, and once more when packed.
std::optional<Read> escapeAt(std::string_view text, std::size_t place) {
  std::size_t end = place;
  while (at(text, end) == '\\' && end < place + kMostBackslashes) ++end;
  switch (at(text, end)) {
    case 'n':
    case 'N': return Read{'\n', end + 1};
    case 'r': return Read{'\r', end + 1};
    case 't': return Read{'\t', end + 1};
    case '"':
    case '/':
    case ',':
    case ';': return Read{static_cast<char32_t>(text[end]), end + 1};
    case 'u': {
      const auto unit = hexAt(text, end + 1, 4);
      if (!unit) return std::nullopt;
      return Read{*unit, end + 5};
    }
    default: return std::nullopt;
  }
}

Read readAt(std::string_view text, std::size_t place) {
  std::optional<Read> read;
  switch (text[place]) {
    case '%': read = percentAt(text, place); break;
    case '&': read = entityAt(text, place); break;
    case '\\': read = escapeAt(text, place); break;
    default: break;
  }
  if (!read) return plainAt(text, place);
  // A sign that was written as an escape may begin one: JSON packs an entity as "\u0026#64;".
  if (read->character == '&' && at(text, read->end) == '#') {
    if (const auto inner = entityAt(text, read->end - 1)) return *inner;
  }
  return *read;
}

// Where iCalendar breaks a line in two, nothing is meant.
std::size_t endOfFold(std::string_view text, std::size_t place) {
  if (text.substr(place, 3) == "\r\n " || text.substr(place, 3) == "\r\n\t") {
    const char next = at(text, place + 3);
    return next == ' ' || next == '\t' || next == '\r' ? place : place + 3;
  }
  return place;
}

// What stands for itself, as nearly all of a text does.
bool isPlainSign(char c) { return c >= ' ' && c <= '~' && c != '%' && c != '&' && c != '\\'; }

bool isMark(char32_t character) {
  if (character < 0x80) return false;
  const auto c = static_cast<UChar32>(character);
  return u_charType(c) == U_NON_SPACING_MARK || u_hasBinaryProperty(c, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

char32_t foldedCharacter(char32_t character) {
  if (character < 0x80) return character >= 'A' && character <= 'Z' ? character - 'A' + 'a' : character;
  if (character >= 0xFF01 && character <= 0xFF5E) return foldedCharacter(character - 0xFEE0);
  if (character == 0xFE6B) return '@';
  auto c = static_cast<UChar32>(character);
  if (u_isUWhiteSpace(c) != 0 && character != 0x2028 && character != 0x2029) return ' ';
  constexpr char32_t kFirstHangul = 0xAC00;
  constexpr char32_t kLastHangul = 0xD7A3;
  if (character < kFirstHangul || character > kLastHangul) {
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const normalizer = unorm2_getNFDInstance(&status);
    std::array<UChar, 8> decomposed{};
    const std::int32_t length = normalizer == nullptr ? -1
                                                      : unorm2_getDecomposition(normalizer, c, decomposed.data(),
                                                                                decomposed.size(), &status);
    if (length > 0 && U_SUCCESS(status)) U16_GET(decomposed.data(), 0, 0, length, c);
  }
  return static_cast<char32_t>(u_foldCase(c, U_FOLD_CASE_DEFAULT));
}

}  // namespace

ReadableText::ReadableText(std::string_view text) : m_text(text) {
  m_units.reserve(text.size());
  for (std::size_t place = 0; place < text.size();) {
    if (isPlainSign(text[place])) {
      const char c = text[place];
      m_units.push_back({static_cast<char32_t>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c), place});
      ++place;
      continue;
    }
    if (const std::size_t end = endOfFold(text, place); end > place) {
      // Whatever stood before it has these bytes.
      if (m_units.empty()) m_units.push_back({0, place});
      place = end;
      continue;
    }
    const Read read = readAt(text, place);
    if (!isMark(read.character) || m_units.empty()) m_units.push_back({foldedCharacter(read.character), place});
    place = read.end;
  }
  m_first = m_units.data();
  m_size = m_units.size();
}

std::size_t ReadableText::placeOf(std::size_t byte) const {
  const auto found = std::lower_bound(m_units.begin(), m_units.end(), byte,
                                      [](const Unit& unit, std::size_t wanted) { return unit.begin < wanted; });
  return static_cast<std::size_t>(found - m_units.begin());
}

std::u32string ReadableText::folded(std::string_view words) {
  std::u32string result;
  for (std::size_t place = 0; place < words.size();) {
    const Read read = plainAt(words, place);
    if (!isMark(read.character)) result += foldedCharacter(read.character);
    place = read.end;
  }
  return result;
}

}  // namespace vorn
