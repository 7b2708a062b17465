#include "settings/rules/PasscodeHelp.h"

#include <algorithm>
#include <string_view>

namespace vorn::panel_rules {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view withoutBlanksAround(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// As a scanner reads a whole number: blanks around it are skipped, and it may have a sign.
bool scansAsInteger(std::string_view text) {
  text = withoutBlanksAround(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

}  // namespace

PasscodeHelp passcodeHelp(const PasscodeHelpQuestion& question, const TextSource& texts) {
  const bool isDigitsOnly =
      question.fieldIsHidden || question.passcode.empty() || scansAsInteger(question.passcode);
  const bool isDisabled = question.isDisablePwdEmbedInJoinUrl;
  if (question.switchIsHidden || (isDisabled && isDigitsOnly)) return {};
  if (isDisabled) return {false, texts("LN_Schedule_PasswordInputHelp_106192", {})};
  std::string prompt = texts("LN_Schedule_Passcode_Help_Prompt_212646", {});
  if (!isDigitsOnly) prompt += "\n" + texts("LN_Schedule_PasswordInputHelp_212646", {});
  return {false, prompt};
}

}  // namespace vorn::panel_rules
