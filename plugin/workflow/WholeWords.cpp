#include "workflow/WholeWords.h"

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

std::string withoutWhole(std::string_view text, std::string_view wanted) {
  std::string result;
  std::size_t done = 0;
  for (std::size_t at = nextWhole(text, wanted, 0); at != kNowhere; at = nextWhole(text, wanted, done)) {
    result += text.substr(done, at - done);
    done = endWithComma(text, at + wanted.size());
  }
  return result.append(text.substr(done));
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

}  // namespace vorn
