#pragma once

#include <string_view>

#include "settings/PanelParts.h"
#include "settings/rules/EncryptionRules.h"

namespace vorn {

// The choice between enhanced and end-to-end encryption, which moves the audio, the recording and who may join
// early. Main thread only.
class EncryptionOptions {
 public:
  explicit EncryptionOptions(const PanelParts& panel);

  void initWithLocalString();
  void initEncryptionBox();

  // End-to-end encryption is offered and chosen.
  bool isEndToEnd() const { return shown().isEndToEnd(); }

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

 private:
  panel_rules::EncryptionControls shown() const;
  void show(const panel_rules::EncryptionControls& controls);
  void moveTheOthers();
  void initEncryptionyTipView();
  void onClickEncryptionType(bool isEndToEnd);

  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  Control& m_encryptionBox;
  Control& m_enhancedButton;
  Control& m_enhancedHelpButton;
  Control& m_endtoendButton;
  Control& m_endtoendHelpButton;
  Control& m_encryptionTipView;
  Control& m_encryptionTipText;
  Control& m_encryptionTipLearnMoreButton;
  Control& m_encryptionTipCloseButton;
};

}  // namespace vorn
