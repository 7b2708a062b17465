#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "data/Passcodes.h"
#include "settings/PanelParts.h"
#include "settings/rules/PasscodeChecklist.h"

namespace vorn {

// The window beside the passcode's field that lists the account's passcode rules, each with a mark that says
// whether it is met. One for each panel, shown again and again. Main thread only.
class VNPasswordRuleWindowController {
 public:
  explicit VNPasswordRuleWindowController(ControlSet& controls);

  // The passcode that the list is about, and the rules that it failed when it was validated last.
  void setSettingViewPasswordDetail(std::string password, std::int64_t ruleResult);
  // Opens the window, once, and brings its lines up to date.
  void showWindowSheet();
  void updatePasswordRuleUI();
  void closePasswordRuleWindows();

  // The list of that passcode in one text, for who cannot see it.
  static std::string spokenRules(const std::string& password, std::int64_t ruleResult);

 private:
  void cleanup();
  void show(Control& line, const std::string& text);
  void showLines(const std::vector<panel_rules::PasscodeChecklist::Line>& lines);

  std::string m_password;
  std::int64_t m_ruleResult = 0;
  bool m_isOpeningWindows = false;

  Control& m_window;
  Control& m_passwordMust;
  Control& m_passwordMustNot;
  // From top to bottom.
  std::vector<std::pair<PasswordRule, Control*>> m_lines;
};

}  // namespace vorn
