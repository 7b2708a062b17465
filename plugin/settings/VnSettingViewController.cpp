#include "settings/VnSettingViewController.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "channel/commands/vnAPIKeys.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/controls/FieldKeys.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/PanelReasons.h"
#include "util/Text.h"

namespace vorn {

namespace {

constexpr std::string_view kKeyboardRequest = "makeFirstResponderWithObject:";

}  // namespace

VnSettingViewController::VnSettingViewController(const SettingsContext& context)
    : m_context(context),
      m_clientWaitEnded(Registry::platform().notificationCenter->observe(
          notify_ClientWaitEnded, [this](const NotificationCenter::Notification& note) {
            if (note.userInfo[keyApptWindowID].text() == m_context.windowId()) checkScheduleButton();
          })) {
  NotificationCenter* center = Registry::platform().notificationCenter;
  m_trackingFieldChanges =
      center->observe(kNoti_VNTrackingFieldValueChanged, [this](const auto&) { onTrackingFieldValueChanged(); });
  m_countryChanges = center->observe(notify_Setting_SelectedCountriesChanged,
                                     [this](const auto&) { onSelectedCountriesChanged(); });
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
  m_trackingFieldsController.initTrackingFieldItemListWithUserProfile();
  m_editCountriesWindowController.initializeItems();
  m_settingData.initWithSiteMeetingInfo(meetingInfo);
  // The service does not tell it, and a dismissal hands on what stands here: the next save would put an invitation
  // in the language of the user's last new meeting in place of this one's.
  if (const OptionalText own = m_context.getInvitationLanguage(); !isEmpty(own)) {
    m_settingData.setSelectInvitationLanguage(own);
  }
  m_history.load(whatStands());
  initializeItems();
  m_meetingId.updateOneTimeMeetingTitle();
  PanelHistory::State& kept = m_history.kept();
  kept.waitsForPersonalMeeting = m_waitsForPersonalMeeting = m_settingData.usePMI();
  kept.waitsForList = m_waitsForList =
      !m_waitsForPersonalMeeting && !m_settingData.scheduleForEmail().value_or("").empty();
  if (m_waitsForPersonalMeeting) m_meetingId.getPMIMeetingInfo();
  if (m_waitsForList) m_scheduleFor.getScheduleForList();
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
  m_signInDomains.initWithLocalString();
  m_domainsWindowController.initWithLocalString();
  m_scheduleFor.initWithLocalString();
  m_meetingId.initWithLocalString();
  m_template.initWithLocalString();
  m_dataCenters.initWithLocalString();
  m_audio.initWithLocalString();
  m_countries.initWithLocalString();
  m_buttonContinue.text = localizedString("Button_Continue");
  m_buttonCancel.text = localizedString("Button_Cancel");
}

void VnSettingViewController::updateUIItemsForNextTime() {
  const ControlSet::Change change(m_controls);
  closeSubWindows();
  closeWindows();
  initializeItems();
  m_meetingId.updateOneTimeMeetingTitle();
  makeGoodWhatCameMeanwhile();
}

// A reply that came while the panel was off the screen has changed nothing, and is still wanted.
void VnSettingViewController::makeGoodWhatCameMeanwhile() {
  if (m_waitsForPersonalMeeting && m_settingData.usePMI() && !m_context.awaitsMeeting()) {
    m_meetingId.getPMIMeetingInfo();
  }
  // A meeting that stands has its own options, which are not the person's defaults.
  if (!m_waitsForList || m_context.isForUpdateVornMeeting()) return;
  if (vnGetScheduleForListHelper::sharedInstance().hasScheduleForList()) {
    setScheduleForListInfo(true);
  } else {
    m_scheduleFor.getScheduleForList();
  }
}

// The order of loading.
void VnSettingViewController::initializeItems() {
  const ControlSet::Change change(m_controls);
  m_isEnableRecurrence = m_context.isEnableRecurrence();
  m_plainOptions.initVideo();
  m_plainOptions.initPublicEventSetting();
  m_security.initPasscode();
  m_joinBeforeHost.initJBHOptions();
  m_plainOptions.initMuteUponEntryBox();
  m_signInDomains.initOnlySignedin();
  m_meetingId.initPMITitle();
  m_trackingFieldsController.loadMtValues();
  m_plainOptions.initMuteParticipantUponEntry();
  m_plainOptions.initRecordingOptions();
  m_alternateHosts.initAlternateHosts();
  m_plainOptions.initForceIncludeJoinurlInLocation();
  m_scheduleFor.initScheduleForBox();
  m_meetingId.initMeetingIDBox();
  m_plainOptions.initAudioWatermarkButton();
  m_plainOptions.initPutTheInvitationAtTheTopButton();
  m_plainOptions.initSelectInvitationLanguage();
  m_security.initWaitingRoomOption();
  m_plainOptions.initUnmuteParticipantsOption();
  m_dataCenters.load();
  m_plainOptions.initNotShowMeAgain();
  m_audio.initAudioBox();
  m_audio.updateAudioOptionBoxStatus();
  m_audio.updateCtrlPosForAudio();
  m_trackingFieldsController.initTrackingFields();
  m_signInDomains.initRestrictDomainsBox();
  m_plainOptions.initAudioWatermark();
  m_plainOptions.initPutInvitationAtTheTop();
  m_meetingId.initPMIDisableMessageView(m_scheduleFor.scheduleForIndex());
  m_template.loadTemplateBox();
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
  m_meetingId.checkAccountLocked();
  m_allowDeny.checkAccountLocked();
  checkE2eeAffectedAccountLocked();
  m_security.checkIfRequirePasswordLocked();
}

// What end-to-end encryption takes away comes back with the account's locks.
void VnSettingViewController::checkE2eeAffectedAccountLocked() {
  m_audio.checkE2eeAffectedAccountLocked();
  m_joinBeforeHost.checkE2eeAffectedAccountLocked();
  m_plainOptions.checkE2eeAffectedAccountLocked();
}

void VnSettingViewController::updateAffectedOptionsForE2ee() {
  if (m_encryption.isEndToEnd()) {
    m_joinBeforeHost.turnOffForEndToEnd();
    m_security.updatePasswordStateWithJBHChanged();
    m_joinBeforeHost.hideForEndToEnd();
    m_settingData.setAudioType(panel_rules::audioTypeForEndToEnd(m_context.facts(m_settingData).account));
    m_audio.restrictAudioForEndToEnd();
    m_plainOptions.restrictRecordingForEndToEnd();
  } else {
    m_joinBeforeHost.initJBHOptions();
    m_audio.initAudioBox();
    m_plainOptions.initRecordingOptions();
    checkE2eeAffectedAccountLocked();
  }
  m_audio.updateAudioOptionBoxStatus();
  m_audio.updateCtrlPosForAudio();
}

void VnSettingViewController::refreshUI(bool forPMI) {
  const ControlSet::Change change(m_controls);
  closeSubWindows();
  closeWindows();
  if (m_refreshTarget) m_refreshTarget(forPMI);
  initWithLocalString();
  // The one whom the user has chosen stays chosen, also while the people's list is on its way.
  const std::string person = m_scheduleFor.getUIScheduleForEmail();
  if (forPMI) {
    layPersonalMeetingOver(m_settingData, person);
    // What was committed of it and not accepted is what the user goes on from.
    if (const PanelHistory::State* own = m_history.notAcceptedOf(person)) giveWordsOf(own->record);
    // A meeting that was to be a personal one from the start is loaded only now, and not what the user has changed
    // while it was awaited; another person's is none of it.
    if (isKeptPerson(person) && std::exchange(m_waitsForPersonalMeeting, false)) {
      PanelHistory::State& kept = m_history.kept();
      layPersonalMeetingOver(kept.record, person);
      kept.waitsForPersonalMeeting = false;
    }
    checkScheduleButton();
  } else {
    const MeetingOptions before = m_settingData.options();
    m_settingData.setUsePMI(false);
    if (!person.empty()) m_settingData.setScheduleForEmail(person);
    m_settingData.initSubDataWithUserProfile(m_settingData.usePMI());
    m_settingData.clearSignInChoice();
    takeBackWords(before);
  }
  m_signInDomains.forgetOffered();
  initializeItems();
}

void VnSettingViewController::layPersonalMeetingOver(vnSettingData& record, const std::string& person) const {
  record.initWithSiteMeetingInfo(m_pmiMeetingInfo);
  // It was fetched for them, also where it does not say whose it is.
  if (!person.empty()) record.setScheduleForEmail(person);
  if (m_context.isForUpdateVornMeeting()) record.resetRequiredPasswordForEditPMIMeeting(m_pmiMeetingInfo);
  record.setUsePMI(true);
}

// The words of a meeting with a number of its own are what they were before the look at the personal meeting,
// which has left its own in the record. The account's defaults name no hosts, and know nothing of what a meeting
// that stands has been given.
void VnSettingViewController::takeBackWords(const MeetingOptions& before) {
  const PanelHistory::State* last = m_history.lastOf(std::nullopt);
  const bool stands = m_context.isForUpdateVornMeeting();
  if (!last && stands) {
    // It was a personal one until now, and its words are its own under another number, too.
    m_settingData.setTrackingFields(before.trackingFields);
    m_settingData.setThirdPartyAudio(before.thirdPartyAudio);
    m_settingData.setSignInChoice(before);
    return;
  }
  if (!last) {
    // A new meeting that was to be a personal one has no words to go back to.
    m_settingData.setAlternateHosts(Value::array());
    if (!m_settingData.requiredMeetingPassword()) m_settingData.setMeetingPassword("");
    return;
  }
  const vnSettingData& own = last->record;
  m_settingData.setAlternateHosts(own.arrAlternateHosts());
  // A new meeting that has to have a passcode keeps the one that it was first given, or committed with.
  if (stands || !m_settingData.requiredMeetingPassword() || !own.meetingPassword().value_or("").empty()) {
    m_settingData.setMeetingPassword(own.meetingPassword());
    m_settingData.setRequiredMeetingPassword(own.requiredMeetingPassword());
  }
  // A new one has the account's until the user has committed others, also where that was refused.
  if (!stands && !last->isCommitted) return;
  m_settingData.setTrackingFields(own.trackingFields());
  m_settingData.setThirdPartyAudio(own.thirdPartyAudio());
  // Whether people have to sign in is the account's to say again. The choice of how comes with its domains.
  if (!own.authId().value_or("").empty()) m_settingData.setSignInChoice(own.options());
}

void VnSettingViewController::onPMIMeetingInfo() {
  // Not loaded when the user has turned away meanwhile. The flag stays, so that a panel which is dismissed and
  // opened again asks for it once more, and does not show a personal meeting that was never loaded.
  if (m_meetingId.isWantedPMI(m_pmiMeetingInfo)) refreshUI(true);
}

// -- While it is open --------------------------------------------------------------------------------------------

// What the user presses in the sheet closes the windows beside it; what they type, or press in such a window, does
// not.
void VnSettingViewController::userChanged(std::string_view key) {
  const ControlSet::Change change(m_controls);
  const Control* used = m_controls.find(fieldOf(key));
  const bool isTyped = used && isTypedInto(used->kind);
  if (!isTyped && m_controls.windowOf(key).empty()) closeSubWindows();
  m_plainOptions.userChanged(key);
  m_security.userChanged(key);
  m_signInDomains.userChanged(key);
  m_joinBeforeHost.userChanged(key);
  m_encryption.userChanged(key);
  m_alternateHosts.userChanged(key);
  m_allowDeny.userChanged(key);
  m_domainsWindowController.userChanged(key);
  m_scheduleFor.userChanged(key);
  m_meetingId.userChanged(key);
  m_template.userChanged(key);
  m_dataCenters.userChanged(key);
  m_audio.userChanged(key);
  m_countries.userChanged(key);
  m_editCountriesWindowController.userChanged(key);
  m_trackingFieldsController.userChanged(key);
  checkScheduleButton();
}

void VnSettingViewController::closeSubWindows() {
  const ControlSet::Change change(m_controls);
  m_passwordRuleWindowController.closePasswordRuleWindows();
  m_alternateHosts.closeAlternateHostSearchListWindow();
  m_allowDeny.closeAllowDenyRCSearchListWindow();
}

// What is open for one person or meeting must not write into another's.
void VnSettingViewController::closeWindows() {
  m_allowDeny.endWindow();
  m_editCountriesWindowController.closeWindowSheet();
  m_domainsWindowController.closeWindowSheet();
}

void VnSettingViewController::makeFirstResponderWithObject(std::string_view key) {
  RunLoop* runLoop = Registry::platform().runLoop;
  runLoop->cancelPrevious(this, kKeyboardRequest);
  runLoop->performAfter(0, this, kKeyboardRequest, [this, wanted = std::string(key)] {
    // It may have it by an earlier request, with the person elsewhere by now: each request is a change.
    {
      const ControlSet::Change change(m_controls);
      m_controls.focusOn("");
    }
    const ControlSet::Change change(m_controls);
    m_controls.focusOn(wanted);
  });
}

void VnSettingViewController::resetPasswordRuleUI() {
  const ControlSet::Change change(m_controls);
  m_security.resetPasswordRuleUI();
  checkScheduleButton();
}

void VnSettingViewController::resetTemplateBoxUI() {
  const ControlSet::Change change(m_controls);
  m_template.resetTemplateBoxUI();
}

void VnSettingViewController::setScheduleForListInfo(bool forOther) {
  const ControlSet::Change change(m_controls);
  const std::string person = m_scheduleFor.getUIScheduleForEmail();
  // Its regions are those of whom the record was for until now.
  if (person != m_settingData.scheduleForEmail().value_or("")) m_allowDeny.endWindow();
  m_scheduleFor.setScheduleForListInfo(forOther);
  // Of oneself the list says nothing; without one the personal meeting would be asked for again and again.
  if (person.empty() || !vnGetScheduleForListHelper::sharedInstance().hasScheduleForList()) return;
  // While another person is chosen, the one of the opening is still waited for.
  if (isKeptPerson(person) && (m_waitsForList || m_waitsForPersonalMeeting)) keepWhatIsThePersons();
  // Their personal meeting, which may have come before the list, says more than the list does.
  if (!m_context.awaitsMeeting()) m_meetingId.fetchChosenPMI();
}

bool VnSettingViewController::isKeptPerson(const std::string& person) const {
  return equalIgnoringCase(person, m_history.kept().record.scheduleForEmail().value_or(""));
}

// A dismissed panel goes back behind what the user has chosen meanwhile, and not behind whom it was opened for. A
// meeting that stands has its own options, which are not the person's defaults.
void VnSettingViewController::keepWhatIsThePersons() {
  m_history.kept().waitsForList = m_waitsForList = false;
  if (!m_context.isForUpdateVornMeeting()) m_history.keepPersons(m_settingData, m_countries.countryContent());
}

// The personal meeting that is chosen next may not come. Until it does there is nothing but what the user has
// typed for that one, and what the panel last had of it: the words of the other must not get into it.
void VnSettingViewController::leaveMeeting() {
  m_allowDeny.endWindow();
  if (!m_settingData.usePMI()) return;
  m_domainsWindowController.closeWindowSheet();
  if (const PanelHistory::State* last = m_history.lastOf(m_scheduleFor.getUIScheduleForEmail())) {
    giveWordsOf(last->record);
    m_signInDomains.initOnlySignedin();
    m_security.initWaitingRoomOption();
    m_security.initPasscode();
  } else {
    m_settingData.setMeetingPassword("");
    m_settingData.setAlternateHosts(Value::array());
    const vnUserProfileHelper& account = SettingsContext::profile();
    m_settingData.setTrackingFields(account.trackingFields());
    m_settingData.setThirdPartyAudio(account.enableThirdPartyAudio() ? account.thirdPartyAudioInfo() : "");
    m_settingData.clearSignInChoice();
    m_security.loadPasscodeText();
  }
  m_audio.loadThirdPartyText();
  m_signInDomains.forgetOffered();
  m_signInDomains.initRestrictDomainsBox();
  m_plainOptions.initAudioWatermarkButton();
  m_plainOptions.initAudioWatermark();
  // initSecurityBox() hides what is locked off.
  m_security.initSecurityBox();
  m_trackingFieldsController.loadMtValues();
  m_security.resetUIForPasswordFormatErrorTextField();
  m_security.resetPswHelpButtonState();
  m_alternateHosts.initAlternateHosts();
}

void VnSettingViewController::giveWordsOf(const vnSettingData& own) {
  m_settingData.setMeetingPassword(own.meetingPassword());
  m_settingData.setRequiredMeetingPassword(own.requiredMeetingPassword());
  m_settingData.setAlternateHosts(own.arrAlternateHosts());
  m_settingData.setTrackingFields(own.trackingFields());
  m_settingData.setThirdPartyAudio(own.thirdPartyAudio());
  m_settingData.setSignInChoice(own.options());
  m_settingData.setIsSignedInUsersMeetingOn(own.isSignedInUsersMeetingOn());
  m_settingData.setEnableWaitingRoom(own.enableWaitingRoom());
}

void VnSettingViewController::resetDataCenterBoxUI() {
  const ControlSet::Change change(m_controls);
  m_dataCenters.resetDataCenterBoxUI();
}

// The window of any panel may have said so; each shows its own choice.
void VnSettingViewController::onSelectedCountriesChanged() {
  const ControlSet::Change change(m_controls);
  m_countries.updateSelectedCountriesDesField();
  checkScheduleButton();
}

ContinueFacts VnSettingViewController::continueFacts() const {
  ContinueFacts facts;
  facts.isPasscodeShown = m_controls.isShown(control_key::passwordTextField);
  facts.isPasscodeOn = m_controls.isOn(control_key::requiredMeetingPswButton);
  if (const Control* field = m_controls.find(control_key::passwordTextField)) facts.passcode = field->text;
  facts.isErrorShown = std::any_of(std::begin(control_key::errorFields), std::end(control_key::errorFields),
                                   [this](std::string_view field) { return m_controls.isShown(field); });
  facts.isAlternateHostShown = m_controls.isShown(control_key::alternateHostBox);
  facts.hasAlternateHostError = m_alternateHosts.checkAlternateHostError();
  facts.awaitsReply = m_context.awaitsMeeting() || m_context.awaitsScheduleForList();
  facts.isTrackingShown = m_controls.isShown(control_key::trackingFieldsBox);
  facts.missedRequiredTrackingFields = m_trackingFieldsController.missedRequiredTrackingFields();
  facts.areCountriesShown = m_controls.isShown(control_key::selectedCountriesField);
  facts.areCountriesEmpty = m_countries.areCountriesEmpty();
  return facts;
}

void VnSettingViewController::checkScheduleButton() {
  const ControlSet::Change change(m_controls);
  m_buttonContinue.enabled = mayContinue(continueFacts());
}

void VnSettingViewController::explain() {
  const vnClientFeatureMgr::OneReading oneReading;
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
  const OptionalText& person = m_settingData.scheduleForEmail();
  const bool isForMyself = person.value_or("").empty();
  panel_rules::explain(
      m_controls,
      {.facts = m_context.facts(m_settingData),
       .usePMI = m_settingData.usePMI(),
       .isEnableRecurrence = m_isEnableRecurrence,
       .isSupportOnlyAuthUsersCanJoin = account.isSupportOnlyAuthUsersCanJoin(),
       .isShowUseWebSettingTipView = account.isShowUseWebSettingTipView(),
       .isEnableScheduleFor = account.isEnableScheduleFor(),
       .isDisablePMI = isForMyself ? account.isDisablePMI() : account.isDisablePMIWithScheduleForEmail(person),
       .isEnableAdminTemplate = account.isEnableAdminTemplate(person),
       .isSupportRegionCustomization = !isForMyself || account.isSupportRegionCustomization(),
       .isSupportAdditionalDc =
           isForMyself || vnGetScheduleForListHelper::sharedInstance().isSupportAdditionalDc(person),
       .isVornClientSupport500Tasks = client.isVornClientSupport500Tasks(),
       .isVornClientSupportEditCountries = client.isVornClientSupportEditCountries(),
       .heldBackBy = whatHoldsContinueBack(continueFacts())},
      panelText);
}

// -- Its end -----------------------------------------------------------------------------------------------------

void VnSettingViewController::onSettingsCommit(bool isOK) {
  const ControlSet::Change change(m_controls);
  closeWindows();
  // Who opens the panel again has not asked for what had the keyboard here.
  Registry::platform().runLoop->cancelPrevious(this, kKeyboardRequest);
  m_controls.focusOn("");
  if (isOK) {
    takeControls(Commit::meant);
    // What would come now comes too late, also for whoever goes back to this.
    m_waitsForPersonalMeeting = m_waitsForList = false;
    m_history.commit(whatStands());
  } else {
    // What never reached the client is dismissed with the rest, or the next save would send it.
    if (!m_context.isCommitOnItsWay()) commitRefused();
    goBack();
  }
  m_alternateHosts.forgetEdits();
  m_security.forgetTyped();
  m_plainOptions.forgetTyped();
  m_audio.forgetTyped();
  m_signInDomains.forgetTyped();
  m_trackingFieldsController.forgetTyped();
}

// In this order. What has no control leaves the record as it is; what is not named was written when it changed.
void VnSettingViewController::takeControls(Commit commit) {
  m_security.writePasscode();
  m_audio.writeAudio();
  m_trackingFieldsController.writeTrackingFields();
  m_settingData.setEmAutoRecordingType(m_plainOptions.getCurrentAutoRecordingTypeFromUI());
  m_alternateHosts.writeAlternateHosts();
  if (commit == Commit::meant) {
    m_settingData.saveForceIncludeJoinurlInLocationToUserDefault(m_settingData.forceIncludeJoinurlInLocation());
    m_plainOptions.writeNotShowMeAgain();
  }
  m_countries.writeCountries();
  m_scheduleFor.writeScheduleFor();
  m_settingData.setSelectInvitationLanguage(m_plainOptions.selectedInvitationLanguage());
  m_plainOptions.writeLockedAudioWatermark();
  m_joinBeforeHost.writeJoinBeforeHost();
  m_signInDomains.writeSignIn();
  m_security.writeWaitingRoom();
  m_template.writeTemplate();
  m_allowDeny.writeAllowDeny();
}

Value VnSettingViewController::settingsToCommit() {
  const vnSettingData record = m_settingData;
  takeControls(Commit::tried);
  const Value settings = getSettingsData();
  m_settingData = record;
  return settings;
}

// Back to what was loaded or committed last, and not behind a commit: the next save would undo it. What a meeting
// was opened with does not name every option either.
void VnSettingViewController::goBack() {
  m_history.dismiss();
  const PanelHistory::State& kept = m_history.kept();
  m_settingData = kept.record;
  m_countries.restore(kept.countries);
  m_waitsForPersonalMeeting = kept.waitsForPersonalMeeting;
  m_waitsForList = kept.waitsForList;
}

// What the service has refused goes, or the next save would send it once more; and what it accepted before stays,
// which the meeting that the panel was opened with does not have.
void VnSettingViewController::resetMeetingItemWhenUpdateError() {
  const ControlSet::Change change(m_controls);
  commitRefused();
  goBack();
}

// The user goes on from what was refused, and a dismissed panel goes back behind it.
void VnSettingViewController::commitRefused() { m_history.commitRefused(); }

void VnSettingViewController::commitStands() { m_history.commitStands(); }

void VnSettingViewController::changeRecords(const std::function<void(vnSettingData&)>& change) {
  change(m_settingData);
  m_history.changeRecords(change);
}

// What the service says of a commit holds for what a dismissed panel goes back to as well.
void VnSettingViewController::updatePasswordAfterCommit(const OptionalText& passcode) {
  commitStands();
  changeRecords([&passcode](vnSettingData& record) {
    record.setMeetingPassword(passcode);
    record.setRequiredMeetingPassword(!passcode.value_or("").empty());
  });
}

void VnSettingViewController::filterInvalidAlternateHosts(const Value& emails) {
  std::unordered_set<std::string> invalid;
  for (const Value& email : emails.items()) invalid.insert(caseFolded(email.text()));
  changeRecords([&invalid](vnSettingData& record) {
    Value valid = Value::array();
    for (const Value& host : record.arrAlternateHosts().items()) {
      if (!invalid.contains(caseFolded(host.text()))) valid.append(host);
    }
    record.setAlternateHosts(valid);
  });
}

}  // namespace vorn
