#include <cstdint>
#include <cstring>

#include "util/tdm.h"

namespace tdm {

namespace {

bool areasOverlap(const void* first, const void* second, std::size_t count) {
  const auto a = reinterpret_cast<std::uintptr_t>(first);
  const auto b = reinterpret_cast<std::uintptr_t>(second);
  return a < b ? b - a < count : a - b < count;
}

int testSizes(std::size_t size, std::size_t count) {
  if (size == 0 || count == 0) return kZeroSize;
  if (size > kMaxMemorySize) return kSizeAboveLimit;
  return count > size ? kDestinationTooSmall : 0;
}

}  // namespace

int memcpy_s(void* destination, std::size_t size, const void* source, std::size_t count) {
  if (!destination || !source) return kNullPointer;
  if (const int code = testSizes(size, count)) return code;
  if (areasOverlap(destination, source, count)) return kOverlap;
  std::memcpy(destination, source, count);
  return 0;
}

int memmove_s(void* destination, std::size_t size, const void* source, std::size_t count) {
  if (!destination || !source) return kNullPointer;
  if (const int code = testSizes(size, count)) return code;
  std::memmove(destination, source, count);
  return 0;
}

int memset_s(void* destination, std::size_t size, int value, std::size_t count) {
  if (!destination) return kNullPointer;
  if (const int code = testSizes(size, count)) return code;
  std::memset(destination, value, count);
  return 0;
}

int vn_memset_s(void* destination, std::size_t size, int value, std::size_t count) {
  if (size == 0 || count == 0) return 0;
  return memset_s(destination, size, value, count);
}

int memcmp_s(const void* first, std::size_t size, const void* second, std::size_t count, int* result) {
  if (!first || !second || !result) return kNullPointer;
  if (size == 0 || count == 0 || count > size) return kZeroSize;
  if (size > kMaxMemorySize) return kSizeAboveLimit;
  const int order = std::memcmp(first, second, count);
  *result = order < 0 ? -1 : order > 0 ? 1 : 0;
  return 0;
}

}  // namespace tdm
