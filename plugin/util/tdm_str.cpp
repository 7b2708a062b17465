#include <algorithm>
#include <cstdint>
#include <cwchar>

#include "util/tdm.h"

namespace tdm {

namespace {

constexpr std::size_t kMaxDelimiters = 64;
constexpr std::size_t kWholeText = SIZE_MAX;

// Copies up to and with the zero byte, or count characters and a zero byte of its own. The copy that moves upward
// meets the other string in the destination, the one that moves downward meets it in the source.
int copyText(char* destination, std::size_t size, const char* source, std::size_t count) {
  const bool movesUp = reinterpret_cast<std::uintptr_t>(destination) < reinterpret_cast<std::uintptr_t>(source);
  const char* const boundary = movesUp ? source : destination;
  for (std::size_t i = 0; i < size; ++i) {
    if ((movesUp ? destination + i : source + i) == boundary) return kOverlap;
    destination[i] = i < count ? source[i] : '\0';
    if (destination[i] == '\0') return 0;
  }
  return kDestinationTooSmall;
}

enum class Membership { inside, outside, unknown };

Membership membership(char c, const char* delimiters) {
  for (std::size_t i = 0; i < kMaxDelimiters; ++i) {
    if (delimiters[i] == '\0') return Membership::outside;
    if (delimiters[i] == c) return Membership::inside;
  }
  return delimiters[kMaxDelimiters] == '\0' ? Membership::outside : Membership::unknown;
}

}  // namespace

int strcpy_s(char* destination, std::size_t size, const char* source) {
  if (!destination || !source) return kNullPointer;
  if (size == 0) return kZeroSize;
  if (size > kMaxStringSize) return kSizeAboveLimit;
  return copyText(destination, size, source, kWholeText);
}

int strncpy_s(char* destination, std::size_t size, const char* source, std::size_t count) {
  if (!destination || !source) return kNullPointer;
  if (size > kMaxStringSize || count > kMaxStringSize) return kSizeAboveLimit;
  if (size == 0 || count == 0) return kZeroSize;
  if (count > size) return kDestinationTooSmall;
  return copyText(destination, size, source, count);
}

int strcat_s(char* destination, std::size_t size, const char* source) {
  if (!destination || !source) return kNullPointer;
  if (size > kMaxMemorySize) return kSizeAboveLimit;
  if (size == 0) return kZeroSize;
  const std::size_t searched = std::min(size, kMaxStringSize);
  const std::size_t end = strnlen_s(destination, searched);
  if (end >= searched) return kDestinationTooSmall;
  return copyText(destination + end, size - end, source, kWholeText);
}

std::size_t strnlen_s(const char* text, std::size_t limit) {
  if (!text || limit > kMaxStringSize) return 0;
  const std::size_t end = std::max<std::size_t>(limit, 1);
  return static_cast<std::size_t>(std::find(text, text + end, '\0') - text);
}

std::size_t wcsnlen_s(const wchar_t* text, std::size_t limit) {
  if (!text || limit > kMaxStringSize) return 0;
  return std::wcslen(text);
}

char* strtok_s(char* text, std::size_t* remainingSize, const char* delimiters, char** savedPosition) {
  if (!remainingSize || !delimiters || !savedPosition) return nullptr;
  if (*remainingSize > kMaxStringSize) return nullptr;
  char* at = text ? text : *savedPosition;
  if (!at) return nullptr;
  char* token = nullptr;
  for (std::size_t left = *remainingSize; left > 0; ++at, --left) {
    if (*at == '\0') {
      *savedPosition = at;
      *remainingSize = left;
      return token;
    }
    const Membership found = membership(*at, delimiters);
    if (found == Membership::unknown) break;
    if (found == Membership::outside) {
      if (!token) token = at;
    } else if (token) {
      *at = '\0';
      *savedPosition = at + 1;
      *remainingSize = left - 1;
      return token;
    }
  }
  *savedPosition = nullptr;
  return nullptr;
}

}  // namespace tdm
