#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorn {

// The key of one control among many of a kind, which are as many as a list has entries: "countryRow12".
inline std::string numberedKey(std::string_view kind, std::size_t number) {
  return std::string(kind) + std::to_string(number);
}

// The number of such a key, where the rest stands behind it; absent for any other key.
inline std::optional<std::size_t> numberOfKey(std::string_view key, std::string_view kind,
                                              std::string_view rest = {}) {
  if (!key.starts_with(kind) || !key.ends_with(rest) || key.size() < kind.size() + rest.size())
    return std::nullopt;
  const char* const begin = key.data() + kind.size();
  const char* const end = key.data() + key.size() - rest.size();
  std::size_t number = 0;
  const auto [read, fault] = std::from_chars(begin, end, number);
  return fault == std::errc() && read == end ? std::optional(number) : std::nullopt;
}

}  // namespace vorn
