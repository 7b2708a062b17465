#include "workflow/WholeWords.h"

#include <algorithm>

#include "util/TextSearch.h"

namespace vorn {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

// Letters and digits; what is no ASCII is taken for a letter.
bool isOfWord(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool standsAlone(std::string_view text, std::size_t at, std::size_t size) {
  const std::size_t end = at + size;
  const bool goesOnBefore = at > 0 && isOfWord(text[at - 1]) && isOfWord(text[at]);
  const bool goesOnBehind = end < text.size() && isOfWord(text[end - 1]) && isOfWord(text[end]);
  return !goesOnBefore && !goesOnBehind;
}

// Where it stands next, from a position on; kNowhere when it does not.
std::size_t nextWhole(std::string_view text, std::string_view wanted, std::size_t from) {
  while (from < text.size()) {
    const std::size_t found = findText(text.substr(from), wanted);
    if (found == kNowhere) return kNowhere;
    if (standsAlone(text, from + found, wanted.size())) return from + found;
    from += found + wanted.size();
  }
  return kNowhere;
}

std::size_t endWithComma(std::string_view text, std::size_t end) {
  return end < text.size() && text[end] == ',' ? end + 1 : end;
}

// The size of the longest text that stands at the position, of many that are sorted and differ; 0 for none. With
// each character of the text fewer of them can still be it.
std::size_t longestWholeAt(std::string_view text, std::size_t at, const std::vector<std::string>& wanted) {
  std::size_t longest = 0;
  auto first = wanted.begin();
  auto last = wanted.end();
  for (std::size_t size = 0; first != last; ++size) {
    if (first->size() == size) {
      if (size > 0 && standsAlone(text, at, size)) longest = size;
      ++first;
    }
    if (at + size == text.size()) break;
    const auto next = static_cast<unsigned char>(text[at + size]);
    const auto charOf = [size](const std::string& one) { return static_cast<unsigned char>(one[size]); };
    first = std::partition_point(first, last, [&](const std::string& one) { return charOf(one) < next; });
    last = std::partition_point(first, last, [&](const std::string& one) { return charOf(one) == next; });
  }
  return longest;
}

}  // namespace

std::size_t timesInWhole(std::string_view text, std::string_view wanted) {
  std::size_t times = 0;
  for (std::size_t at = nextWhole(text, wanted, 0); at != kNowhere;
       at = nextWhole(text, wanted, at + wanted.size())) {
    ++times;
  }
  return times;
}

bool endsInWhole(std::string_view text, std::string_view wanted) {
  return !wanted.empty() && text.ends_with(wanted) &&
         standsAlone(text, text.size() - wanted.size(), wanted.size());
}

std::string withoutLastWhole(std::string_view text, std::string_view wanted) {
  std::size_t last = kNowhere;
  for (std::size_t at = nextWhole(text, wanted, 0); at != kNowhere;
       at = nextWhole(text, wanted, at + wanted.size())) {
    last = at;
  }
  if (last == kNowhere) return std::string(text);
  return replacingSpan(text, last, endWithComma(text, last + wanted.size()), "");
}

std::string withoutWhole(std::string_view text, std::vector<std::string> wanted) {
  std::sort(wanted.begin(), wanted.end());
  wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t size = longestWholeAt(text, at, wanted);
    if (size == 0) result += text[at];
    at = size == 0 ? at + 1 : endWithComma(text, at + size);
  }
  return result;
}

}  // namespace vorn
