#pragma once

#include <cstddef>
#include <string_view>

#include "util/Utf16.h"

namespace vorn {

// Limits what can be typed into a field. Lengths count UTF-16 units.
class vnMaxLengthFormatter {
 public:
  static constexpr std::size_t kvnMaxLength = 50;

  explicit vnMaxLengthFormatter(std::size_t maxLength = kvnMaxLength) : m_maxLength(maxLength) {}

  // Whether the field may hold the text; one that may not leaves the field as it was. Time linear in the text.
  bool accepts(std::string_view proposed) const { return utf16Length(proposed) <= m_maxLength; }

  bool operator==(const vnMaxLengthFormatter&) const = default;

 private:
  std::size_t m_maxLength;
};

}  // namespace vorn
