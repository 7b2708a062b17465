#pragma once

#include <string>

#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// What the help beside the passcode depends on.
struct PasscodeHelpQuestion {
  // requiredMeetingPswButton.
  bool switchIsHidden = false;
  // passwordTextField, and what stands in it.
  bool fieldIsHidden = false;
  std::string passcode{};
  // The account keeps the passcode out of the join URL.
  bool isDisablePwdEmbedInJoinUrl = false;
};

struct PasscodeHelp {
  bool hidden = true;
  std::string toolTip{};

  bool operator==(const PasscodeHelp&) const = default;
};

// The help tells who can do without typing the passcode, and that a passcode of more than digits cannot be typed
// on a telephone. Time linear in the passcode.
PasscodeHelp passcodeHelp(const PasscodeHelpQuestion& question, const TextSource& texts);

}  // namespace vorn::panel_rules
