#include "settings/rules/AudioRules.h"

#include <numeric>

#include "util/vnOLUtils.h"

namespace vorn::panel_rules {

namespace {

constexpr std::int64_t kTelephony = 0;
constexpr std::int64_t kVoip = 1;
constexpr std::int64_t kBoth = 2;
constexpr std::int64_t kThirdParty = 3;
constexpr std::int64_t kTspTelephonyFirst = 10;
constexpr std::int64_t kTspTelephonySecond = 11;
constexpr std::int64_t kTspVoip = 12;
constexpr std::int64_t kTspBothFirst = 13;
constexpr std::int64_t kTspBothSecond = 14;
constexpr std::int64_t kNoSelection = 100;

constexpr int kSecondAccount = 1;

// In UTF-16 units.
constexpr std::int32_t kNameWithSeveralAccounts = 18;
constexpr std::int32_t kNameWithOneAccount = 30;

void chooseOnTspSite(AudioControls& controls, const AudioSite& site, std::int64_t audioType) {
  const bool several = site.moreThanOneTSPAccounts();
  controls.telephonyHidden = several;
  controls.tspAccountHidden = !several;
  const bool isFirst = audioType == kTspTelephonyFirst;
  // One account has no second telephony, so that a meeting made with two shows none.
  if (several) {
    controls.tspAccountOn = isFirst || audioType == kTspTelephonySecond;
  } else {
    controls.telephonyOn = isFirst;
  }
  controls.voipOn = audioType == kTspVoip;
  controls.bothOn = audioType == kTspBothFirst || audioType == kTspBothSecond;
  controls.tspAccountPopupHidden = !tspAccountPopupIsShown(controls, site);
  const bool isSecond = audioType == kTspTelephonySecond || audioType == kTspBothSecond;
  controls.tspAccountIndex = several && isSecond ? kSecondAccount : 0;
}

}  // namespace

AudioControls audioAtLoad(const AudioSite& site, std::int64_t audioType) {
  AudioControls controls{.bothHidden = site.isScheduleAudioBothDisabled,
                         .thirdPartyHidden = !site.enableThirdPartyAudio};
  if (site.isTspSite) {
    chooseOnTspSite(controls, site, audioType);
    return controls;
  }
  controls.tspAccountHidden = true;
  controls.tspAccountPopupHidden = true;
  controls.telephonyOn = audioType == kTelephony;
  controls.voipOn = audioType == kVoip;
  controls.bothOn = audioType == kBoth;
  controls.thirdPartyOn = audioType == kThirdParty;
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
    if (controls.telephonyOn) return kTelephony;
    if (controls.voipOn) return kVoip;
    if (controls.bothOn) return kBoth;
    return controls.thirdPartyOn ? kThirdParty : kNoSelection;
  }
  const bool isSecond = !controls.tspAccountPopupHidden && controls.tspAccountIndex == kSecondAccount;
  if (controls.telephonyOn || controls.tspAccountOn) return isSecond ? kTspTelephonySecond : kTspTelephonyFirst;
  if (controls.voipOn) return kTspVoip;
  if (controls.bothOn) return isSecond ? kTspBothSecond : kTspBothFirst;
  return kNoSelection;
}

std::int64_t audioTypeFromUI(const AudioControls& controls, const AudioSite& site) {
  const bool isTelephony = !controls.telephonyHidden && controls.telephonyOn;
  const bool isVoip = !controls.voipHidden && controls.voipOn;
  const bool isBoth = !controls.bothHidden && controls.bothOn;
  if (!site.isTspSite) {
    if (isTelephony) return kTelephony;
    if (isVoip) return kVoip;
    if (isBoth) return kBoth;
    return !controls.thirdPartyHidden && controls.thirdPartyOn ? kThirdParty : kTelephony;
  }
  const bool isSecond = controls.tspAccountIndex == kSecondAccount;
  if (isTelephony) return kTspTelephonyFirst;
  if (!controls.tspAccountHidden && controls.tspAccountOn) {
    return isSecond ? kTspTelephonySecond : kTspTelephonyFirst;
  }
  if (isVoip) return kTspVoip;
  if (isBoth) return isSecond ? kTspBothSecond : kTspBothFirst;
  return kTspTelephonyFirst;
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
  return site.isVornClientSupportEditCountries && !site.isTspSite && audioType != kVoip &&
         audioType != kThirdParty;
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

int audioTypeShowLines(const std::vector<double>& shownWidths) {
  constexpr std::size_t kTooManyForOneLine = 4;
  constexpr double kBetween = 5;
  constexpr double kLine = 474;
  if (shownWidths.size() >= kTooManyForOneLine) return 2;
  const double gaps = shownWidths.empty() ? 0 : kBetween * static_cast<double>(shownWidths.size() - 1);
  return std::accumulate(shownWidths.begin(), shownWidths.end(), gaps) > kLine ? 2 : 1;
}

}  // namespace vorn::panel_rules
