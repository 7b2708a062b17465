#include "settings/rules/PasscodeChecklist.h"

#include "util/Utf16.h"

namespace vorn::panel_rules {

namespace {

constexpr const char* kMet = "✔";
constexpr const char* kNotMet = "·  ";

class Lines {
 public:
  Lines(const PasscodePolicy& policy, const std::string& passcode, std::int64_t ruleResult)
      : m_policy(policy), m_passcode(passcode), m_ruleResult(ruleResult) {}

  void add(std::vector<PasscodeChecklist::Line>& lines, PasswordRule rule, const std::string& label) const {
    if ((m_policy.rules & rule) != 0)
      lines.push_back({rule, std::string(isMet(rule) ? kMet : kNotMet) + " " + label});
  }

 private:
  // The line of the least length follows the text even when the result was computed earlier.
  bool isMet(PasswordRule rule) const {
    if (rule != kPswRuleMinLength) return (m_ruleResult & rule) == 0;
    return static_cast<std::int64_t>(utf16Length(m_passcode)) >= m_policy.minLength;
  }

  const PasscodePolicy& m_policy;
  const std::string& m_passcode;
  std::int64_t m_ruleResult;
};

}  // namespace

PasscodeChecklist passcodeChecklist(const PasscodePolicy& policy, const std::string& passcode,
                                    std::int64_t ruleResult, const TextSource& texts) {
  const Lines lines(policy, passcode, ruleResult);
  PasscodeChecklist list;
  lines.add(list.must, kPswRuleOnlyNumber, texts("LN_Schedule_Psw_Rule_Only_Number_136704", {}));
  lines.add(list.must, kPswRuleMinLength,
            texts("LN_Schedule_Psw_Rule_Has_Min_Length_136704", {std::to_string(policy.minLength)}));
  lines.add(list.must, kPswRuleHasAlphabet, texts("LN_Schedule_Psw_Rule_Has_Alphabet_136704", {}));
  lines.add(list.must, kPswRuleHasNumber, texts("LN_Schedule_Psw_Rule_Has_Number_136704", {}));
  lines.add(list.must, kPswRuleHasSpecial, texts("LN_Schedule_Psw_Rule_Has_Special_136704", {}));
  lines.add(list.must, kPswRuleIncludeUpperLower, texts("LN_Schedule_Psw_Rule_Include_UpperLower_162671", {}));
  lines.add(list.mustNot, kPswRuleContainConsecutive,
            texts("LN_Schedule_Psw_Rule_Contain_Consecutive_162671", {std::to_string(policy.consecutiveLength)}));
  if (!list.must.empty()) list.passwordMust = texts("LN_Schedule_Password_Must_136704", {});
  if (!list.mustNot.empty()) list.passwordMustNot = texts("LN_Schedule_Password_MustNot_162671", {});
  return list;
}

std::string spokenPasscodeChecklist(const PasscodeChecklist& checklist, const TextSource& texts) {
  std::string spoken = texts("LN_Schedule_Security_Passcode_166836", {}) + ":";
  for (const auto& line : checklist.must) spoken += line.text + ",";
  if (!checklist.mustNot.empty()) spoken += checklist.passwordMustNot + ":";
  for (const auto& line : checklist.mustNot) spoken += line.text + ",";
  return spoken;
}

}  // namespace vorn::panel_rules
