#include "settings/AudioOptions.h"

#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/discovery/vnPluginBuildMgr.h"
#include "data/AudioType.h"
#include "data/vnUserProfileHelper.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

AudioOptions::AudioOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_audioOptionsBox(m_controls.add(Kind::box, control_key::audioOptionsBox)),
      m_telephonyButton(m_controls.add(Kind::radioButton, "telephonyButton", control_key::audioOptionsBox)),
      m_tspAccountButton(m_controls.add(Kind::radioButton, "tspAccountButton", control_key::audioOptionsBox)),
      m_tspAccountPopup(m_controls.add(Kind::popup, "tspAccountPopup", control_key::audioOptionsBox)),
      m_voipButton(m_controls.add(Kind::radioButton, "voipButton", control_key::audioOptionsBox)),
      m_bothButton(m_controls.add(Kind::radioButton, "bothButton", control_key::audioOptionsBox)),
      m_thirdPartyAudioButton(
          m_controls.add(Kind::radioButton, "thirdPartyAudioButton", control_key::audioOptionsBox)),
      m_thirdPartyAudioTextField(
          m_controls.add(Kind::textField, "thirdPartyAudioTextField", control_key::audioOptionsBox)) {}

void AudioOptions::initWithLocalString() {
  m_audioOptionsBox.text = panelText("LN_Schedule_Audio");
  m_telephonyButton.text = panelText("key_Audio_Telephony");
  m_tspAccountButton.text = m_telephonyButton.text;
  m_tspAccountPopup.spoken = panelText("LN_Schedule_Audio_TspAccount");
  m_voipButton.text = panelText("LN_Schedule_Audio_Voip");
  m_bothButton.text = panelText("LN_Schedule_Audio_Both");
  m_thirdPartyAudioButton.text = panelText("LN_Schedule_Audio_ThirdParty");
  m_thirdPartyAudioTextField.spoken = m_thirdPartyAudioButton.text;
  m_thirdPartyAudioTextField.placeholder = panelText("LN_Schedule_Audio_ThirdParty_Placeholder");
}

AudioSite AudioOptions::site() const {
  const vnUserProfileHelper& profile = SettingsContext::profile();
  return {
      .isTspSite = profile.isTspSite(),
      .tspAccounts = profile.tspAccounts().count(),
      .isScheduleAudioBothDisabled = profile.isScheduleAudioBothDisabled(),
      .enableThirdPartyAudio = m_record.enableThirdPartyAudio(),
      .isVornClientSupportEditCountries = vnClientFeatureMgr::sharedInstance().isVornClientSupportEditCountries()};
}

AudioControls AudioOptions::shown() const {
  return {.telephonyHidden = m_telephonyButton.hidden,
          .telephonyOn = m_telephonyButton.on,
          .tspAccountHidden = m_tspAccountButton.hidden,
          .tspAccountOn = m_tspAccountButton.on,
          .tspAccountPopupHidden = m_tspAccountPopup.hidden,
          .tspAccountIndex = m_tspAccountPopup.index,
          .voipHidden = m_voipButton.hidden,
          .voipOn = m_voipButton.on,
          .bothHidden = m_bothButton.hidden,
          .bothOn = m_bothButton.on,
          .thirdPartyHidden = m_thirdPartyAudioButton.hidden,
          .thirdPartyOn = m_thirdPartyAudioButton.on};
}

void AudioOptions::show(const AudioControls& controls) {
  m_telephonyButton.hidden = controls.telephonyHidden;
  m_telephonyButton.on = controls.telephonyOn;
  m_tspAccountButton.hidden = controls.tspAccountHidden;
  m_tspAccountButton.on = controls.tspAccountOn;
  m_tspAccountPopup.hidden = controls.tspAccountPopupHidden;
  m_tspAccountPopup.index = controls.tspAccountIndex;
  m_voipButton.hidden = controls.voipHidden;
  m_voipButton.on = controls.voipOn;
  m_bothButton.hidden = controls.bothHidden;
  m_bothButton.on = controls.bothOn;
  m_thirdPartyAudioButton.hidden = controls.thirdPartyHidden;
  m_thirdPartyAudioButton.on = controls.thirdPartyOn;
}

// -- Loading -----------------------------------------------------------------------------------------------------

void AudioOptions::initAudioBox() {
  const AudioSite site = this->site();
  initTspAccountPopup(site);
  show(audioAtLoad(site, m_record.audioType()));
  setTSPAudioTooltip(site);
  loadThirdPartyText();
  m_steps.initCountriesFromRecord();
  m_steps.initEditCountriesOptions();
}

// The panel is loaded again whenever the kind of meeting ID, the encryption or the person scheduled for changes.
// The record has not heard of what was typed meanwhile, and would take it away. A meeting keeps its text even
// where the choice is not offered: a commit writes it back.
void AudioOptions::loadThirdPartyText() {
  if (!m_isThirdPartyTyped) m_thirdPartyAudioTextField.text = m_record.thirdPartyAudio().value_or("");
}

void AudioOptions::initTspAccountPopup(const AudioSite& site) {
  m_tspAccountPopup.items.clear();
  for (std::string& title : tspAccountTitles(SettingsContext::profile().tspServiceProvider(), site, panelText)) {
    m_tspAccountPopup.items.emplace_back(std::move(title));
  }
}

void AudioOptions::setTSPAudioTooltip(const AudioSite& site) {
  const std::string toolTip = site.isTspSite ? tspAccountToolTip(SettingsContext::profile().tspServiceProvider(),
                                                                 site, m_tspAccountPopup.index, panelText)
                                             : "";
  m_telephonyButton.toolTip = toolTip;
  m_tspAccountButton.toolTip = toolTip;
  m_tspAccountPopup.toolTip = toolTip;
}

void AudioOptions::updateAudioOptionBoxStatus() {
  m_audioOptionsBox.hidden = vnPluginBuildMgr::isBuildWithoutAudioOptions();
}

void AudioOptions::updateCtrlPosForAudio() {
  m_thirdPartyAudioTextField.hidden = m_record.audioType() != kAudioThirdParty;
}

void AudioOptions::checkE2eeAffectedAccountLocked() {
  const bool isEnabled = !policyOf(vn_Setting_AudioOption).isLocked(m_context.facts(m_record).account);
  // With which account is a part of the type.
  for (Control* choice : {&m_telephonyButton, &m_tspAccountButton, &m_tspAccountPopup, &m_voipButton,
                          &m_bothButton, &m_thirdPartyAudioButton}) {
    choice->enabled = isEnabled;
  }
}

void AudioOptions::restrictAudioForEndToEnd() {
  show(audioForEndToEnd(shown()));
  m_voipButton.enabled = false;
  m_steps.showEditCountriesOptionsAsAudioType(m_record.audioType());
}

// -- What the user does ------------------------------------------------------------------------------------------

void AudioOptions::userChanged(std::string_view key) {
  if (key == m_telephonyButton.key || key == m_tspAccountButton.key) {
    return onClickAudioConfType(AudioButton::telephony);
  }
  if (key == m_voipButton.key) return onClickAudioConfType(AudioButton::voip);
  if (key == m_bothButton.key) return onClickAudioConfType(AudioButton::both);
  if (key == m_thirdPartyAudioButton.key) return onClickAudioConfType(AudioButton::thirdParty);
  if (key == m_tspAccountPopup.key) return tspAccountChanged();
  if (key == m_thirdPartyAudioTextField.key) m_isThirdPartyTyped = true;
}

void AudioOptions::onClickAudioConfType(AudioButton clicked) {
  const AudioSite site = this->site();
  show(audioAfterClick(shown(), clicked, site));
  m_record.setAudioType(audioTypeOfChoice(shown(), site));
  m_steps.showEditCountriesOptionsAsAudioType(m_record.audioType());
  updateCtrlPosForAudio();
}

// The record follows, so that the choice outlasts the next load.
void AudioOptions::tspAccountChanged() {
  const AudioSite site = this->site();
  setTSPAudioTooltip(site);
  m_record.setAudioType(audioTypeOfChoice(shown(), site));
}

// -- Commit ------------------------------------------------------------------------------------------------------

void AudioOptions::writeAudio() {
  m_record.setThirdPartyAudio(m_thirdPartyAudioTextField.text);
  m_record.setAudioType(audioTypeFromUI(shown(), site()));
}

}  // namespace vorn
