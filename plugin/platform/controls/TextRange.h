#pragma once

#include <cstddef>

namespace vorn {

// A piece of a text, in UTF-16 units.
struct TextRange {
  std::size_t begin = 0;
  std::size_t length = 0;

  std::size_t end() const { return begin + length; }
  bool operator==(const TextRange&) const = default;
};

}  // namespace vorn
