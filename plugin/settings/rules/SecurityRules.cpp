#include "settings/rules/SecurityRules.h"

#include "data/OptionPolicy.h"

namespace vorn::panel_rules {

namespace {

constexpr const OptionPolicy& kWaitingRoomPolicy = policyOf(vn_Setting_EnableWaitingRoom);
constexpr const OptionPolicy& kSignInPolicy = policyOf(vn_Setting_IsSignedInUsersMeetingOn);
constexpr const OptionPolicy& kPasscodePolicy = policyOf(vn_Setting_RequiredMPW, OptionPolicy::Meeting::ownNumber);
constexpr const OptionPolicy& kPersonalPasscodePolicy =
    policyOf(vn_Setting_RequiredMPW, OptionPolicy::Meeting::personalNumber);

// A personal meeting that others may enter early must ask for a passcode.
bool joinBeforeHostForces(const PasscodeSituation& situation, const AccountFacts& account) {
  return account.isEnableForcePMIJBHWithPassword && situation.enableJBH;
}

void showSection(SecurityControls& controls) {
  controls.meetingPasswordBoxHidden = false;
  controls.requiredMeetingPswHidden = false;
  controls.passwordPromptHidden = false;
  controls.enableWaitingRoomHidden = false;
  controls.waitingRoomPromptHidden = false;
  controls.passwordFieldHidden = !controls.requiredMeetingPswOn;
}

// What the account has locked in its off state is of no use to anybody.
void hideWhatIsLockedOff(SecurityOutcome& outcome, const SecuritySituation& situation,
                         const AccountFacts& account) {
  SecurityControls& controls = outcome.controls;
  if (kWaitingRoomPolicy.isLockedOff(account)) {
    outcome.enableWaitingRoom = false;
    controls.enableWaitingRoomHidden = true;
    controls.waitingRoomPromptHidden = true;
  }
  if (isPasscodeLocked(situation.passcode, account) && !controls.requiredMeetingPswOn) {
    outcome.requiredMeetingPassword = false;
    controls.requiredMeetingPswHidden = true;
    controls.pswHelpHidden = true;
    controls.passwordPromptHidden = true;
  }
  if (kSignInPolicy.isLockedOff(account)) {
    outcome.isSignedInUsersMeetingOn = false;
    controls.restrictDomainsBoxHidden = true;
  }
}

// Without any other option the waiting room goes on, where the user can see it. The tip is shown once.
void askForAnOption(SecurityOutcome& outcome, const SecuritySituation& situation) {
  SecurityControls& controls = outcome.controls;
  controls.errorHidden = hasSecurityOption(controls);
  if (controls.errorHidden || controls.enableWaitingRoomHidden) return;
  controls.errorHidden = true;
  controls.enableWaitingRoomOn = true;
  outcome.enableWaitingRoom = true;
  if (situation.isWaitingRoomTipKnown) return;
  controls.tipHidden = false;
  outcome.remembersWaitingRoomTip = true;
}

}  // namespace

bool isWaitingRoomNewLogic(const AccountFacts& account, const ClientGates& client) {
  return client.isVornClientSupport520Tasks && account.isEnableWaitingRoomNewLogic;
}

bool passcodeRequiredAtLoad(const MeetingOptions& options, bool isUpdate, const AccountFacts& account) {
  const bool followsAccount = !options.usePMI && !isUpdate && kPasscodePolicy.isGiven(account);
  return followsAccount || options.requiredMeetingPassword;
}

bool isPasscodeForced(const PasscodeSituation& situation, const AccountFacts& account) {
  if (!situation.usePMI) return kPasscodePolicy.isGiven(account);
  return kPersonalPasscodePolicy.isGiven(account) || joinBeforeHostForces(situation, account);
}

bool isPasscodeLocked(const PasscodeSituation& situation, const AccountFacts& account) {
  if (!situation.usePMI) return kPasscodePolicy.isLocked(account);
  if (!account.isEnableForcePMIJBHWithPassword) return kPersonalPasscodePolicy.isLocked(account);
  if (!situation.enableJBH) return false;
  return kPersonalPasscodePolicy.isLocked(account) || !account.supportFeatureRequirePassword;
}

// Locked, the switch says what would be forced.
std::optional<bool> lockedPasscodeRequired(const PasscodeSituation& situation, const AccountFacts& account) {
  if (!isPasscodeLocked(situation, account)) return std::nullopt;
  return isPasscodeForced(situation, account);
}

bool needsNewPasscode(bool usePMI, bool isRequired, bool isEmpty, bool failsRules) {
  return !usePMI && isRequired && (isEmpty || failsRules);
}

PasscodeSwitchChange passcodeSwitchAfterJoinBeforeHost(const PasscodeSituation& situation,
                                                       const AccountFacts& account, const ClientGates& client) {
  if (isWaitingRoomNewLogic(account, client)) return {};
  return {.forcedOn = situation.usePMI && joinBeforeHostForces(situation, account),
          .enabled = !isPasscodeLocked(situation, account)};
}

std::string passcodePrompt(const AccountFacts& account, const TextSource& texts) {
  return account.isDisablePwdEmbedInJoinUrl ? texts("LN_Schedule_Passcode_Disable_Prompt_212646", {})
                                            : texts("LN_Schedule_Passcode_Prompt_212646", {});
}

bool waitingRoomAtLoad(const MeetingOptions& options, bool isUpdate, const AccountFacts& account) {
  const bool followsAccount = !options.usePMI && !isUpdate && !options.supportWaitingRoom;
  return followsAccount ? kWaitingRoomPolicy.isGiven(account) : options.enableWaitingRoom;
}

bool hasSecurityOption(const SecurityControls& controls) {
  return (!controls.requiredMeetingPswHidden && controls.requiredMeetingPswOn) ||
         (!controls.enableWaitingRoomHidden && controls.enableWaitingRoomOn) ||
         (!controls.restrictDomainsBoxHidden && controls.onlySignedinOn);
}

SecurityOutcome securityBox(const SecurityControls& controls, const SecuritySituation& situation,
                            const AccountFacts& account, const ClientGates& client) {
  SecurityOutcome outcome{.controls = controls};
  SecurityControls& shown = outcome.controls;
  showSection(shown);
  if (!account.knowsAccount) return outcome;

  hideWhatIsLockedOff(outcome, situation, account);
  shown.tipHidden = true;
  if (isWaitingRoomNewLogic(account, client)) {
    askForAnOption(outcome, situation);
  } else {
    shown.errorHidden = true;
    shown.meetingPasswordBoxHidden =
        shown.enableWaitingRoomHidden && shown.requiredMeetingPswHidden && shown.restrictDomainsBoxHidden;
  }
  if (!shown.meetingPasswordBoxHidden && situation.wasSecurityNotSelected) {
    shown.errorHidden = hasSecurityOption(shown);
    outcome.clearsSecurityNotSelected = true;
  }
  return outcome;
}

bool securityErrorIsHidden(const SecurityControls& controls, const AccountFacts& account,
                           const ClientGates& client) {
  return !isWaitingRoomNewLogic(account, client) || hasSecurityOption(controls);
}

std::string securityErrorText(const TextSource& texts) {
  return texts("LN_Schedule_Security_SelectErrorTip_166836", {});
}

std::string waitingRoomTipText(const TextSource& texts) {
  return texts("LN_Schedule_Security_WaitingRoom_AlwaysOn_166836", {});
}

}  // namespace vorn::panel_rules
