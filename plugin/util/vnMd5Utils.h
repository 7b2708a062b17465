#pragma once

#include "util/Value.h"

namespace vorn {

// The digest that stands for a text.
class vnMd5Utils {
 public:
  // MD5 of the text's UTF-8 bytes up to the first zero byte, as 32 lower-case hexadecimal digits; absent for
  // absence. Any thread.
  static OptionalText vnMD5Hex(const OptionalText& text);
};

}  // namespace vorn
