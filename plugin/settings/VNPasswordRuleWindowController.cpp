#include "settings/VNPasswordRuleWindowController.h"

#include "data/vnSettingData.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kPasswordRuleWindow = "passwordRuleWindow";

PasscodeChecklist checklist(const std::string& password, std::int64_t ruleResult) {
  return passcodeChecklist(vnSettingData::passcodePolicy(), password, ruleResult, panelText);
}

}  // namespace

VNPasswordRuleWindowController::VNPasswordRuleWindowController(ControlSet& controls)
    : m_window(controls.add(Kind::window, kPasswordRuleWindow)),
      m_passwordMust(controls.add(Kind::label, "_passwordMust", kPasswordRuleWindow)),
      m_passwordMustNot(controls.add(Kind::label, "_passwordMustNot", kPasswordRuleWindow)) {
  m_window.hidden = true;
  const std::pair<PasswordRule, const char*> lines[] = {
      {kPswRuleOnlyNumber, "_PswRuleOnlyNumber"},
      {kPswRuleMinLength, "_PswRuleMinLength"},
      {kPswRuleHasAlphabet, "_PswRuleHasAlphabet"},
      {kPswRuleHasNumber, "_PswRuleHasNumber"},
      {kPswRuleHasSpecial, "_PswRuleHasSpecial"},
      {kPswRuleIncludeUpperLower, "_PswRuleIncludeUpperLower"},
      {kPswRuleContainConsecutive, "_PswRuleContainConsecutive"}};
  for (const auto& [rule, key] : lines)
    m_lines.emplace_back(rule, &controls.add(Kind::label, key, kPasswordRuleWindow));
}

void VNPasswordRuleWindowController::setSettingViewPasswordDetail(std::string password, std::int64_t ruleResult) {
  m_password = std::move(password);
  m_ruleResult = ruleResult;
}

void VNPasswordRuleWindowController::showWindowSheet() {
  if (!m_isOpeningWindows) {
    m_isOpeningWindows = true;
    m_window.hidden = false;
  }
  updatePasswordRuleUI();
}

void VNPasswordRuleWindowController::show(Control& line, const std::string& text) {
  line.text = text;
  line.hidden = text.empty();
}

void VNPasswordRuleWindowController::showLines(const std::vector<PasscodeChecklist::Line>& lines) {
  for (const auto& shown : lines) {
    for (const auto& [rule, line] : m_lines) {
      if (rule == shown.rule) show(*line, shown.text);
    }
  }
}

void VNPasswordRuleWindowController::updatePasswordRuleUI() {
  const PasscodeChecklist list = checklist(m_password, m_ruleResult);
  for (const auto& [rule, line] : m_lines) show(*line, "");
  show(m_passwordMust, list.passwordMust);
  showLines(list.must);
  show(m_passwordMustNot, list.passwordMustNot);
  showLines(list.mustNot);
}

void VNPasswordRuleWindowController::closePasswordRuleWindows() {
  cleanup();
  m_window.hidden = true;
}

void VNPasswordRuleWindowController::cleanup() {
  m_password.clear();
  m_ruleResult = 0;
  m_isOpeningWindows = false;
}

std::string VNPasswordRuleWindowController::spokenRules(const std::string& password, std::int64_t ruleResult) {
  return spokenPasscodeChecklist(checklist(password, ruleResult), panelText);
}

}  // namespace vorn
