#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Makes envelopes fit to be looked at: passcodes, join tokens and people's addresses are covered.
//
// Costs time in proportion to the content, whatever it holds.
class EnvelopeMask {
 public:
  // The facts of an envelope for the trace: "action", "bytes" (of the content) and "content" (covered, and cut
  // short when it is long).
  static Value facts(const Value& envelope);

  // The text with "******" for passcodes, join tokens and addresses, with packed fields given by their size, and
  // with what is long cut short; or else, for those who search in it, whole.
  static std::string covered(std::string_view content);
  static std::string coveredWhole(std::string_view content);
};

}  // namespace vorn
