#pragma once

#include <string>
#include <string_view>

namespace vorn {

// The piece as many times in a row.
inline std::string repeated(std::string_view piece, std::size_t times) {
  std::string text;
  text.reserve(piece.size() * times);
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

}  // namespace vorn
