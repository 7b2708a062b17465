#include "settings/PlainOptions.h"

#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/Workspace.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/InvitationLanguages.h"

namespace vorn {

using Kind = Control::Kind;

namespace {

constexpr int kColumnOn = 0;
constexpr int kColumnOff = 1;

// The options whose record follows the control, and nothing else happens.
constexpr struct {
  const PlainOption* option;
  void (vnSettingData::*set)(bool);
} kFollowers[] = {
    {&plain_option::participantVideo, &vnSettingData::setPaticipantVideoOn},
    {&plain_option::muteUponEntry, &vnSettingData::setMuteUponEntry},
    {&plain_option::unmuteAll, &vnSettingData::setEnableUnmuteAll},
    {&plain_option::joinUrlInLocation, &vnSettingData::setForceIncludeJoinurlInLocation},
    {&plain_option::audioWatermark, &vnSettingData::setEnableAudioWatermark},
    {&plain_option::invitationAtTheTop, &vnSettingData::setPutTheInvitationAtTheTop},
};

bool isMatrix(const PlainOption& option) {
  return option.control == plain_option::hostVideo.control ||
         option.control == plain_option::participantVideo.control;
}

std::string boxOf(const PlainOption& option) {
  if (option.control == plain_option::publicEvent.control) return "publicEventBox";
  return option.control == plain_option::muteUponEntry.control ? "muteUponEntryBox" : "";
}

std::string titleOf(RecordingState::Title title) {
  switch (title) {
    case RecordingState::Title::cloudOnly: return localizedString("key_AutoRecordingCloudOnly");
    case RecordingState::Title::localOnly: return localizedString("key_AutoRecordingLocalOnly");
    case RecordingState::Title::both: return localizedString("key_AutoRecordingBoth");
  }
  return "";
}

}  // namespace

PlainOptions::PlainOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_publicEventBox(m_controls.add(Kind::box, "publicEventBox")),
      m_publicEventListButton(m_controls.add(Kind::link, "publicEventListButton", "publicEventBox")),
      m_muteUponEntryBox(m_controls.add(Kind::box, "muteUponEntryBox")),
      m_autoRecordingBox(m_controls.add(Kind::box, "autoRecordingBox")),
      m_autoRecordingButton(m_controls.add(Kind::checkBox, "autoRecordingButton", "autoRecordingBox")),
      m_autoRecordingOptionMatrixLocal(
          m_controls.add(Kind::radioButton, "autoRecordingOptionMatrixLocal", "autoRecordingBox")),
      m_autoRecordingOptionMatrixCloud(
          m_controls.add(Kind::radioButton, "autoRecordingOptionMatrixCloud", "autoRecordingBox")),
      m_selectLanguageText(m_controls.add(Kind::label, "selectLanguageText")),
      m_selectLanguagePopup(m_controls.add(Kind::popup, "selectLanguagePopup")),
      m_notShowMeAgain(m_controls.add(Kind::checkBox, "notShowMeAgain")) {
  for (const PlainOption& option : plain_option::all) {
    m_controls.add(isMatrix(option) ? Kind::radioGroup : Kind::checkBox, std::string(option.control),
                   boxOf(option));
  }
}

Control& PlainOptions::control(const PlainOption& option) { return *m_controls.find(option.control); }

SwitchState PlainOptions::state(const PlainOption& option) const {
  OptionFacts facts = m_context.facts(m_record);
  facts.isSignInOnly = m_controls.isShownAndOn(control_key::onlySignedinWithSpecifiedDomains);
  return stateOf(option, facts, m_record.options());
}

bool PlainOptions::isOn(const PlainOption& option) {
  const Control& shown = control(option);
  return shown.kind == Kind::radioGroup ? shown.index == kColumnOn : shown.on;
}

void PlainOptions::takeState(const PlainOption& option) {
  Control& shown = control(option);
  shown.on = state(option).isOn;
  if (shown.kind == Kind::radioGroup) shown.index = shown.on ? kColumnOn : kColumnOff;
}

void PlainOptions::takeVisibility(const PlainOption& option) { control(option).hidden = !state(option).isShown; }

void PlainOptions::initWithLocalString() {
  const std::vector<ControlItem> columns{localizedString("LN_Schedule_Video_On"),
                                         localizedString("LN_Schedule_Video_Off")};
  control(plain_option::hostVideo).text = localizedString("LN_Schedule_Video_Host");
  control(plain_option::hostVideo).items = columns;
  control(plain_option::participantVideo).text = localizedString("LN_Schedule_Video_Participants");
  control(plain_option::participantVideo).items = columns;
  control(plain_option::publicEvent).text = localizedString("LN_Schedule_PublicEvent");
  m_publicEventListButton.text = localizedString("LN_Schedule_PublicEvent_List");
  control(plain_option::muteUponEntry).text = localizedString("LN_Schedule_MuteUponEntry");
  control(plain_option::unmuteAll).text = localizedString("LN_Schedule_UnmuteAll");
  m_autoRecordingOptionMatrixLocal.text = localizedString("LN_Schedule_AutoRecording_Local");
  m_autoRecordingOptionMatrixCloud.text = localizedString("LN_Schedule_AutoRecording_Cloud");
  control(plain_option::joinUrlInLocation).text = localizedString("LN_Schedule_JoinUrlInLocation");
  control(plain_option::audioWatermark).text = localizedString("LN_Schedule_AudioWatermark");
  control(plain_option::invitationAtTheTop).text = localizedString("LN_Schedule_InvitationAtTheTop");
  m_selectLanguageText.text = localizedString("LN_Schedule_SelectLanguage");
  m_selectLanguagePopup.items.clear();
  for (const InvitationLanguage& language : kInvitationLanguages) {
    m_selectLanguagePopup.items.push_back(localizedString(language.titleKey));
  }
  m_notShowMeAgain.text = localizedString("LN_Schedule_NotShowMeAgain");
}

// -- Loading -----------------------------------------------------------------------------------------------------

void PlainOptions::initVideo() {
  takeState(plain_option::hostVideo);
  takeState(plain_option::participantVideo);
}

void PlainOptions::initPublicEventSetting() {
  takeState(plain_option::publicEvent);
  takeVisibility(plain_option::publicEvent);
  m_publicEventBox.hidden = control(plain_option::publicEvent).hidden;
  m_publicEventListButton.hidden = !control(plain_option::publicEvent).isShownAndOn();
}

void PlainOptions::initMuteUponEntryBox() {
  takeVisibility(plain_option::muteUponEntry);
  m_muteUponEntryBox.hidden = control(plain_option::muteUponEntry).hidden;
}

void PlainOptions::initMuteParticipantUponEntry() { takeState(plain_option::muteUponEntry); }

void PlainOptions::initRecordingOptions() {
  show(recordingAtLoad(recordingKinds(), m_record.emAutoRecordingType()));
}

void PlainOptions::initForceIncludeJoinurlInLocation() { takeState(plain_option::joinUrlInLocation); }

void PlainOptions::initAudioWatermarkButton() { takeState(plain_option::audioWatermark); }

void PlainOptions::initPutTheInvitationAtTheTopButton() { takeState(plain_option::invitationAtTheTop); }

void PlainOptions::initSelectInvitationLanguage() {
  m_selectLanguagePopup.hidden = !m_context.facts(m_record).client.isVornClientSupportInvitationLanguage;
  m_selectLanguageText.hidden = m_selectLanguagePopup.hidden;
  m_selectLanguagePopup.index = invitationLanguageIndex(initialInvitationLanguage(
      m_isLanguageChosen ? std::nullopt : m_context.getInvitationLanguage(), m_record.selectInvitationLanguage(),
      Registry::platform().surroundings->preferredLanguages().front()));
}

void PlainOptions::initUnmuteParticipantsOption() {
  takeState(plain_option::unmuteAll);
  takeVisibility(plain_option::unmuteAll);
}

void PlainOptions::initNotShowMeAgain() { m_notShowMeAgain.on = m_record.notShowMeAgain(); }

void PlainOptions::initAudioWatermark() { takeVisibility(plain_option::audioWatermark); }

void PlainOptions::initPutInvitationAtTheTop() { takeVisibility(plain_option::invitationAtTheTop); }

void PlainOptions::checkAccountLocked() {
  for (const PlainOption& option : plain_option::all) control(option).enabled = !state(option).isLocked;
}

// -- Recording ---------------------------------------------------------------------------------------------------

RecordingKinds PlainOptions::recordingKinds() const {
  const AccountFacts account = m_context.facts(m_record).account;
  return {.local = account.enableLocalRecording, .cloud = account.enableCloudRecording};
}

RecordingState PlainOptions::shownRecording() const {
  return {.isShown = !m_autoRecordingButton.hidden,
          .isOn = m_autoRecordingButton.on,
          .title = recordingTitle(recordingKinds()),
          .isLocalShown = !m_autoRecordingOptionMatrixLocal.hidden,
          .isCloudShown = !m_autoRecordingOptionMatrixCloud.hidden,
          .isCloudChosen = m_autoRecordingOptionMatrixCloud.on};
}

void PlainOptions::show(const RecordingState& recording) {
  m_autoRecordingBox.hidden = !recording.isShown;
  m_autoRecordingButton.hidden = !recording.isShown;
  m_autoRecordingButton.on = recording.isOn;
  m_autoRecordingButton.text = titleOf(recording.title);
  m_autoRecordingOptionMatrixLocal.hidden = !recording.isLocalShown;
  m_autoRecordingOptionMatrixCloud.hidden = !recording.isCloudShown;
  m_autoRecordingOptionMatrixLocal.on = !recording.isCloudChosen;
  m_autoRecordingOptionMatrixCloud.on = recording.isCloudChosen;
}

void PlainOptions::checkE2eeAffectedAccountLocked() {
  const bool isLocked = policyOf(vn_Setting_EnableAutoRecordingType).isLocked(m_context.facts(m_record).account);
  m_autoRecordingButton.enabled = !isLocked;
  m_autoRecordingOptionMatrixLocal.enabled = !isLocked;
  m_autoRecordingOptionMatrixCloud.enabled = !isLocked;
}

void PlainOptions::restrictRecordingForEndToEnd() {
  const EndToEndRecording recording =
      recordingForEndToEnd(shownRecording(), recordingKinds(), m_autoRecordingButton.enabled);
  show(recording.state);
  m_autoRecordingButton.enabled = recording.switchIsEnabled;
  if (!recording.choicesAreDisabled) return;
  m_autoRecordingOptionMatrixLocal.enabled = false;
  m_autoRecordingOptionMatrixCloud.enabled = false;
}

std::int32_t PlainOptions::getCurrentAutoRecordingTypeFromUI() const {
  return recordingTypeToCommit(recordingKinds(), shownRecording(), m_record.enableE2ee());
}

void PlainOptions::onClickAutoRecordingButton() {
  const RecordingState clicked = recordingAfterClick(shownRecording(), recordingKinds(), m_autoRecordingButton.on,
                                                     m_controls.isShownAndOn(control_key::endtoendButton));
  m_autoRecordingOptionMatrixLocal.hidden = !clicked.isLocalShown;
  m_autoRecordingOptionMatrixCloud.hidden = !clicked.isCloudShown;
  // So that the choice outlasts the next load.
  m_record.setEmAutoRecordingType(getCurrentAutoRecordingTypeFromUI());
}

void PlainOptions::onClickAutoRecordingOptionMatrix(bool isCloud) {
  m_autoRecordingOptionMatrixLocal.on = !isCloud;
  m_autoRecordingOptionMatrixCloud.on = isCloud;
  m_record.setEmAutoRecordingType(recordingTypeOfChoice(isCloud));
}

// -- What the user does ------------------------------------------------------------------------------------------

void PlainOptions::userChanged(std::string_view key) {
  if (key == plain_option::hostVideo.control) return onHostVideo();
  if (key == plain_option::publicEvent.control) return onPublicEvent();
  if (key == m_publicEventListButton.key) {
    Registry::platform().workspace->openWebPage(vnUserProfileHelper::sharedInstance().getPublicEventListUrl());
    return;
  }
  if (key == m_autoRecordingButton.key) return onClickAutoRecordingButton();
  if (key == m_autoRecordingOptionMatrixLocal.key) return onClickAutoRecordingOptionMatrix(false);
  if (key == m_autoRecordingOptionMatrixCloud.key) return onClickAutoRecordingOptionMatrix(true);
  if (key == m_selectLanguagePopup.key) {
    m_isLanguageChosen = true;
    return m_record.setSelectInvitationLanguage(selectedInvitationLanguage());
  }
  // Written to the disk at once, so a dismissed panel takes it back no more.
  if (key == m_notShowMeAgain.key) {
    m_isNotAgainChosen = true;
    return writeNotShowMeAgain();
  }
  for (const auto& [option, set] : kFollowers) {
    if (key == option->control) (m_record.*set)(isOn(*option));
  }
}

void PlainOptions::writeShownSwitches() {
  if (!control(plain_option::hostVideo).hidden) m_record.setHostVideoOn(isOn(plain_option::hostVideo));
  if (!control(plain_option::publicEvent).hidden) m_record.setEnablePublicEvent(isOn(plain_option::publicEvent));
  for (const auto& [option, set] : kFollowers) {
    if (!control(*option).hidden) (m_record.*set)(isOn(*option));
  }
}

// A host without video has no participants with it; the way back is the user's own choice.
void PlainOptions::onHostVideo() {
  m_record.setHostVideoOn(isOn(plain_option::hostVideo));
  // What the account locks stays as it is, whichever control leads there.
  if (m_record.hostVideoOn() || state(plain_option::participantVideo).isLocked) return;
  m_record.setPaticipantVideoOn(false);
  takeState(plain_option::participantVideo);
}

void PlainOptions::onPublicEvent() {
  m_record.setEnablePublicEvent(isOn(plain_option::publicEvent));
  m_publicEventListButton.hidden = !control(plain_option::publicEvent).isShownAndOn();
}

void PlainOptions::writeLockedAudioWatermark() {
  const Control& watermark = control(plain_option::audioWatermark);
  if (!watermark.hidden && !watermark.enabled) m_record.setEnableAudioWatermark(true);
}

void PlainOptions::writeNotShowMeAgain() {
  if (m_isNotAgainChosen) m_record.setNotShowMeAgain(m_notShowMeAgain.on);
}

std::string PlainOptions::selectedInvitationLanguage() const {
  return std::string(invitationLanguageCode(m_selectLanguagePopup.index));
}

}  // namespace vorn
