#include "lab/shell/SystemVersion.h"

#include <cstdio>

namespace vornlab {

std::optional<vorn::Surroundings::Version> parseSystemVersion(const std::string& text) {
  vorn::Surroundings::Version version;
  int length = 0;
  const int read =
      std::sscanf(text.c_str(), "%4d.%4d.%4d%n", &version.major, &version.minor, &version.patch, &length);
  if (read != 3 || static_cast<std::size_t>(length) != text.size()) return std::nullopt;
  return version;
}

}  // namespace vornlab
