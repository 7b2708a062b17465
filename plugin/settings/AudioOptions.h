#pragma once

#include <string>
#include <string_view>

#include "settings/PanelParts.h"
#include "settings/rules/AudioRules.h"

namespace vorn {

// The choice of a meeting's audio: telephone, computer, both or a third party's, and on a site of a telephony
// provider with which of its accounts.
//
// Main thread only.
class AudioOptions {
 public:
  explicit AudioOptions(const PanelParts& panel);

  void initWithLocalString();

  // The steps of loading, which the panel calls in its order.
  void initAudioBox();
  void loadThirdPartyText();
  void updateAudioOptionBoxStatus();
  void updateCtrlPosForAudio();
  void checkE2eeAffectedAccountLocked();

  // Nothing but the computers' own audio is left; the record says so already. Afterwards initAudioBox() and the
  // account's locks bring the choice back.
  void restrictAudioForEndToEnd();

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of them.
  void writeAudio();
  // The panel has ended: from now on the record counts, and not what was typed.
  void forgetTyped() { m_isThirdPartyTyped = false; }

 private:
  panel_rules::AudioSite site() const;
  panel_rules::AudioControls shown() const;
  void show(const panel_rules::AudioControls& controls);
  void initTspAccountPopup(const panel_rules::AudioSite& site);
  void setTSPAudioTooltip(const panel_rules::AudioSite& site);
  void onClickAudioConfType(panel_rules::AudioButton clicked);
  void tspAccountChanged();

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;
  // The user has typed the third party's text since the panel was opened.
  bool m_isThirdPartyTyped = false;

  Control& m_audioOptionsBox;
  Control& m_telephonyButton;
  Control& m_tspAccountButton;
  Control& m_tspAccountPopup;
  Control& m_voipButton;
  Control& m_bothButton;
  Control& m_thirdPartyAudioButton;
  Control& m_thirdPartyAudioTextField;
};

}  // namespace vorn
