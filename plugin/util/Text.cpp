#include "util/Text.h"

#include <unicode/stringoptions.h>
#include <unicode/unistr.h>

namespace vorn {

namespace {

bool isAscii(char character) { return static_cast<unsigned char>(character) < 0x80; }

}  // namespace

std::string asciiLower(std::string text) {
  for (char& c : text) c = asciiLower(c);
  return text;
}

std::string asciiUpper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  }
  return text;
}

std::string caseFolded(std::string_view text) {
  std::string result;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
      .foldCase()
      .toUTF8String(result);
  return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  // Most texts are ASCII, which needs no other form of the text.
  std::size_t same = 0;
  for (; same < a.size() && same < b.size(); ++same) {
    if (!isAscii(a[same]) || !isAscii(b[same])) break;
    if (asciiLower(a[same]) != asciiLower(b[same])) return false;
  }
  if (same == a.size() && same == b.size()) return true;
  const auto unicode = [same](std::string_view text) {
    const std::string_view rest = text.substr(same);
    return icu::UnicodeString::fromUTF8(icu::StringPiece(rest.data(), static_cast<std::int32_t>(rest.size())));
  };
  return unicode(a).caseCompare(unicode(b), U_FOLD_CASE_DEFAULT) == 0;
}

}  // namespace vorn
