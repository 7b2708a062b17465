#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace vorn {

// The first three parts of a version text, as integers; what is missing or no number counts 0.
struct VersionNumber {
  std::int64_t major = 0;
  std::int64_t minor = 0;
  std::int64_t third = 0;

  static VersionNumber parse(std::string_view text);

  // clang-tidy takes the zero that a compiled comparison holds for a pointer.
  auto operator<=>(const VersionNumber&) const = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace vorn
