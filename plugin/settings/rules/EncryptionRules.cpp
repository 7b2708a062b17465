#include "settings/rules/EncryptionRules.h"

#include "data/AudioType.h"
#include "data/OptionPolicy.h"

namespace vorn::panel_rules {

namespace {

constexpr const OptionPolicy& kEncryption = policyOf(vn_Setting_EnableE2ee);

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
  const bool isOffered = kEncryption.isOffered(account) && client.isVornClientSupport530Tasks;
  if (isOffered) {
    shown.enhancedOn = !enableE2ee;
    shown.endtoendOn = enableE2ee;
  }
  if (!isOffered || kEncryption.isLockedOff(account)) {
    hideAll(shown);
  } else if (kEncryption.isLocked(account)) {
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
