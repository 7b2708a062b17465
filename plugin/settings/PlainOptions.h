#pragma once

#include <string>
#include <string_view>

#include "settings/PanelParts.h"
#include "settings/rules/RecordingRules.h"

namespace vorn {

// The options of the panel that need no group of their own: video, public event, muting, recording, the join URL,
// the audio watermark, the invitation's place and language, and the user's wish to see the panel no more.
//
// Main thread only.
class PlainOptions {
 public:
  explicit PlainOptions(const PanelParts& panel);

  void initWithLocalString();

  // The steps of loading, which the panel calls in its order.
  void initVideo();
  void initPublicEventSetting();
  void initMuteUponEntryBox();
  void initMuteParticipantUponEntry();
  void initRecordingOptions();
  void initForceIncludeJoinurlInLocation();
  void initAudioWatermarkButton();
  void initPutTheInvitationAtTheTopButton();
  void initSelectInvitationLanguage();
  void initUnmuteParticipantsOption();
  void initNotShowMeAgain();
  void initAudioWatermark();
  void initPutInvitationAtTheTop();
  void checkAccountLocked();
  void checkE2eeAffectedAccountLocked();
  // What is encrypted from end to end is not recorded in the cloud.
  void restrictRecordingForEndToEnd();

  // The record takes the switches as they are shown; it knows better of those that are not.
  void writeShownSwitches();

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of them. All others are in the record since they were changed.
  std::int32_t getCurrentAutoRecordingTypeFromUI() const;
  std::string selectedInvitationLanguage() const;
  // The account's lock turns the watermark on where it is shown.
  void writeLockedAudioWatermark();
  // What the user has chosen here. The user defaults hold it, and a record that is made for another window
  // meanwhile writes there as well.
  void writeNotShowMeAgain();
  // The user's choices have gone into the record, or with the panel.
  void forgetTyped() { m_isLanguageChosen = m_isNotAgainChosen = false; }

 private:
  Control& control(const PlainOption& option);
  SwitchState state(const PlainOption& option) const;
  bool isOn(const PlainOption& option);
  void takeState(const PlainOption& option);
  void takeVisibility(const PlainOption& option);
  RecordingKinds recordingKinds() const;
  RecordingState shownRecording() const;
  void show(const RecordingState& recording);
  void onHostVideo();
  void onPublicEvent();
  void onClickAutoRecordingButton();
  void onClickAutoRecordingOptionMatrix(bool isCloud);

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;

  // A language that the user has chosen outlasts the next load.
  bool m_isLanguageChosen = false;
  bool m_isNotAgainChosen = false;

  Control& m_publicEventBox;
  Control& m_publicEventListButton;
  Control& m_muteUponEntryBox;
  Control& m_autoRecordingBox;
  Control& m_autoRecordingButton;
  Control& m_autoRecordingOptionMatrixLocal;
  Control& m_autoRecordingOptionMatrixCloud;
  Control& m_selectLanguageText;
  Control& m_selectLanguagePopup;
  Control& m_notShowMeAgain;
};

}  // namespace vorn
