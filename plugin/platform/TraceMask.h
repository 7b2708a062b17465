#pragma once

#include <string>
#include <string_view>

namespace vorn {

// Makes texts fit for the trace, where people look at them: passcodes, join tokens and addresses are covered. Any
// thread.
//
// Costs time in proportion to the text, whatever it holds.
class TraceMask {
 public:
  // The text with "******" for passcodes, join tokens and addresses, with packed fields given by their size, and
  // with what is long cut short; or else, for those who search in it, whole.
  static std::string covered(std::string_view text);
  static std::string coveredWhole(std::string_view text);
};

}  // namespace vorn
