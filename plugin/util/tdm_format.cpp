#include <cerrno>
#include <cstdio>
#include <string_view>

#include "util/tdm.h"

namespace tdm {

namespace {

constexpr int kErrnoZeroSize = 401;

int failWith(int errorValue) {
  errno = errorValue;
  return -errorValue;
}

bool holdsCountDirective(std::string_view format) {
  for (std::size_t at = format.find("%n"); at != std::string_view::npos; at = format.find("%n", at + 1)) {
    if (at == 0 || format[at - 1] != '%') return true;
  }
  return false;
}

bool fits(int length, std::size_t size) { return length >= 0 && static_cast<std::size_t>(length) < size; }

int formatOrEmpty(char* destination, std::size_t size, const char* format, std::va_list arguments) {
  if (!destination || !format) return -kNullPointer;
  if (size == 0) return -kZeroSize;
  if (size > kMaxStringSize) return -kSizeAboveLimit;
  const int length = std::vsnprintf(destination, size, format, arguments);
  if (fits(length, size)) return length;
  destination[0] = '\0';
  return -kDestinationTooSmall;
}

}  // namespace

int sprintf_s(char* destination, std::size_t size, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int result = formatOrEmpty(destination, size, format, arguments);
  va_end(arguments);
  return result;
}

int snprintf_s(char* destination, std::size_t size, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int result = formatOrEmpty(destination, size, format, arguments);
  va_end(arguments);
  return result;
}

int vsnprintf_s(char* destination, std::size_t size, const char* format, std::va_list arguments) {
  if (!destination || !format) return failWith(kNullPointer);
  if (size == 0) {
    errno = kErrnoZeroSize;
    return -kNullPointer;
  }
  if (size > kMaxStringSize) return failWith(kSizeAboveLimit);
  if (holdsCountDirective(format)) return failWith(EINVAL);
  const int length = std::vsnprintf(destination, size, format, arguments);
  destination[size - 1] = '\0';
  return length;
}

int vsprintf_s(char* destination, std::size_t size, const char* format, std::va_list arguments) {
  if (!destination || !format) return failWith(kNullPointer);
  if (holdsCountDirective(format)) return failWith(EINVAL);
  const int length = std::vsnprintf(destination, size, format, arguments);
  if (!fits(length, size)) return failWith(kDestinationTooSmall);
  destination[size - 1] = '\0';
  return length;
}

int sscanf_s(const char* text, const char* format, ...) {
  if (!text || !format) {
    errno = kNullPointer;
    return -1;
  }
  std::va_list arguments;
  va_start(arguments, format);
  const int result = std::vsscanf(text, format, arguments);
  va_end(arguments);
  return result;
}

}  // namespace tdm
