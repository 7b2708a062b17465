#include "platform/apple/TypeEncoding.h"

#include <cstddef>

namespace vorn {

namespace {

constexpr std::string_view kQualifiers = "rnNoORVA|";
constexpr std::string_view kOneLetterTypes = "cCBsSiIlLqQfdDtTv#:*?%";
constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kNone = std::string_view::npos;

std::size_t afterAny(std::string_view letters, std::string_view encoding, std::size_t at) {
  const std::size_t end = encoding.find_first_not_of(letters, at);
  return end == kNone ? encoding.size() : end;
}

// Behind the bracket that closes the one at the place, whatever lies between; names in quotes may hold any letter.
std::size_t afterBrackets(std::string_view encoding, std::size_t at) {
  std::size_t depth = 0;
  for (; at < encoding.size(); ++at) {
    const char c = encoding[at];
    if (c == '"') {
      at = encoding.find('"', at + 1);
      if (at == kNone) return kNone;
    } else if (c == '{' || c == '(' || c == '[') {
      ++depth;
    } else if ((c == '}' || c == ')' || c == ']') && --depth == 0) {
      return at + 1;
    }
  }
  return kNone;
}

// An object may tell its class in quotes, and a block, which is an object, the types of its call.
std::size_t afterObject(std::string_view encoding, std::size_t at) {
  if (at < encoding.size() && encoding[at] == '?') ++at;
  if (at == encoding.size() || (encoding[at] != '"' && encoding[at] != '<')) return at;
  const std::size_t end = encoding.find(encoding[at] == '"' ? '"' : '>', at + 1);
  return end == kNone ? kNone : end + 1;
}

// kNone when no type that is known begins there.
std::size_t afterType(std::string_view encoding, std::size_t at) {
  while (at < encoding.size() && (encoding[at] == '^' || kQualifiers.find(encoding[at]) != kNone)) ++at;
  if (at == encoding.size()) return kNone;
  switch (encoding[at]) {
    case '{':
    case '(':
    case '[': return afterBrackets(encoding, at);
    case '@': return afterObject(encoding, at + 1);
    // A vector: its size and its element in brackets.
    case '!': return at + 1 < encoding.size() && encoding[at + 1] == '[' ? afterBrackets(encoding, at + 1) : kNone;
    // A complex number: its part.
    case 'j': return at + 1 < encoding.size() ? at + 2 : kNone;
    default: return kOneLetterTypes.find(encoding[at]) == kNone ? kNone : at + 1;
  }
}

}  // namespace

std::optional<std::vector<std::string_view>> splitTypeEncoding(std::string_view encoding) {
  std::vector<std::string_view> types;
  for (std::size_t at = 0; at < encoding.size();) {
    const std::size_t begin = afterAny(kQualifiers, encoding, at);
    const std::size_t end = afterType(encoding, begin);
    if (end == kNone) return std::nullopt;
    types.push_back(encoding.substr(begin, end - begin));
    at = afterAny("+-", encoding, end);
    at = afterAny(kDigits, encoding, at);
  }
  return types;
}

}  // namespace vorn
