#include "util/Text.h"

#include <unicode/unistr.h>

namespace vorn {

std::string caseFolded(std::string_view text) {
  std::string result;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
      .foldCase()
      .toUTF8String(result);
  return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) { return a == b || caseFolded(a) == caseFolded(b); }

}  // namespace vorn
