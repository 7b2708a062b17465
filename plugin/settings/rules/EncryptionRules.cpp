#include "settings/rules/EncryptionRules.h"

#include "data/AudioType.h"

namespace vorn::panel_rules {

namespace {

void hideAll(EncryptionControls& controls) {
  controls.boxHidden = true;
  controls.enhancedHidden = true;
  controls.enhancedHelpHidden = true;
  controls.endtoendHidden = true;
  controls.endtoendHelpHidden = true;
}

}  // namespace

bool enableE2eeAtLoad(bool enableE2ee, const AccountFacts& account) {
  return enableE2ee && account.canScheduleE2eeMeeting;
}

EncryptionControls encryptionBox(const EncryptionControls& controls, bool enableE2ee, const AccountFacts& account,
                                 const ClientGates& client) {
  EncryptionControls shown{.enhancedOn = controls.enhancedOn, .endtoendOn = controls.endtoendOn};
  const bool isOffered = account.isSupportE2eeMeeting && client.isVornClientSupport530Tasks;
  if (isOffered) {
    shown.enhancedOn = !enableE2ee;
    shown.endtoendOn = enableE2ee;
  }
  if (!isOffered || (account.isLockE2eeMeeting && !account.isEnableE2eeMeeting)) {
    hideAll(shown);
  } else if (account.isLockE2eeMeeting) {
    shown.enhancedHidden = true;
    shown.enhancedHelpHidden = true;
    shown.endtoendEnabled = false;
  }
  return shown;
}

bool enableE2eeAfterClick(bool clickedEndToEnd, const AccountFacts& account) {
  return clickedEndToEnd && account.canScheduleE2eeMeeting;
}

bool encryptionTipIsShown(const EncryptionControls& controls, bool doNotShowEncryptionTip) {
  return controls.isEndToEnd() && !doNotShowEncryptionTip;
}

std::int64_t audioTypeForEndToEnd(const AccountFacts& account) {
  return account.isTspSite ? kAudioTspVoip : kAudioVoip;
}

}  // namespace vorn::panel_rules
