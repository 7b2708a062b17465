#include "util/vnMd5Utils.h"

#include <string_view>

#include "util/MD5.h"

namespace vorn {

OptionalText vnMd5Utils::vnMD5Hex(const OptionalText& text) {
  if (!text) return std::nullopt;
  Halix::MD5 digest;
  digest.feed(std::string_view(*text).substr(0, text->find('\0')));
  return digest.hex();
}

}  // namespace vorn
