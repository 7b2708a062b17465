#include "settings/rules/PasscodeField.h"

namespace vorn::panel_rules {

namespace {

constexpr double kRedBorderWidth = 1.5;

}  // namespace

std::string typedPasscode(std::string_view typed, bool isVornClientSupportPasswordRule) {
  std::string passcode;
  for (const char c : typed) {
    if (c != ' ' && (c != ';' || isVornClientSupportPasswordRule)) passcode.push_back(c);
  }
  return passcode;
}

PasscodeVerdict passcodeVerdict(bool isRequired, std::int64_t failedRules, const TextSource& texts) {
  if (!isRequired || failedRules == 0) return {.redBorderWidth = 0};
  return {failedRules, texts("LN_Schedule_PasswordDoNotMeetRequirements_136704", {}), kRedBorderWidth};
}

PasscodeVerdict strongerPasscodeVerdict(std::int64_t failedRules, const TextSource& texts) {
  return {failedRules, texts("LN_Schedule_Password_EnterStronger_162671", {}), kRedBorderWidth};
}

PasscodeVerdict passcodeVerdictAtLoad(const PasscodeAtLoad& passcode, const TextSource& texts) {
  if (passcode.isUpdate && !passcode.usePMI) return {};
  return passcodeVerdict(passcode.isRequired, passcode.failedRules, texts);
}

}  // namespace vorn::panel_rules
