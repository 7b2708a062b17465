#pragma once

// How the options of the security section move each other: the passcode, the waiting room and the restriction to
// signed-in users. Pure functions of the account, the client and the controls as they stand.

#include <optional>
#include <string>

#include "data/AccountFacts.h"
#include "data/MeetingOptions.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// What the account demands of the passcode depends on the meeting.
struct PasscodeSituation {
  // buttonUsePMI is on.
  bool usePMI = false;
  // enableJBHButton is on.
  bool enableJBH = false;
};

// The account asks for at least one security option, and the client knows of it.
bool isWaitingRoomNewLogic(const AccountFacts& account, const ClientGates& client);

// -- Passcode ----------------------------------------------------------------------------------------------------

// The switch when the panel is loaded. A new meeting with a number of its own follows the account, whatever the
// record says.
bool passcodeRequiredAtLoad(const MeetingOptions& options, bool isUpdate, const AccountFacts& account);

// checkIfPasswordRequired: whether the switch is forced on when the kind of meeting ID changes.
bool isPasscodeForced(const PasscodeSituation& situation, const AccountFacts& account);

// checkIfLockPassword: whether the switch cannot be changed.
bool isPasscodeLocked(const PasscodeSituation& situation, const AccountFacts& account);
// checkIfRequirePasswordLocked: what the locked switch says; absent for one that is not locked.
std::optional<bool> lockedPasscodeRequired(const PasscodeSituation& situation, const AccountFacts& account);

// checkIfNeedRegeneratePasscode. The passcode of a personal meeting is its owner's, so it is never replaced.
bool needsNewPasscode(bool usePMI, bool isRequired, bool isEmpty, bool failsRules);

// updatePasswordStateWithJBHChanged: the switch after join before host was changed.
struct PasscodeSwitchChange {
  // Goes on with its record, and its field is shown, enabled and takes the focus.
  bool forcedOn = false;
  // Absent leaves it as it is.
  std::optional<bool> enabled{};

  bool operator==(const PasscodeSwitchChange&) const = default;
};
PasscodeSwitchChange passcodeSwitchAfterJoinBeforeHost(const PasscodeSituation& situation,
                                                       const AccountFacts& account, const ClientGates& client);

// The sentence below the switch. Whole; the panel cuts what does not fit.
std::string passcodePrompt(const AccountFacts& account, const TextSource& texts);

// -- Waiting room ------------------------------------------------------------------------------------------------

// initWaitingRoomOption: the switch when the panel is loaded.
bool waitingRoomAtLoad(const MeetingOptions& options, bool isUpdate, const AccountFacts& account);

// -- The whole section -------------------------------------------------------------------------------------------

// The controls that the section shows and hides.
struct SecurityControls {
  bool meetingPasswordBoxHidden = false;
  bool requiredMeetingPswHidden = false;
  bool requiredMeetingPswOn = false;
  bool passwordPromptHidden = false;
  bool passwordFieldHidden = false;
  bool pswHelpHidden = false;
  bool enableWaitingRoomHidden = false;
  bool enableWaitingRoomOn = false;
  bool waitingRoomPromptHidden = false;
  bool restrictDomainsBoxHidden = false;
  // onlySignedinWithSpecifiedDomains is shown and on, as far as its own state says; its box may be hidden.
  bool onlySignedinOn = false;
  // securityErrorTextField and securityTipView.
  bool errorHidden = true;
  bool tipHidden = true;

  bool operator==(const SecurityControls&) const = default;
};

// Whether at least one of the three options is shown and on.
bool hasSecurityOption(const SecurityControls& controls);

struct SecuritySituation {
  PasscodeSituation passcode{};
  // The service has refused a meeting without a security option (vn_SecurityNotSeleteOne).
  bool wasSecurityNotSelected = false;
  // The tip about the waiting room was shown before.
  bool isWaitingRoomTipKnown = false;
};

// What follows from the section, besides its controls.
struct SecurityOutcome {
  SecurityControls controls{};
  // Of the record; absent leaves the option as it is.
  std::optional<bool> enableWaitingRoom{};
  std::optional<bool> requiredMeetingPassword{};
  std::optional<bool> isSignedInUsersMeetingOn{};
  // The flags of the site file: the refusal is told, and the tip is not shown again.
  bool clearsSecurityNotSelected = false;
  bool remembersWaitingRoomTip = false;
};

// initSecurityBox, from the controls as they stand. Without a profile the section is shown and no more is said.
SecurityOutcome securityBox(const SecurityControls& controls, const SecuritySituation& situation,
                            const AccountFacts& account, const ClientGates& client);

// resetSecurityErrorTextField: whether the error is hidden after one of the options was changed.
bool securityErrorIsHidden(const SecurityControls& controls, const AccountFacts& account,
                           const ClientGates& client);

std::string securityErrorText(const TextSource& texts);
std::string waitingRoomTipText(const TextSource& texts);

}  // namespace vorn::panel_rules
