#include "settings/EncryptionOptions.h"

#include "data/NotAgainFlags.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "settings/HelpLinks.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kEncryptionBox = "encryptionBox";
constexpr const char* kEncryptionTip = "encryptionTipView";

}  // namespace

EncryptionOptions::EncryptionOptions(const PanelParts& panel)
    : m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_encryptionBox(panel.controls.add(Kind::box, kEncryptionBox)),
      m_enhancedButton(panel.controls.add(Kind::radioButton, "enhancedButton", kEncryptionBox)),
      m_enhancedHelpButton(panel.controls.add(Kind::label, "enhancedHelpButton", kEncryptionBox)),
      m_endtoendButton(panel.controls.add(Kind::radioButton, control_key::endtoendButton, kEncryptionBox)),
      m_endtoendHelpButton(panel.controls.add(Kind::label, "endtoendHelpButton", kEncryptionBox)),
      m_encryptionTipView(panel.controls.add(Kind::box, kEncryptionTip, kEncryptionBox)),
      m_encryptionTipText(panel.controls.add(Kind::label, "encryptionTipText", kEncryptionTip)),
      m_encryptionTipLearnMoreButton(
          panel.controls.add(Kind::link, "encryptionTipLearnMoreButton", kEncryptionTip)),
      m_encryptionTipCloseButton(panel.controls.add(Kind::button, "encryptionTipCloseButton", kEncryptionTip)) {}

void EncryptionOptions::initWithLocalString() {
  m_encryptionBox.text = panelText("LN_Schedule_Encryption");
  m_enhancedButton.text = panelText("LN_Schedule_Encryption_Enhanced");
  m_enhancedHelpButton.text = panelText("LN_Schedule_Encryption_Help");
  m_enhancedHelpButton.toolTip = panelText("LN_Schedule_Encryption_Enhanced_Help");
  m_endtoendButton.text = panelText("LN_Schedule_Encryption_EndToEnd");
  m_endtoendHelpButton.text = m_enhancedHelpButton.text;
  m_endtoendHelpButton.toolTip = panelText("LN_Schedule_Encryption_EndToEnd_Help");
  m_encryptionTipText.text = panelText("LN_Schedule_Encryption_TipText_172343");
  m_encryptionTipLearnMoreButton.text = panelText("LN_Schedule_Encryption_TipText_LearnMore_172343");
  m_encryptionTipCloseButton.text = panelText("LN_Schedule_Tip_Close");
}

EncryptionControls EncryptionOptions::shown() const {
  return {.boxHidden = m_encryptionBox.hidden,
          .enhancedHidden = m_enhancedButton.hidden,
          .enhancedOn = m_enhancedButton.on,
          .enhancedHelpHidden = m_enhancedHelpButton.hidden,
          .endtoendHidden = m_endtoendButton.hidden,
          .endtoendEnabled = m_endtoendButton.enabled,
          .endtoendOn = m_endtoendButton.on,
          .endtoendHelpHidden = m_endtoendHelpButton.hidden};
}

void EncryptionOptions::show(const EncryptionControls& controls) {
  m_encryptionBox.hidden = controls.boxHidden;
  m_enhancedButton.hidden = controls.enhancedHidden;
  m_enhancedButton.on = controls.enhancedOn;
  m_enhancedHelpButton.hidden = controls.enhancedHelpHidden;
  m_endtoendButton.hidden = controls.endtoendHidden;
  m_endtoendButton.enabled = controls.endtoendEnabled;
  m_endtoendButton.on = controls.endtoendOn;
  m_endtoendHelpButton.hidden = controls.endtoendHelpHidden;
}

void EncryptionOptions::initEncryptionBox() {
  const OptionFacts facts = m_context.facts(m_record);
  m_record.setEnableE2ee(enableE2eeAtLoad(m_record.enableE2ee(), facts.account));
  show(encryptionBox(shown(), m_record.enableE2ee(), facts.account, facts.client));
  moveTheOthers();
}

void EncryptionOptions::moveTheOthers() {
  m_steps.updateAffectedOptionsForE2ee();
  initEncryptionyTipView();
}

void EncryptionOptions::initEncryptionyTipView() {
  m_encryptionTipView.hidden =
      !encryptionTipIsShown(shown(), not_again::doNotShowTipView(vn_LocalProfile_EncryptionTip_NotShownAgain));
}

void EncryptionOptions::userChanged(std::string_view key) {
  if (key == m_enhancedButton.key) return onClickEncryptionType(false);
  if (key == m_endtoendButton.key) return onClickEncryptionType(true);
  if (key == m_encryptionTipLearnMoreButton.key) {
    Registry::platform().workspace->openWebPage(kEncryptionHelpLink);
  } else if (key == m_encryptionTipCloseButton.key) {
    not_again::setDoNotShowTipView(vn_LocalProfile_EncryptionTip_NotShownAgain, true);
    initEncryptionyTipView();
  }
}

void EncryptionOptions::onClickEncryptionType(bool isEndToEnd) {
  m_record.setEnableE2ee(enableE2eeAfterClick(isEndToEnd, m_context.facts(m_record).account));
  m_enhancedButton.on = !m_record.enableE2ee();
  m_endtoendButton.on = m_record.enableE2ee();
  // The kind of audio is the account's again; the words are the meeting's own.
  const OptionalText thirdPartyAudio = m_record.thirdPartyAudio();
  m_record.initAudioTypeWithUserProfile();
  if (!thirdPartyAudio.value_or("").empty()) m_record.setThirdPartyAudio(thirdPartyAudio);
  moveTheOthers();
}

}  // namespace vorn
