// Base64 of a reply's field: bytes come back from their text, also with line breaks in it, and any other text
// gives bytes that are no longer than it can hold, or none.

#include "fuzz/Fuzzing.h"
#include "util/EncodeUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::EncodeUtils;
  using vorn::fuzzing::check;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const vorn::OptionalText text = EncodeUtils::base64Encode(bytes);
  check(EncodeUtils::base64DecodeToData(text) == bytes, "bytes come back");

  const std::size_t width = size == 0 ? 1 : 1 + data[0] % 80;
  std::string folded;
  for (std::size_t at = 0; at < text->size(); at += width) folded += text->substr(at, width) + "\r\n";
  check(EncodeUtils::base64DecodeToData(folded) == bytes, "bytes come back from a text in lines");

  const vorn::OptionalText garbage = EncodeUtils::base64DecodeToData(bytes);
  check(!garbage || garbage->size() <= size / 4 * 3 + 2, "no text holds more");
  return 0;
}
