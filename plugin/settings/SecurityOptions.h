#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/vnKeyUpTextField.h"
#include "settings/PanelParts.h"
#include "settings/rules/PasscodeField.h"
#include "settings/rules/SecurityRules.h"

namespace vorn {

class VNPasswordRuleWindowController;

// The security section: the passcode with its rules, the waiting room, and how both move with the restriction to
// signed-in users. Of the three at least one may have to be on.
//
// The rules' window outlives it. Main thread only.
class SecurityOptions {
 public:
  SecurityOptions(const PanelParts& panel, VNPasswordRuleWindowController& passwordRuleWindow);

  void initWithLocalString();

  // The steps of loading, which the panel calls in its order.
  void initPasscode();
  void loadPasscodeText();
  void initWaitingRoomOption();
  void checkAccountLocked();
  void checkIfRequirePasswordLocked();
  void initSecurityBox();
  void resetUIForPasswordFormatErrorTextField();
  void resetPswHelpButtonState();

  // Another choice has changed what the section demands: the kind of meeting ID, join before host, who may join.
  void checkIfPasswordRequired();
  void updatePasswordStateWithJBHChanged();
  void resetSecurityErrorTextField();

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);
  // Whom the passcode's field tells of a change; the panel calls fieldTextChange() then.
  vnKeyUpTextField& passcodeField() { return m_passcodeField; }
  void fieldTextChange();

  // The failed rules of the passcode; 0 when none is asked for.
  std::int64_t getPasswordRuleResult() const;
  // Shows them.
  void resetPasswordRuleUI();
  bool checkIfLockPassword() const;

  // The panel was left: what was typed has gone into the record, or with it, and what was told is told.
  void forgetTyped();

  // What a commit writes of them.
  void writePasscode();
  void writeWaitingRoom();

 private:
  panel_rules::PasscodeSituation situation() const;
  bool isUpdate() const { return m_context.isForUpdateVornMeeting(); }
  std::int64_t failedRules() const;
  void turnPasscode(bool on);
  void requirePasscode();
  bool checkIfNeedRegeneratePasscode() const;
  void regenerateIfNeeded();
  std::int64_t resetMeetingPasswordErrorTextField();
  // That meeting, by shownPerson(), is the one that is shown.
  bool isShownMeeting(const std::optional<OptionalText>& meeting) const;
  // The user does something about it.
  void answerNotStronger();
  void resetStrongerPasswordFormatErrorTextField();
  void show(const panel_rules::PasscodeVerdict& verdict);
  void resetPasswordTextFieldAccess(std::int64_t ruleResult);
  void onClickRequiredMeetingPswButton();
  void onClickEnableWaitingRoom();
  void initSceurityTipView(std::string_view dueTip);
  void closeTip();

  panel_rules::SecurityControls shown() const;
  void show(const panel_rules::SecurityControls& section);
  void updateSecurityBoxAccessibility();

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;
  VNPasswordRuleWindowController& m_passwordRuleWindow;
  vnKeyUpTextField m_passcodeField;
  // What the user has typed for the meeting that is shown, and what stood in for it where it was no passcode. Null
  // when nothing.
  std::string* ownPasscode();
  void setPasscode(std::string passcode);
  // By shownPerson().
  std::map<OptionalText, std::string> m_typedPasscodes;
  // What the service has refused last stays told of that meeting, by shownPerson(), while the panel is loaded
  // again and again, until the user commits, or does something about it or about what it depends on: a weak
  // passcode, and none of the options.
  std::optional<OptionalText> m_notStrongerOf;
  std::optional<OptionalText> m_securityNotSelectedOf;
  // A tip is shown, for as long.
  bool m_isTipOpen = false;
  // For the passcode, since the panel came up.
  bool m_hasAskedForKeyboard = false;

  Control& m_meetingPasswordBox;
  Control& m_requiredMeetingPswButton;
  Control& m_passwordTextField;
  Control& m_pswHelpButton;
  Control& m_pswFormatErrorTextField;
  Control& m_passwordPrompt;
  Control& m_enableWaitingRoom;
  Control& m_waitingRoomPrompt;
  Control& m_securityErrorTextField;
  Control& m_securityTipView;
  Control& m_securityTipText;
  Control& m_securityTipCloseButton;
};

}  // namespace vorn
