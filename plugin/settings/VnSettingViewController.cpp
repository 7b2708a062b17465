#include "settings/VnSettingViewController.h"

#include <algorithm>
#include <array>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "settings/rules/PanelReasons.h"

namespace vorn {

namespace {

// The fields that tell of a fault.
constexpr std::array<std::string_view, 3> kErrorFields{"pswFormatErrorTextField", "securityErrorTextField",
                                                       "templateDeletedTipTextField"};

}  // namespace

VnSettingViewController::VnSettingViewController(const SettingsContext& context) : m_context(context) {
  m_controls.completeWith([this] { explain(); });
}

VnSettingViewController::~VnSettingViewController() {
  if (RunLoop* runLoop = Registry::platform().runLoop) runLoop->cancelPrevious(this);
}

// -- Opening -----------------------------------------------------------------------------------------------------

void VnSettingViewController::initFields(const Value& meetingInfo) {
  const ControlSet::Change change(m_controls);
  setSiteMeetingInfo(meetingInfo);
  m_security.passcodeField().setTextChangeTarget([this] { fieldTextChange(); });
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
  m_security.initWithLocalString();
  m_encryption.initWithLocalString();
  m_alternateHosts.initWithLocalString();
  m_buttonContinue.text = localizedString("Button_Continue");
  m_buttonCancel.text = localizedString("Button_Cancel");
}

void VnSettingViewController::updateUIItemsForNextTime() {
  const ControlSet::Change change(m_controls);
  closeSubWindows();
  initializeItems();
}

// The order of loading. Where a group is missing its place is told, and none of its controls is in the set.
void VnSettingViewController::initializeItems() {
  const ControlSet::Change change(m_controls);
  m_plainOptions.initVideo();
  m_plainOptions.initPublicEventSetting();
  m_security.initPasscode();
  m_joinBeforeHost.initJBHOptions();
  m_plainOptions.initMuteUponEntryBox();
  m_signInDomains.initOnlySignedin();
  // Meeting ID: updatePMITitle. Tracking fields: their chosen values.
  m_plainOptions.initMuteParticipantUponEntry();
  m_plainOptions.initRecordingOptions();
  m_alternateHosts.initAlternateHosts();
  m_plainOptions.initForceIncludeJoinurlInLocation();
  // Meeting ID: initScheduleForBox, the choice of the ID.
  m_plainOptions.initAudioWatermarkButton();
  m_plainOptions.initPutTheInvitationAtTheTopButton();
  m_plainOptions.initSelectInvitationLanguage();
  m_security.initWaitingRoomOption();
  m_plainOptions.initUnmuteParticipantsOption();
  // Data centres: isCheckedScheduleButton, initDataCenterRegionsBox.
  m_plainOptions.initNotShowMeAgain();
  // Audio: initAudioBox, updateAudioOptionBoxStatus, arrangeAudioTypeBox. Tracking fields: initTrackingFields.
  m_signInDomains.initRestrictDomainsBox();
  m_plainOptions.initAudioWatermark();
  m_plainOptions.initPutInvitationAtTheTop();
  // Meeting ID: initPMIDisableMessageView.
  // Templates: isCheckedScheduleButtonForTemplate, initTemplateBox.
  checkAccountLocked();
  m_encryption.initEncryptionBox();
  m_security.initSecurityBox();
  m_security.resetUIForPasswordFormatErrorTextField();
  m_security.resetPswHelpButtonState();
  m_allowDeny.initAllowDenyOptionBox();
  checkScheduleButton();
}

void VnSettingViewController::checkAccountLocked() {
  m_plainOptions.checkAccountLocked();
  m_signInDomains.checkAccountLocked();
  m_security.checkAccountLocked();
  // Meeting ID: both buttons.
  m_allowDeny.checkAccountLocked();
  checkE2eeAffectedAccountLocked();
  m_security.checkIfRequirePasswordLocked();
}

// What end-to-end encryption takes away comes back with the account's locks.
void VnSettingViewController::checkE2eeAffectedAccountLocked() {
  // Audio: its buttons.
  m_joinBeforeHost.checkE2eeAffectedAccountLocked();
  m_plainOptions.checkE2eeAffectedAccountLocked();
}

void VnSettingViewController::updateAffectedOptionsForE2ee() {
  if (m_encryption.isEndToEnd()) {
    m_joinBeforeHost.turnOffForEndToEnd();
    m_security.updatePasswordStateWithJBHChanged();
    m_joinBeforeHost.hideForEndToEnd();
    m_settingData.setAudioType(panel_rules::audioTypeForEndToEnd(m_context.facts(m_settingData).account));
    m_plainOptions.restrictRecordingForEndToEnd();
  } else {
    m_joinBeforeHost.initJBHOptions();
    // Audio: initAudioBox.
    m_plainOptions.initRecordingOptions();
    checkE2eeAffectedAccountLocked();
  }
  // Audio: updateAudioOptionBoxStatus, arrangeAudioTypeBox.
}

void VnSettingViewController::refreshUI(bool forPMI) {
  const ControlSet::Change change(m_controls);
  closeSubWindows();
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

// What the user presses in the sheet closes the windows beside it; what they type, or press in such a window, does
// not.
void VnSettingViewController::userChanged(std::string_view key) {
  const ControlSet::Change change(m_controls);
  const Control* used = m_controls.find(key);
  const bool isTyped = used && (used->kind == Control::Kind::textField || used->kind == Control::Kind::comboBox ||
                                used->kind == Control::Kind::tokenField);
  if (!isTyped && m_controls.windowOf(key).empty()) closeSubWindows();
  m_plainOptions.userChanged(key);
  m_security.userChanged(key);
  m_signInDomains.userChanged(key);
  m_joinBeforeHost.userChanged(key);
  m_encryption.userChanged(key);
  m_alternateHosts.userChanged(key);
  m_allowDeny.userChanged(key);
  checkScheduleButton();
}

void VnSettingViewController::closeSubWindows() {
  const ControlSet::Change change(m_controls);
  m_passwordRuleWindowController.closePasswordRuleWindows();
  m_alternateHosts.closeAlternateHostSearchListWindow();
  m_allowDeny.closeAllowDenyRCSearchListWindow();
}

void VnSettingViewController::makeFirstResponderWithObject(std::string_view key) {
  constexpr std::string_view kRequest = "makeFirstResponderWithObject:";
  RunLoop* runLoop = Registry::platform().runLoop;
  runLoop->cancelPrevious(this, kRequest);
  runLoop->performAfter(0, this, kRequest, [this, wanted = std::string(key)] {
    const ControlSet::Change change(m_controls);
    m_controls.focusOn(wanted);
  });
}

void VnSettingViewController::resetPasswordRuleUI() {
  const ControlSet::Change change(m_controls);
  m_security.resetPasswordRuleUI();
}

ContinueFacts VnSettingViewController::continueFacts() const {
  ContinueFacts facts;
  facts.isPasscodeShown = m_controls.isShown("passwordTextField");
  facts.isPasscodeOn = m_controls.isOn("requiredMeetingPswButton");
  facts.passcode = m_controls.find("passwordTextField")->text;
  facts.isErrorShown = std::any_of(kErrorFields.begin(), kErrorFields.end(),
                                   [this](std::string_view field) { return m_controls.isShown(field); });
  facts.isAlternateHostShown = m_controls.isShown("alternateHostBox");
  facts.hasAlternateHostError = m_alternateHosts.checkAlternateHostError();
  return facts;
}

void VnSettingViewController::checkScheduleButton() {
  const ControlSet::Change change(m_controls);
  m_buttonContinue.enabled = mayContinue(continueFacts());
}

void VnSettingViewController::explain() {
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
  const OptionalText& person = m_settingData.scheduleForEmail();
  const bool isForMyself = person.value_or("").empty();
  panel_rules::explain(m_controls, {.facts = m_context.facts(m_settingData),
                                    .usePMI = m_settingData.usePMI(),
                                    .isEnableRecurrence = m_context.isEnableRecurrence(),
                                    .isSupportOnlyAuthUsersCanJoin = account.isSupportOnlyAuthUsersCanJoin(),
                                    .isShowUseWebSettingTipView = account.isShowUseWebSettingTipView(),
                                    .isEnableScheduleFor = account.isEnableScheduleFor(),
                                    .isDisablePMI = isForMyself ? account.isDisablePMI()
                                                                : account.isDisablePMIWithScheduleForEmail(person),
                                    .isEnableAdminTemplate = account.isEnableAdminTemplate(person),
                                    .isSupportRegionCustomization = account.isSupportRegionCustomization(),
                                    .isVornClientSupport500Tasks = client.isVornClientSupport500Tasks(),
                                    .isVornClientSupportEditCountries = client.isVornClientSupportEditCountries(),
                                    .heldBackBy = std::string(whatHoldsContinueBack(continueFacts()))});
}

// -- Its end -----------------------------------------------------------------------------------------------------

void VnSettingViewController::onSettingsCommit(bool isOK) {
  m_allowDeny.endWindow();
  if (isOK) {
    takeControls(Commit::meant);
    m_keptOfNewMeeting = m_settingData;
  } else {
    throwEditsAway();
  }
  m_alternateHosts.forgetEdits();
}

// In this order. What has no control leaves the record as it is; what is not named was written when it changed.
void VnSettingViewController::takeControls(Commit commit) {
  m_security.writePasscode();
  // Third-party audio, the audio type, tracking fields.
  m_settingData.setEmAutoRecordingType(m_plainOptions.getCurrentAutoRecordingTypeFromUI());
  m_alternateHosts.writeAlternateHosts();
  if (commit == Commit::meant) {
    m_settingData.saveForceIncludeJoinurlInLocationToUserDefault(m_settingData.forceIncludeJoinurlInLocation());
  }
  // Countries, whom the meeting is scheduled for.
  m_settingData.setSelectInvitationLanguage(m_plainOptions.selectedInvitationLanguage());
  m_joinBeforeHost.writeJoinBeforeHost();
  m_signInDomains.writeSignIn();
  m_security.writeWaitingRoom();
  // The template.
  m_allowDeny.writeAllowDeny();
}

Value VnSettingViewController::settingsToCommit() {
  const vnSettingData record = m_settingData;
  takeControls(Commit::tried);
  const Value settings = getSettingsData();
  m_settingData = record;
  return settings;
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
