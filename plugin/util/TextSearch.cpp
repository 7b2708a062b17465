#include "util/TextSearch.h"

#include <vector>

#include "util/Text.h"

namespace vorn {

namespace {

// The search of Knuth, Morris and Pratt over two readable sequences; both are given as functions from index to
// character, so that a backward search reads them from their ends.
template <typename TextAt, typename WantedAt>
std::size_t firstMatch(std::size_t textSize, const TextAt& textAt, std::size_t wantedSize,
                       const WantedAt& wantedAt) {
  if (wantedSize == 0 || wantedSize > textSize) return std::string_view::npos;
  std::vector<std::size_t> fallback(wantedSize, 0);
  for (std::size_t i = 1, matched = 0; i < wantedSize; ++i) {
    while (matched > 0 && wantedAt(i) != wantedAt(matched)) matched = fallback[matched - 1];
    if (wantedAt(i) == wantedAt(matched)) ++matched;
    fallback[i] = matched;
  }
  for (std::size_t i = 0, matched = 0; i < textSize; ++i) {
    while (matched > 0 && textAt(i) != wantedAt(matched)) matched = fallback[matched - 1];
    if (textAt(i) == wantedAt(matched)) ++matched;
    if (matched == wantedSize) return i + 1 - wantedSize;
  }
  return std::string_view::npos;
}

template <typename View>
std::size_t firstExactMatch(View text, View wanted) {
  return firstMatch(
      text.size(), [text](std::size_t i) { return text[i]; }, wanted.size(),
      [wanted](std::size_t i) { return wanted[i]; });
}

}  // namespace

std::size_t findText(std::string_view text, std::string_view wanted) { return firstExactMatch(text, wanted); }

std::size_t findText(std::u16string_view text, std::u16string_view wanted) {
  return firstExactMatch(text, wanted);
}

std::size_t findIgnoringCase(std::string_view text, std::string_view wanted) {
  return firstMatch(
      text.size(), [text](std::size_t i) { return asciiLower(text[i]); }, wanted.size(),
      [wanted](std::size_t i) { return asciiLower(wanted[i]); });
}

std::size_t findLastIgnoringCase(std::string_view text, std::string_view wanted) {
  const auto fromEnd = [](std::string_view read) {
    return [read](std::size_t i) { return asciiLower(read[read.size() - 1 - i]); };
  };
  const std::size_t found = firstMatch(text.size(), fromEnd(text), wanted.size(), fromEnd(wanted));
  return found == std::string_view::npos ? std::string_view::npos : text.size() - found - wanted.size();
}

std::string replacingAll(std::string_view text, std::string_view wanted, std::string_view replacement) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t at = text.find(wanted);
    result += text.substr(0, at);
    if (at == std::string_view::npos) return result;
    result += replacement;
    text.remove_prefix(at + wanted.size());
  }
}

std::string replacingSpan(std::string_view text, std::size_t start, std::size_t end,
                          std::string_view replacement) {
  std::string result;
  result.reserve(text.size() - (end - start) + replacement.size());
  result.append(text.substr(0, start)).append(replacement).append(text.substr(end));
  return result;
}

}  // namespace vorn
