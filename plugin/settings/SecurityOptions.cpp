#include "settings/SecurityOptions.h"

#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "data/NotAgainFlags.h"
#include "settings/VNPasswordRuleWindowController.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/PasscodeHelp.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kSecurityBox = "meetingPasswordBox";
constexpr const char* kSecurityTip = "securityTipView";
constexpr std::size_t kLongestPasscode = 10;

// The service has refused the last commit; told once.
bool getSecurityOptionErrorInfo(std::string_view key) { return SiteFlag(key).isSet(); }
void clearSecurityOptionErrorInfo(std::string_view key) {
  if (getSecurityOptionErrorInfo(key)) SiteFlag(key).set(false);
}

void showPrompt(Control& prompt, const std::string& text) {
  const ShownText shown = shownText(LongText::prompt, text);
  prompt.text = shown.text;
  prompt.toolTip = shown.toolTip;
  prompt.spoken = text;
}

}  // namespace

SecurityOptions::SecurityOptions(const PanelParts& panel, VNPasswordRuleWindowController& passwordRuleWindow)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_passwordRuleWindow(passwordRuleWindow),
      m_meetingPasswordBox(m_controls.add(Kind::box, kSecurityBox)),
      m_requiredMeetingPswButton(
          m_controls.add(Kind::checkBox, control_key::requiredMeetingPswButton, kSecurityBox)),
      m_passwordTextField(m_controls.add(Kind::textField, control_key::passwordTextField, kSecurityBox)),
      m_pswHelpButton(m_controls.add(Kind::label, "pswHelpButton", kSecurityBox)),
      m_pswFormatErrorTextField(m_controls.add(Kind::label, control_key::pswFormatErrorTextField, kSecurityBox)),
      m_passwordPrompt(m_controls.add(Kind::label, "passwordPrompt", kSecurityBox)),
      m_enableWaitingRoom(m_controls.add(Kind::checkBox, "enableWaitingRoom", kSecurityBox)),
      m_waitingRoomPrompt(m_controls.add(Kind::label, "waitingRoomPrompt", kSecurityBox)),
      m_securityErrorTextField(m_controls.add(Kind::label, control_key::securityErrorTextField, kSecurityBox)),
      m_securityTipView(m_controls.add(Kind::box, kSecurityTip, kSecurityBox)),
      m_securityTipText(m_controls.add(Kind::label, "securityTipText", kSecurityTip)),
      m_securityTipCloseButton(m_controls.add(Kind::button, "securityTipCloseButton", kSecurityTip)) {
  m_passwordTextField.formatter = vnMaxLengthFormatter(kLongestPasscode);
  m_pswFormatErrorTextField.hidden = true;
  m_securityErrorTextField.hidden = true;
  m_securityTipView.hidden = true;
}

void SecurityOptions::initWithLocalString() {
  m_requiredMeetingPswButton.text = panelText("LN_Schedule_Security_Passcode_166836");
  m_pswHelpButton.text = panelText("LN_Schedule_Passcode_Help");
  m_enableWaitingRoom.text = panelText("LN_Schedule_Enable_Waiting_Room_151930");
  m_enableWaitingRoom.spoken = m_enableWaitingRoom.text;
  m_securityErrorTextField.text = securityErrorText(panelText);
  m_securityTipText.text = waitingRoomTipText(panelText);
  m_securityTipCloseButton.text = panelText("LN_Schedule_Tip_Close");
}

PasscodeSituation SecurityOptions::situation() const {
  return {.usePMI = m_record.usePMI(), .enableJBH = m_controls.isOn(control_key::enableJBHButton)};
}

// -- Passcode ----------------------------------------------------------------------------------------------------

void SecurityOptions::initPasscode() {
  m_requiredMeetingPswButton.on =
      passcodeRequiredAtLoad(m_record.options(), isUpdate(), m_context.facts(m_record).account);
  m_requiredMeetingPswButton.hidden = false;
  m_passwordTextField.placeholder = panelText("LN_Schedule_PasswordPlaceHolder_82199");
  m_passwordTextField.spoken = panelText("LN_Schedule_Security_Passcode_166836");
  loadPasscodeText();
  m_passwordTextField.hidden = !m_requiredMeetingPswButton.on;
  m_passwordTextField.enabled = m_requiredMeetingPswButton.on;
}

// What the user has typed outlasts the next load, and a look at the other kind of meeting.
void SecurityOptions::loadPasscodeText() {
  const std::string* typed = ownPasscode();
  m_passwordTextField.text = typed ? *typed : m_record.meetingPassword().value_or("");
}

std::int64_t SecurityOptions::failedRules() const {
  std::int64_t failed = 0;
  vnSettingData::ValidateMeetingPassword(m_passwordTextField.text, failed);
  return failed;
}

std::int64_t SecurityOptions::getPasswordRuleResult() const {
  return m_requiredMeetingPswButton.on ? failedRules() : 0;
}

void SecurityOptions::resetPasswordRuleUI() { resetMeetingPasswordErrorTextField(); }

std::int64_t SecurityOptions::resetMeetingPasswordErrorTextField() {
  const PasscodeVerdict verdict =
      passcodeVerdict(m_requiredMeetingPswButton.on, getPasswordRuleResult(), panelText);
  show(verdict);
  return verdict.result;
}

void SecurityOptions::resetStrongerPasswordFormatErrorTextField() {
  show(strongerPasscodeVerdict(failedRules(), panelText));
  m_notStrongerOf = shownPerson(m_record, m_steps);
  clearSecurityOptionErrorInfo(vn_NotStrongerPasscode);
}

bool SecurityOptions::isShownMeeting(const std::optional<OptionalText>& meeting) const {
  return meeting && *meeting == shownPerson(m_record, m_steps);
}

void SecurityOptions::answerNotStronger() {
  if (isShownMeeting(m_notStrongerOf)) m_notStrongerOf.reset();
}

void SecurityOptions::resetUIForPasswordFormatErrorTextField() {
  if (isShownMeeting(m_notStrongerOf) || getSecurityOptionErrorInfo(vn_NotStrongerPasscode))
    return resetStrongerPasswordFormatErrorTextField();
  show(passcodeVerdictAtLoad({.usePMI = m_record.usePMI(),
                              .isUpdate = isUpdate(),
                              .isRequired = m_requiredMeetingPswButton.on,
                              .failedRules = failedRules()},
                             panelText));
}

void SecurityOptions::show(const PasscodeVerdict& verdict) {
  m_pswFormatErrorTextField.hidden = verdict.error.empty();
  m_pswFormatErrorTextField.text = verdict.error;
  if (verdict.redBorderWidth) m_passwordTextField.redBorderWidth = *verdict.redBorderWidth;
}

void SecurityOptions::resetPswHelpButtonState() {
  const PasscodeHelp help =
      passcodeHelp({.switchIsHidden = m_requiredMeetingPswButton.hidden,
                    .fieldIsHidden = m_passwordTextField.hidden,
                    .passcode = m_passwordTextField.text,
                    .isDisablePwdEmbedInJoinUrl = m_context.facts(m_record).account.isDisablePwdEmbedInJoinUrl},
                   panelText);
  m_pswHelpButton.hidden = help.hidden;
  m_pswHelpButton.toolTip = help.toolTip;
}

void SecurityOptions::turnPasscode(bool on) {
  m_requiredMeetingPswButton.on = on;
  m_passwordTextField.hidden = !on;
  m_passwordTextField.enabled = on;
}

// The user has to type it, or at least to see that it is there.
void SecurityOptions::requirePasscode() {
  turnPasscode(true);
  m_hasAskedForKeyboard = true;
  m_steps.makeFirstResponderWithObject(m_passwordTextField.key);
}

bool SecurityOptions::checkIfNeedRegeneratePasscode() const {
  return needsNewPasscode(m_record.usePMI(), m_requiredMeetingPswButton.on, m_passwordTextField.text.empty(),
                          failedRules() != 0);
}

// A passcode that the service has accepted, or that the user is typing, is not replaced behind their back.
void SecurityOptions::regenerateIfNeeded() {
  const bool isStored = isUpdate() && m_passwordTextField.text == m_record.meetingPassword().value_or("");
  if ((isStored || ownPasscode()) && !m_passwordTextField.text.empty()) return;
  if (checkIfNeedRegeneratePasscode()) setPasscode(vnSettingData::getRandomPassWord());
}

void SecurityOptions::setPasscode(std::string passcode) {
  if (std::string* typed = ownPasscode()) *typed = passcode;
  m_passwordTextField.text = std::move(passcode);
}

std::string* SecurityOptions::ownPasscode() {
  const auto typed = m_typedPasscodes.find(shownPerson(m_record, m_steps));
  return typed == m_typedPasscodes.end() ? nullptr : &typed->second;
}

void SecurityOptions::checkIfPasswordRequired() {
  if (isPasscodeForced(situation(), m_context.facts(m_record).account)) {
    requirePasscode();
    m_record.setRequiredMeetingPassword(true);
  }
  regenerateIfNeeded();
  resetMeetingPasswordErrorTextField();
  // Who comes back to the meeting that was refused is told so again.
  if (isShownMeeting(m_notStrongerOf)) resetStrongerPasswordFormatErrorTextField();
  initSecurityBox();
  resetPswHelpButtonState();
  m_steps.checkScheduleButton();
}

bool SecurityOptions::checkIfLockPassword() const {
  return isPasscodeLocked(situation(), m_context.facts(m_record).account);
}

void SecurityOptions::checkIfRequirePasswordLocked() {
  const PasscodeSituation meeting = situation();
  const std::optional<bool> locked = lockedPasscodeRequired(meeting, m_context.facts(m_record).account);
  m_requiredMeetingPswButton.enabled = !locked;
  if (locked) {
    // Once is enough: a reply comes here as well, and who types elsewhere by now must not go on in the passcode.
    if (meeting.usePMI && *locked && !m_hasAskedForKeyboard) {
      requirePasscode();
    } else {
      turnPasscode(*locked);
    }
    if (!meeting.usePMI) m_record.setRequiredMeetingPassword(*locked);
  }
  regenerateIfNeeded();
  resetMeetingPasswordErrorTextField();
  resetPswHelpButtonState();
  m_steps.checkScheduleButton();
}

void SecurityOptions::updatePasswordStateWithJBHChanged() {
  const OptionFacts facts = m_context.facts(m_record);
  const PasscodeSwitchChange change = passcodeSwitchAfterJoinBeforeHost(situation(), facts.account, facts.client);
  if (change.forcedOn) {
    requirePasscode();
    m_record.setRequiredMeetingPassword(true);
  }
  if (change.enabled) m_requiredMeetingPswButton.enabled = *change.enabled;
  regenerateIfNeeded();
  resetMeetingPasswordErrorTextField();
  resetPswHelpButtonState();
  m_steps.checkScheduleButton();
  initSecurityBox();
}

// -- Waiting room ------------------------------------------------------------------------------------------------

void SecurityOptions::initWaitingRoomOption() {
  m_enableWaitingRoom.hidden = false;
  m_enableWaitingRoom.on = waitingRoomAtLoad(m_record.options(), isUpdate(), m_context.facts(m_record).account);
}

void SecurityOptions::checkAccountLocked() {
  m_enableWaitingRoom.enabled =
      !policyOf(vn_Setting_EnableWaitingRoom).isLocked(m_context.facts(m_record).account);
}

// -- The whole section -------------------------------------------------------------------------------------------

SecurityControls SecurityOptions::shown() const {
  return {.meetingPasswordBoxHidden = m_meetingPasswordBox.hidden,
          .requiredMeetingPswHidden = m_requiredMeetingPswButton.hidden,
          .requiredMeetingPswOn = m_requiredMeetingPswButton.on,
          .passwordPromptHidden = m_passwordPrompt.hidden,
          .passwordFieldHidden = m_passwordTextField.hidden,
          .pswHelpHidden = m_pswHelpButton.hidden,
          .enableWaitingRoomHidden = m_enableWaitingRoom.hidden,
          .enableWaitingRoomOn = m_enableWaitingRoom.on,
          .waitingRoomPromptHidden = m_waitingRoomPrompt.hidden,
          .restrictDomainsBoxHidden = !m_controls.isShown(control_key::restrictDomainsBox),
          .onlySignedinOn = m_controls.isShownAndOn(control_key::onlySignedinWithSpecifiedDomains),
          .errorHidden = m_securityErrorTextField.hidden,
          .tipHidden = m_securityTipView.hidden};
}

void SecurityOptions::show(const SecurityControls& section) {
  m_meetingPasswordBox.hidden = section.meetingPasswordBoxHidden;
  m_requiredMeetingPswButton.hidden = section.requiredMeetingPswHidden;
  m_passwordPrompt.hidden = section.passwordPromptHidden;
  m_passwordTextField.hidden = section.passwordFieldHidden;
  m_pswHelpButton.hidden = section.pswHelpHidden;
  m_enableWaitingRoom.hidden = section.enableWaitingRoomHidden;
  m_enableWaitingRoom.on = section.enableWaitingRoomOn;
  m_waitingRoomPrompt.hidden = section.waitingRoomPromptHidden;
  m_securityErrorTextField.hidden = section.errorHidden;
  m_securityTipView.hidden = section.tipHidden;
}

void SecurityOptions::initSecurityBox() {
  const OptionFacts facts = m_context.facts(m_record);
  const SecurityOutcome outcome = securityBox(
      shown(),
      {.passcode = situation(),
       .wasSecurityNotSelected =
           isShownMeeting(m_securityNotSelectedOf) || getSecurityOptionErrorInfo(vn_SecurityNotSeleteOne),
       .isWaitingRoomTipKnown = not_again::doNotShowTipView(vn_LocalProfile_SecurityTip_NotShownAgain_WR)},
      facts.account, facts.client);
  show(outcome.controls);
  if (facts.account.knowsAccount) updateSecurityBoxAccessibility();
  if (outcome.enableWaitingRoom) m_record.setEnableWaitingRoom(*outcome.enableWaitingRoom);
  if (outcome.requiredMeetingPassword) m_record.setRequiredMeetingPassword(*outcome.requiredMeetingPassword);
  if (outcome.isSignedInUsersMeetingOn) {
    m_record.setIsSignedInUsersMeetingOn(*outcome.isSignedInUsersMeetingOn);
    m_steps.hideRestrictDomainsBox();
  }
  if (outcome.clearsSecurityNotSelected) {
    m_securityNotSelectedOf = shownPerson(m_record, m_steps);
    clearSecurityOptionErrorInfo(vn_SecurityNotSeleteOne);
  }
  initSceurityTipView(outcome.remembersWaitingRoomTip ? vn_LocalProfile_SecurityTip_NotShownAgain_WR : "");
}

// Once for all time; it stays open while the panel is loaded again and again.
void SecurityOptions::initSceurityTipView(std::string_view dueTip) {
  if (!dueTip.empty()) not_again::setDoNotShowTipView(dueTip, true);
  m_isTipOpen = m_isTipOpen || !dueTip.empty();
  m_securityTipView.hidden = !m_isTipOpen;
}

void SecurityOptions::updateSecurityBoxAccessibility() {
  showPrompt(m_passwordPrompt, passcodePrompt(m_context.facts(m_record).account, panelText));
  showPrompt(m_waitingRoomPrompt, panelText("LN_Schedule_WaitingRoom_Prompt_212646"));
}

void SecurityOptions::resetSecurityErrorTextField() {
  if (isShownMeeting(m_securityNotSelectedOf)) m_securityNotSelectedOf.reset();
  const OptionFacts facts = m_context.facts(m_record);
  m_securityErrorTextField.hidden = securityErrorIsHidden(shown(), facts.account, facts.client);
}

// -- What the user does ------------------------------------------------------------------------------------------

void SecurityOptions::userChanged(std::string_view key) {
  if (key == m_passwordTextField.key) return m_passcodeField.textDidChange();
  if (key == m_requiredMeetingPswButton.key) return onClickRequiredMeetingPswButton();
  if (key == m_enableWaitingRoom.key) return onClickEnableWaitingRoom();
  if (key == m_securityTipCloseButton.key) closeTip();
}

void SecurityOptions::closeTip() {
  m_isTipOpen = false;
  m_securityTipView.hidden = true;
}

void SecurityOptions::fieldTextChange() {
  answerNotStronger();
  const bool supportsRules = vnClientFeatureMgr::sharedInstance().isVornClientSupportPasswordRule();
  m_passwordTextField.text = typedPasscode(m_passwordTextField.text, supportsRules);
  m_typedPasscodes[shownPerson(m_record, m_steps)] = m_passwordTextField.text;
  resetPswHelpButtonState();
  const std::int64_t result = resetMeetingPasswordErrorTextField();
  m_steps.checkScheduleButton();
  if (vnSettingData::passcodePolicy().rules <= 0) return;
  resetPasswordTextFieldAccess(result);
  m_passwordRuleWindow.setSettingViewPasswordDetail(m_passwordTextField.text, result);
  m_passwordRuleWindow.showWindowSheet();
}

// Who cannot see the list of rules hears it with the field.
void SecurityOptions::resetPasswordTextFieldAccess(std::int64_t ruleResult) {
  m_passwordTextField.spoken = VNPasswordRuleWindowController::spokenRules(m_passwordTextField.text, ruleResult);
}

void SecurityOptions::onClickRequiredMeetingPswButton() {
  answerNotStronger();
  if (m_requiredMeetingPswButton.on) {
    requirePasscode();
    if (checkIfNeedRegeneratePasscode()) setPasscode(vnSettingData::getRandomPassWord());
  } else {
    m_passwordTextField.hidden = true;
    m_steps.closeSubWindows();
  }
  m_record.setRequiredMeetingPassword(m_requiredMeetingPswButton.on);
  resetMeetingPasswordErrorTextField();
  resetSecurityErrorTextField();
  resetPswHelpButtonState();
  m_steps.checkScheduleButton();
}

void SecurityOptions::onClickEnableWaitingRoom() {
  m_record.setEnableWaitingRoom(m_enableWaitingRoom.on);
  closeTip();
  resetSecurityErrorTextField();
  m_steps.checkScheduleButton();
}

void SecurityOptions::forgetTyped() {
  m_typedPasscodes.clear();
  m_notStrongerOf.reset();
  m_securityNotSelectedOf.reset();
  m_hasAskedForKeyboard = false;
  closeTip();
}

// -- Commit ------------------------------------------------------------------------------------------------------

void SecurityOptions::writePasscode() {
  m_record.setMeetingPassword(m_passwordTextField.text);
  m_record.setRequiredMeetingPassword(m_requiredMeetingPswButton.on);
}

void SecurityOptions::writeWaitingRoom() {
  m_record.setEnableWaitingRoom(m_enableWaitingRoom.on);
  m_record.setSupportWaitingRoom(true);
}

}  // namespace vorn
