#pragma once

// The account's passcode rules as the user sees them while typing, each with a mark that says whether it is met.

#include <cstdint>
#include <string>
#include <vector>

#include "data/Passcodes.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

struct PasscodeChecklist {
  struct Line {
    PasswordRule rule;
    // The mark and the label.
    std::string text;

    bool operator==(const Line&) const = default;
  };

  // From top to bottom; a heading without a line below it is "".
  std::string passwordMust{};
  std::vector<Line> must{};
  std::string passwordMustNot{};
  std::vector<Line> mustNot{};
};

// The lines of the account's rules. The result is that of the last validation, a set bit for a failed rule; the
// least length alone is read off the passcode itself. Time linear in the passcode.
PasscodeChecklist passcodeChecklist(const PasscodePolicy& policy, const std::string& passcode,
                                    std::int64_t ruleResult, const TextSource& texts);

// The same in one text, for who cannot see the list: the name of the passcode's field, and the lines.
std::string spokenPasscodeChecklist(const PasscodeChecklist& checklist, const TextSource& texts);

}  // namespace vorn::panel_rules
