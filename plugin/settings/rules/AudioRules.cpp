#include "settings/rules/AudioRules.h"

#include "data/AudioType.h"
#include "util/vnOLUtils.h"

namespace vorn::panel_rules {

namespace {

constexpr int kSecondAccount = 1;

// In UTF-16 units.
constexpr std::int32_t kNameWithSeveralAccounts = 18;
constexpr std::int32_t kNameWithOneAccount = 30;

void initAudioOptionsForTSP(AudioControls& controls, const AudioSite& site, std::int64_t audioType) {
  const bool several = site.moreThanOneTSPAccounts();
  controls.telephonyHidden = several;
  controls.tspAccountHidden = !several;
  const bool isFirst = audioType == kAudioTspTelephonyFirst;
  // One account has no second telephony, so that a meeting made with two shows none.
  if (several) {
    controls.tspAccountOn = isFirst || audioType == kAudioTspTelephonySecond;
  } else {
    controls.telephonyOn = isFirst;
  }
  controls.voipOn = audioType == kAudioTspVoip;
  controls.bothOn = audioType == kAudioTspBothFirst || audioType == kAudioTspBothSecond;
  controls.tspAccountPopupHidden = !tspAccountPopupIsShown(controls, site);
  const bool isSecond = audioType == kAudioTspTelephonySecond || audioType == kAudioTspBothSecond;
  controls.tspAccountIndex = several && isSecond ? kSecondAccount : 0;
}

}  // namespace

AudioControls audioAtLoad(const AudioSite& site, std::int64_t audioType) {
  AudioControls controls{.bothHidden = site.isScheduleAudioBothDisabled,
                         .thirdPartyHidden = !site.enableThirdPartyAudio};
  if (site.isTspSite) {
    initAudioOptionsForTSP(controls, site, audioType);
    return controls;
  }
  controls.tspAccountHidden = true;
  controls.tspAccountPopupHidden = true;
  controls.telephonyOn = audioType == kAudioTelephony;
  controls.voipOn = audioType == kAudioVoip;
  controls.bothOn = audioType == kAudioBoth;
  controls.thirdPartyOn = audioType == kAudioThirdParty;
  return controls;
}

bool tspAccountPopupIsShown(const AudioControls& controls, const AudioSite& site) {
  return site.moreThanOneTSPAccounts() && (controls.tspAccountOn || controls.bothOn);
}

AudioControls audioAfterClick(const AudioControls& controls, AudioButton clicked, const AudioSite& site) {
  AudioControls result = controls;
  const bool isTelephony = clicked == AudioButton::telephony;
  // Of the two buttons for telephony one is shown.
  const bool isTspAccount = site.isTspSite && !controls.tspAccountHidden;
  result.telephonyOn = isTelephony && !isTspAccount;
  result.tspAccountOn = isTelephony && isTspAccount;
  result.voipOn = clicked == AudioButton::voip;
  result.bothOn = clicked == AudioButton::both;
  result.thirdPartyOn = clicked == AudioButton::thirdParty;
  result.tspAccountPopupHidden = !tspAccountPopupIsShown(result, site);
  return result;
}

std::int64_t audioTypeOfChoice(const AudioControls& controls, const AudioSite& site) {
  if (!site.isTspSite) {
    if (controls.telephonyOn) return kAudioTelephony;
    if (controls.voipOn) return kAudioVoip;
    if (controls.bothOn) return kAudioBoth;
    return controls.thirdPartyOn ? kAudioThirdParty : kAudioNoSelection;
  }
  const bool isSecond = !controls.tspAccountPopupHidden && controls.tspAccountIndex == kSecondAccount;
  if (controls.telephonyOn || controls.tspAccountOn)
    return isSecond ? kAudioTspTelephonySecond : kAudioTspTelephonyFirst;
  if (controls.voipOn) return kAudioTspVoip;
  if (controls.bothOn) return isSecond ? kAudioTspBothSecond : kAudioTspBothFirst;
  return kAudioNoSelection;
}

std::int64_t audioTypeFromUI(const AudioControls& controls, const AudioSite& site) {
  const bool isTelephony = !controls.telephonyHidden && controls.telephonyOn;
  const bool isVoip = !controls.voipHidden && controls.voipOn;
  const bool isBoth = !controls.bothHidden && controls.bothOn;
  if (!site.isTspSite) {
    if (isTelephony) return kAudioTelephony;
    if (isVoip) return kAudioVoip;
    if (isBoth) return kAudioBoth;
    return !controls.thirdPartyHidden && controls.thirdPartyOn ? kAudioThirdParty : kAudioTelephony;
  }
  const bool isSecond = controls.tspAccountIndex == kSecondAccount;
  if (isTelephony) return kAudioTspTelephonyFirst;
  if (!controls.tspAccountHidden && controls.tspAccountOn) {
    return isSecond ? kAudioTspTelephonySecond : kAudioTspTelephonyFirst;
  }
  if (isVoip) return kAudioTspVoip;
  if (isBoth) return isSecond ? kAudioTspBothSecond : kAudioTspBothFirst;
  return kAudioTspTelephonyFirst;
}

AudioControls audioForEndToEnd(const AudioControls& controls) {
  AudioControls result = controls;
  result.telephonyHidden = true;
  result.tspAccountHidden = true;
  result.tspAccountPopupHidden = true;
  result.bothHidden = true;
  result.thirdPartyHidden = true;
  result.voipHidden = false;
  result.voipOn = true;
  return result;
}

bool countriesAreShown(const AudioSite& site, std::int64_t audioType) {
  return site.isVornClientSupportEditCountries && !site.isTspSite && audioType != kAudioVoip &&
         audioType != kAudioThirdParty;
}

std::string tspAccountName(const std::string& tspServiceProvider, const AudioSite& site) {
  const std::int32_t longest = site.moreThanOneTSPAccounts() ? kNameWithSeveralAccounts : kNameWithOneAccount;
  return vnOLUtils::formatByEllipsis(tspServiceProvider, longest).value_or("");
}

namespace {

std::string tspAccountTitle(const std::string& name, std::size_t number, const TextSource& texts) {
  return texts("LN_Audio_TspAccount_44722", {name, std::to_string(number)});
}

}  // namespace

std::vector<std::string> tspAccountTitles(const std::string& tspServiceProvider, const AudioSite& site,
                                          const TextSource& texts) {
  const std::string name = tspAccountName(tspServiceProvider, site);
  std::vector<std::string> titles;
  if (!site.moreThanOneTSPAccounts()) return titles;
  for (std::size_t number = 1; number <= site.tspAccounts; ++number) {
    titles.push_back(tspAccountTitle(name, number, texts));
  }
  return titles;
}

std::string tspAccountToolTip(const std::string& tspServiceProvider, const AudioSite& site, int index,
                              const TextSource& texts) {
  if (tspAccountName(tspServiceProvider, site) == tspServiceProvider || index < 0) return "";
  if (!site.moreThanOneTSPAccounts()) return tspServiceProvider;
  return tspAccountTitle(tspServiceProvider, static_cast<std::size_t>(index) + 1, texts);
}

}  // namespace vorn::panel_rules
