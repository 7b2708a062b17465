#include "settings/VnSettingViewController.h"

#include <algorithm>
#include <array>

#include "data/vnSettingKeys.h"
#include "platform/Localization.h"
#include "settings/rules/ContinueRule.h"

namespace vorn {

namespace {

// The fields that tell of a fault.
constexpr std::array<std::string_view, 3> kErrorFields{"pswFormatErrorTextField", "securityErrorTextField",
                                                       "templateDeletedTipTextField"};

}  // namespace

VnSettingViewController::VnSettingViewController(const SettingsContext& context) : m_context(context) {}

// -- Opening -----------------------------------------------------------------------------------------------------

void VnSettingViewController::initFields(const Value& meetingInfo) {
  const ControlSet::Change change(m_controls);
  setSiteMeetingInfo(meetingInfo);
  initWithLocalString();
  m_settingData.initSettingData();
  m_settingData.setScheduleForEmail(m_context.scheduledForAtOpening());
  // Tracking fields and countries have no group yet.
  m_settingData.initWithSiteMeetingInfo(meetingInfo);
  m_keptOfNewMeeting = m_settingData;
  initializeItems();
  // The meeting ID and the people to schedule for have no group yet: neither is fetched.
}

void VnSettingViewController::setSiteMeetingInfo(const Value& meetingInfo) {
  m_siteMeetingInfo = meetingInfo.isDictionary() ? meetingInfo : Value::dictionary();
  if (m_siteMeetingInfo[vn_Setting][vn_Setting_IsPMI].boolValue()) setPMIMeetingInfo(meetingInfo);
}

void VnSettingViewController::setPMIMeetingInfo(const Value& meetingInfo) {
  m_pmiMeetingInfo = meetingInfo.isDictionary() ? meetingInfo : Value::dictionary();
}

void VnSettingViewController::initWithLocalString() {
  m_plainOptions.initWithLocalString();
  m_buttonContinue.text = localizedString("Button_Continue");
  m_buttonCancel.text = localizedString("Button_Cancel");
}

void VnSettingViewController::updateUIItemsForNextTime() {
  const ControlSet::Change change(m_controls);
  initializeItems();
}

// The order of loading. Where a group is missing its place is told, and none of its controls is in the set.
void VnSettingViewController::initializeItems() {
  const ControlSet::Change change(m_controls);
  m_plainOptions.initVideo();
  m_plainOptions.initPublicEventSetting();
  // Security: the passcode, initJBHOptions.
  m_plainOptions.initMuteUponEntryBox();
  // Security: onlySignedinWithSpecifiedDomains. Meeting ID: updatePMITitle. Tracking fields: their chosen values.
  m_plainOptions.initMuteParticipantUponEntry();
  m_plainOptions.initRecordingOptions();
  // Alternate hosts.
  m_plainOptions.initForceIncludeJoinurlInLocation();
  // Meeting ID: initScheduleForBox, the choice of the ID.
  m_plainOptions.initAudioWatermarkButton();
  m_plainOptions.initPutTheInvitationAtTheTopButton();
  m_plainOptions.initSelectInvitationLanguage();
  // Security: initWaitingRoomOption.
  m_plainOptions.initUnmuteParticipantsOption();
  // Data centres: isCheckedScheduleButton, initDataCenterRegionsBox.
  m_plainOptions.initNotShowMeAgain();
  // Audio: initAudioBox, updateAudioOptionBoxStatus, arrangeAudioTypeBox. Tracking fields: initTrackingFields.
  // Sign-in domains: initRestrictDomainsBox.
  m_plainOptions.initAudioWatermark();
  m_plainOptions.initPutInvitationAtTheTop();
  // Meeting ID: initPMIDisableMessageView.
  // Templates: isCheckedScheduleButtonForTemplate, initTemplateBox.
  m_plainOptions.checkAccountLocked();
  // Security: initEncryptionBox, initSecurityBox, resetUIForPasswordFormatErrorTextField, resetPswHelpButtonState.
  // Join regions: initAllowDenyOptionBox.
  checkScheduleButton();
}

void VnSettingViewController::refreshUI(bool forPMI) {
  const ControlSet::Change change(m_controls);
  initWithLocalString();
  if (forPMI) {
    m_settingData.initWithSiteMeetingInfo(m_pmiMeetingInfo);
    if (m_context.isForUpdateVornMeeting()) {
      m_settingData.resetRequiredPasswordForEditPMIMeeting(m_pmiMeetingInfo);
    }
    m_settingData.setUsePMI(true);
    checkScheduleButton();
  } else {
    m_settingData.setUsePMI(false);
    m_settingData.initSubDataWithUserProfile(m_settingData.usePMI());
  }
  initializeItems();
}

// -- While it is open --------------------------------------------------------------------------------------------

void VnSettingViewController::userChanged(std::string_view key) {
  const ControlSet::Change change(m_controls);
  m_plainOptions.userChanged(key);
  checkScheduleButton();
}

bool VnSettingViewController::isShown(std::string_view key) const {
  const Control* control = m_controls.find(key);
  return control && !control->hidden;
}

void VnSettingViewController::checkScheduleButton() {
  const ControlSet::Change change(m_controls);
  ContinueFacts facts;
  facts.isPasscodeShown = isShown("passwordTextField");
  if (facts.isPasscodeShown) facts.passcode = m_controls.find("passwordTextField")->text;
  if (const Control* required = m_controls.find("requiredMeetingPswButton")) facts.isPasscodeOn = required->on;
  facts.isErrorShown = std::any_of(kErrorFields.begin(), kErrorFields.end(),
                                   [this](std::string_view field) { return isShown(field); });
  m_buttonContinue.enabled = mayContinue(facts);
}

// -- Its end -----------------------------------------------------------------------------------------------------

void VnSettingViewController::onSettingsCommit(bool isOK) {
  if (isOK) {
    takeControls();
    m_keptOfNewMeeting = m_settingData;
  } else {
    throwEditsAway();
  }
}

// In this order. What has no control leaves the record as it is; what is not named was written when it changed.
void VnSettingViewController::takeControls() {
  // The passcode, third-party audio, the audio type, tracking fields.
  m_settingData.setEmAutoRecordingType(m_plainOptions.getCurrentAutoRecordingTypeFromUI());
  // Alternate hosts.
  m_settingData.saveForceIncludeJoinurlInLocationToUserDefault(m_settingData.forceIncludeJoinurlInLocation());
  // Countries, whom the meeting is scheduled for.
  m_settingData.setSelectInvitationLanguage(m_plainOptions.selectedInvitationLanguage());
  // Joining before the host, signed-in users only, the waiting room, the template, join regions.
}

void VnSettingViewController::throwEditsAway() {
  if (m_siteMeetingInfo.count() > 0) {
    m_settingData.initWithSiteMeetingInfo(m_siteMeetingInfo);
  } else {
    // Empty information changes nothing, and who dismisses the panel of a new meeting wants his edits gone all the
    // same.
    m_settingData = m_keptOfNewMeeting;
  }
}

void VnSettingViewController::resetMeetingItemWhenUpdateError() {
  m_settingData.initWithSiteMeetingInfo(m_siteMeetingInfo);
}

void VnSettingViewController::updatePasswordAfterCommit(const OptionalText& passcode) {
  m_settingData.setMeetingPassword(passcode);
  m_settingData.setRequiredMeetingPassword(!passcode.value_or("").empty());
}

}  // namespace vorn
