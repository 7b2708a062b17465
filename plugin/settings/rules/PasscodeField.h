#pragma once

// What the panel makes of the passcode that the user types. Pure functions; time linear in the passcode.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// The typed text without what a passcode cannot hold: blanks, and for a client without passcode rules ";", which
// parts the fields of a request.
std::string typedPasscode(std::string_view typed, bool isVornClientSupportPasswordRule);

// What stands below the passcode's field.
struct PasscodeVerdict {
  // The failed rules; see PasswordRule.
  std::int64_t result = 0;
  // "" for a field that shows no error.
  std::string error{};
  // In points; absent leaves the border as it is.
  std::optional<double> redBorderWidth{};

  bool operator==(const PasscodeVerdict&) const = default;
};

// Without the switch no passcode is asked for, and none is wrong.
PasscodeVerdict passcodeVerdict(bool isRequired, std::int64_t failedRules, const TextSource& texts);
// The service has refused the passcode as too weak.
PasscodeVerdict strongerPasscodeVerdict(std::int64_t failedRules, const TextSource& texts);

struct PasscodeAtLoad {
  bool usePMI = false;
  bool isUpdate = false;
  bool isRequired = false;
  std::int64_t failedRules = 0;
};

// The verdict when the panel is loaded. A meeting that stands at the service already was accepted with its
// passcode, so its user is not told of rules that came later, before they type.
PasscodeVerdict passcodeVerdictAtLoad(const PasscodeAtLoad& passcode, const TextSource& texts);

}  // namespace vorn::panel_rules
