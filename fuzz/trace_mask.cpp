// The mask of what reaches a log: no address and no passcode of a join URL survives it.

#include <algorithm>
#include <string>

#include "fuzz/Fuzzing.h"
#include "platform/TraceMask.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  constexpr std::string_view kCover = "******";
  constexpr std::string_view kCutMark = "…";
  const std::string content(reinterpret_cast<const char*>(data), size);
  std::string seen = vorn::TraceMask::covered(content);
  std::transform(seen.begin(), seen.end(), seen.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  check(seen.find('@') == std::string::npos, "no address is seen");
  for (std::size_t at = seen.find("pwd="); at != std::string::npos; at = seen.find("pwd=", at + 1)) {
    const std::string_view value = std::string_view(seen).substr(at + 4);
    const std::size_t covered = std::min(value.find_first_not_of('*'), value.size());
    check(covered >= kCover.size() || value.substr(covered).starts_with(kCutMark), "no token is seen");
  }
  return 0;
}
