#include "util/vnSafeHelper.h"

#include "util/tdm.h"

namespace vorn {

std::int64_t vnSafeHelper::vn_memcpy_s(void* destination, std::size_t destsz, const void* src, std::size_t count) {
  return tdm::memcpy_s(destination, destsz, src, count);
}

std::size_t vnSafeHelper::vn_strnlen_s(const char* text, std::size_t strsz) { return tdm::strnlen_s(text, strsz); }

}  // namespace vorn
