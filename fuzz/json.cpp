// JSON of a reply: what is read can be written, and reads back the same.

#include "fuzz/Fuzzing.h"
#include "util/vStringUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::vStringUtils;
  using vorn::fuzzing::check;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const vorn::Value read = vStringUtils::toArrayOrNSDictionary(text);
  if (!read.isArray() && !read.isDictionary()) return 0;
  const vorn::OptionalText written = vStringUtils::toJSONString(read);
  check(written.has_value(), "what was read can be written");
  const vorn::Value again = vStringUtils::toArrayOrNSDictionary(written);
  check(again == read, "what was written reads back the same");
  return 0;
}
