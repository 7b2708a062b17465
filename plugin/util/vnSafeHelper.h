#pragma once

#include <cstddef>
#include <cstdint>

namespace vorn {

// The two bounded functions by which a socket's address is filled; their answers are those of tdm.
class vnSafeHelper {
 public:
  static std::int64_t vn_memcpy_s(void* destination, std::size_t destsz, const void* src, std::size_t count);
  static std::size_t vn_strnlen_s(const char* text, std::size_t strsz);
};

}  // namespace vorn
