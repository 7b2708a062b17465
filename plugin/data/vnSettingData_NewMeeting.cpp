#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"

// The settings record: the state of a new meeting.

namespace vorn {

namespace {

constexpr std::int64_t kTelephonyOnly = 0;
constexpr std::int64_t kVoipOnly = 1;
constexpr std::int64_t kBoth = 2;
constexpr std::int64_t kThirdParty = 3;
constexpr std::int64_t kTspTelephonyFirst = 10;
constexpr std::int64_t kTspTelephonySecond = 11;
constexpr std::int64_t kTspVoip = 12;
constexpr std::int64_t kTspBothFirst = 13;
constexpr std::int64_t kTspBothSecond = 14;

constexpr std::int64_t kDefaultJbhPriorMinutes = 5;
constexpr std::int32_t kRecordingUnavailable = 5;

vnUserProfileHelper& account() { return vnUserProfileHelper::sharedInstance(); }

}  // namespace

void vnSettingData::initSettingData() {
  resetFields();
  initWithUserProfileDefault();
  initWithSavedProfile();
}

// Not all fields: whether only signed-in users can join and whether participants are muted stay as they were.
void vnSettingData::resetFields() {
  hostVideoOn_ = false;
  paticipantVideoOn_ = false;
  audioType_ = kBoth;
  requiredMeetingPassword_ = false;
  meetingPassword_ = "";
  enableJBH_ = false;
  usePMI_ = false;
  roomMeetingId_ = "";
  enableThirdPartyAudio_ = false;
  thirdPartyAudio_ = "";
  scheduleForEmail_ = "";
  restrictJoinDomains_ = "";
  trackingFieldsHolder_ = Value::dictionary();
  enableAutoRecordingMtgLevelFirst_ = false;
  emAutoRecordingType_ = 0;
  arrAlternateHosts_ = Value::array();
  forceIncludeJoinurlInLocation_ = true;
  arrSelectedCountries_ = Value::array();
  includeTollfree_ = false;
  hash_ = "";
  enableShowIncludeTollfree_ = false;
  enablePublicEvent_ = false;
  enableAudioWatermark_ = false;
  putTheInvitationAtTheTop_ = false;
  selectInvitationLanguage_ = "";
  jbhPriorTime_ = kDefaultJbhPriorMinutes;
  authId_ = "";
  authName_ = "";
  authDomain_ = "";
  authType_ = 0;
  enableWaitingRoom_ = false;
  supportWaitingRoom_ = true;
  enableRegionCustomization_ = false;
  arrAdditionalDCRegions_ = Value::array();
  enableUnmuteAll_ = false;
  enableE2ee_ = false;
  templateId_ = "";
  templateName_ = "";
  templateType_ = 0;
  enableAllowDenyJoinMeetingRegion_ = false;
  regionType_ = 0;
  arrRegionCodes_ = Value::array();
  // Really written each time, until the saved profile says otherwise.
  setNotShowMeAgain(false);
}

void vnSettingData::initWithUserProfileDefault() {
  if (!account().hasUserProfile()) return;
  usePMI_ = account().isDefaultScheduleUsePMI();
  initSubDataWithUserProfile(usePMI_);
}

void vnSettingData::initSubDataWithUserProfile(bool usePMI) {
  const vnUserProfileHelper& profile = account();
  if (!profile.hasUserProfile()) return;
  templateId_ = "";
  roomMeetingId_ = profile.roomMeetingID();
  if (profile.isSupportE2eeMeeting()) enableE2ee_ = profile.isEnableE2eeMeeting();
  // These defaults only ever switch on.
  if (profile.alwaysTurnOnHostVideoByDefault()) hostVideoOn_ = true;
  if (profile.alwaysTurnOnAttendeeVideoByDefault()) paticipantVideoOn_ = true;
  initAudioTypeWithUserProfile();
  if (const auto countries = profile.getAvailableDialinCountry()) {
    hash_ = countries->hash;
    includeTollfree_ = countries->includeTollfree;
    enableShowIncludeTollfree_ = countries->enableShowIncludeTollfree;
    setSelectedCountries(countries->selectedCountries);
  }
  enableWaitingRoom_ = profile.isEnableWaitingRoom();
  if (profile.alwaysEnableJoinBeforeHostByDefault()) enableJBH_ = true;
  if (profile.isSupportJbhPriorTime()) jbhPriorTime_ = profile.getDefaultJbhPriorTime();
  if (profile.muteUponEntryDefaultValue()) muteUponEntry_ = true;
  isSignedInUsersMeetingOn_ = profile.isDefaultEnableOnlyAuthUsersCanJoin();
  authId_ = "";
  enableUnmuteAll_ = profile.isEnableUnmuteAll();
  initRecordingWithUserProfile();
  if (profile.isEnableAddMeetingToPublicCalendarEvent()) {
    enablePublicEvent_ = profile.enableListMeetingInPublicEventListByDefault();
  }
  if (profile.isSupportForceIncludeJoinurlInLocation()) {
    forceIncludeJoinurlInLocation_ = profile.isAddJoinUrlToLocation();
  }
  if (profile.supportPutTheInvitationAtTheTopFeature()) {
    putTheInvitationAtTheTop_ = profile.putTheInvitationAtTheTopDefaultValue();
  }
  enableRegionCustomization_ = profile.isEnableRegionCustomization();
  initRegionPolicyWithUserProfile();
  setTrackingFields(profile.trackingFields());
  initPasswordWithUserProfile(usePMI);
}

void vnSettingData::initAudioTypeWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  enableThirdPartyAudio_ = profile.enableThirdPartyAudio();
  if (enableThirdPartyAudio_) thirdPartyAudio_ = profile.thirdPartyAudioInfo();

  const bool tsp = profile.isTspSite();
  const std::int64_t telephony = tsp ? kTspTelephonyFirst : kTelephonyOnly;
  if (profile.alwaysUseBothAsDefaultAudio()) {
    const std::int64_t both = tsp ? kTspBothFirst : kBoth;
    audioType_ = profile.isScheduleAudioBothDisabled() ? telephony : both;
  } else if (profile.alwaysUseTelephonyAsDefaultAudio()) {
    audioType_ = telephony;
  } else if (profile.alwaysUseVOIPAsDefaultAudio()) {
    audioType_ = tsp ? kTspVoip : kVoipOnly;
  } else if (tsp) {
    audioType_ = kTspTelephonyFirst;
  } else if (enableThirdPartyAudio_ && profile.use3rdPartyAsDefaultAudio()) {
    audioType_ = kThirdParty;
  }
}

void vnSettingData::initRecordingWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  const bool local = profile.enableLocalRecording();
  const bool cloud = profile.enableCloudRecording();
  enableAutoRecordingMtgLevelFirst_ = local || cloud;
  if (!local && !cloud) {
    emAutoRecordingType_ = kRecordingUnavailable;
  } else if (!profile.enableAutoRecordingByDefault()) {
    emAutoRecordingType_ = 0;
  } else if (local && cloud) {
    emAutoRecordingType_ = profile.enableCloudRecordingByDefault() ? 2 : 1;
  } else {
    emAutoRecordingType_ = cloud ? 4 : 3;
  }
}

void vnSettingData::initRegionPolicyWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  enableAllowDenyJoinMeetingRegion_ = profile.isEnableAllowDenyJoinMeetingRegion(scheduleForEmail_);
  regionType_ = profile.getRegionType(scheduleForEmail_);
  setArrRegionCodes(enableAllowDenyJoinMeetingRegion_ ? profile.getRegionCodes(scheduleForEmail_) : Value());
}

void vnSettingData::initPasswordWithUserProfile(bool usePMI) {
  const vnUserProfileHelper& profile = account();
  if (!usePMI) {
    requiredMeetingPassword_ = profile.isEnableRequirePassword();
    if (requiredMeetingPassword_) meetingPassword_ = getRandomPassWord();
    return;
  }
  requiredMeetingPassword_ =
      profile.isEnablePMIRequirePassword() || (enableJBH_ && profile.isEnableForcePMIJBHWithPassword());
  // The passcode of the personal meeting is the service's.
  if (requiredMeetingPassword_) meetingPassword_ = "";
}

void vnSettingData::initWithSavedProfile() {
  const vnUserProfileHelper& profile = account();
  const Value saved = JsonTextFile(vnCommon::getVnUserProfilePath(profile.getUID())).read();
  if (saved.isAbsent()) return;

  if (profile.isTspSite() && saved.contains(vn_Setting_AudioOption)) {
    applySavedTspAudio(saved[vn_Setting_AudioOption].integerValue());
  }
  if (!profile.isLockAudioWatermark()) enableAudioWatermark_ = saved[vn_Setting_EnableAudioWatermark].boolValue();
  // The account wins over the user's last choice when it controls this, in spite of the feature's name.
  if (!profile.isSupportForceIncludeJoinurlInLocation() &&
      saved.contains(vn_Setting_ForceIncludeJoinurlInLocation)) {
    forceIncludeJoinurlInLocation_ = saved[vn_Setting_ForceIncludeJoinurlInLocation].boolValue();
  }
  if (saved.contains(vn_Setting_PutTheInvitationAtTheTop)) {
    putTheInvitationAtTheTop_ = saved[vn_Setting_PutTheInvitationAtTheTop].boolValue();
  }
  if (saved.contains(vn_Setting_SelectInvitationLanguage)) {
    selectInvitationLanguage_ = saved[vn_Setting_SelectInvitationLanguage].stringValue();
  }
  if (saved[vn_Setting_NotShowMeAgain].boolValue()) {
    resetMeetingAuthForNotShowAgain();
    enableAudioWatermark_ =
        isSignedInUsersMeetingOn_ && profile.isEnableAudioWatermark() && profile.isLockAudioWatermark();
    resetWaitingRoomPasscodeStateForNotShowAgain();
    resetAffectedStateByE2eeForNotShowAgain();
    setNotShowMeAgain(true);
  }
}

// Of the saved choice only the account counts, so that it survives a changed default.
void vnSettingData::applySavedTspAudio(std::int64_t saved) {
  const vnUserProfileHelper& profile = account();
  const bool second = saved == kTspTelephonySecond || saved == kTspBothSecond;
  const std::int64_t telephony = second ? kTspTelephonySecond : kTspTelephonyFirst;
  if (profile.alwaysUseBothAsDefaultAudio()) {
    const std::int64_t both = second ? kTspBothSecond : kTspBothFirst;
    audioType_ = profile.isScheduleAudioBothDisabled() ? telephony : both;
  } else {
    audioType_ = profile.alwaysUseVOIPAsDefaultAudio() ? kTspVoip : telephony;
  }
}

void vnSettingData::resetMeetingAuthForNotShowAgain() {
  if (!isSignedInUsersMeetingOn_) return;
  const Value auths = account().getMeetingAuths();
  for (const Value& auth : auths.items()) {
    if (!auth[vn_Setting_MeetingAuth_DefaultAuth].boolValue()) continue;
    authId_ = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
    authName_ = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
    authType_ = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
    authDomain_ = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
    return;
  }
}

void vnSettingData::resetWaitingRoomPasscodeStateForNotShowAgain() {
  const vnUserProfileHelper& profile = account();
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupport520Tasks()) return;
  if (!profile.isEnableWaitingRoomNewLogic() || usePMI_) return;
  const bool lockedOff = profile.isLockWaitingRoom() && !profile.isEnableWaitingRoom();
  // A meeting must have one of the two.
  if (!lockedOff && !enableWaitingRoom_ && !requiredMeetingPassword_) enableWaitingRoom_ = true;
}

void vnSettingData::resetAffectedStateByE2eeForNotShowAgain() {
  const vnUserProfileHelper& profile = account();
  const bool encrypted = vnClientFeatureMgr::sharedInstance().isVornClientSupport530Tasks() &&
                         profile.isSupportE2eeMeeting() && profile.canScheduleE2eeMeeting() && enableE2ee_;
  if (!encrypted) {
    enableE2ee_ = false;
    return;
  }
  enableJBH_ = true;
  audioType_ = kVoipOnly;
  emAutoRecordingType_ = 0;
}

}  // namespace vorn
