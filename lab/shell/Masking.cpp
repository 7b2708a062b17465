#include "lab/shell/Masking.h"

#include <re2/re2.h>

namespace vornlab {

std::string masked(std::string_view text) {
  static const RE2 inUrl(R"(([?&;](?:pwd|pw|tk|passcode)=)[^&#\s"'<>;]+)");
  // A colon or a tab, and marks of HTML, may stand between the label and the passcode.
  static const RE2 inInvitation(R"((?i)(pass(?:code|word)(?:<[^>]*>|&nbsp;|[\s:])+)[^\s<]+)");
  static const RE2 inDialString(R"((,+\*)\d+)");
  std::string result(text);
  RE2::GlobalReplace(&result, inUrl, "\\1******");
  RE2::GlobalReplace(&result, inInvitation, "\\1******");
  RE2::GlobalReplace(&result, inDialString, "\\1******");
  return maskedAddresses(result);
}

std::string maskedAddresses(std::string_view text) {
  static const RE2 address(R"([\pL\pN.!#$%&'*+/=?^_`{|}~-]+@[\pL\pN.-]+)");
  std::string result(text);
  RE2::GlobalReplace(&result, address, "******");
  return result;
}

}  // namespace vornlab
