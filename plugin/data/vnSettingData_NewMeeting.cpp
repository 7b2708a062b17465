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
  m_hostVideoOn = false;
  m_paticipantVideoOn = false;
  m_audioType = kBoth;
  m_requiredMeetingPassword = false;
  m_meetingPassword = "";
  m_enableJBH = false;
  m_usePMI = false;
  m_roomMeetingId = "";
  m_enableThirdPartyAudio = false;
  m_thirdPartyAudio = "";
  m_scheduleForEmail = "";
  m_restrictJoinDomains = "";
  m_trackingFieldsHolder = Value::dictionary();
  m_enableAutoRecordingMtgLevelFirst = false;
  m_emAutoRecordingType = 0;
  m_arrAlternateHosts = Value::array();
  m_forceIncludeJoinurlInLocation = true;
  m_arrSelectedCountries = Value::array();
  m_includeTollfree = false;
  m_hash = "";
  m_enableShowIncludeTollfree = false;
  m_enablePublicEvent = false;
  m_enableAudioWatermark = false;
  m_putTheInvitationAtTheTop = false;
  m_selectInvitationLanguage = "";
  m_jbhPriorTime = kDefaultJbhPriorMinutes;
  m_authId = "";
  m_authName = "";
  m_authDomain = "";
  m_authType = 0;
  m_enableWaitingRoom = false;
  m_supportWaitingRoom = true;
  m_enableRegionCustomization = false;
  m_arrAdditionalDCRegions = Value::array();
  m_enableUnmuteAll = false;
  m_enableE2ee = false;
  m_templateId = "";
  m_templateName = "";
  m_templateType = 0;
  m_enableAllowDenyJoinMeetingRegion = false;
  m_regionType = 0;
  m_arrRegionCodes = Value::array();
  // Really written each time, until the saved profile says otherwise.
  setNotShowMeAgain(false);
}

void vnSettingData::initWithUserProfileDefault() {
  if (!account().hasUserProfile()) return;
  m_usePMI = account().isDefaultScheduleUsePMI();
  initSubDataWithUserProfile(m_usePMI);
}

void vnSettingData::initSubDataWithUserProfile(bool usePMI) {
  const vnUserProfileHelper& profile = account();
  if (!profile.hasUserProfile()) return;
  m_templateId = "";
  m_roomMeetingId = profile.roomMeetingID();
  if (profile.isSupportE2eeMeeting()) m_enableE2ee = profile.isEnableE2eeMeeting();
  // These defaults only ever switch on.
  if (profile.alwaysTurnOnHostVideoByDefault()) m_hostVideoOn = true;
  if (profile.alwaysTurnOnAttendeeVideoByDefault()) m_paticipantVideoOn = true;
  initAudioTypeWithUserProfile();
  if (const auto countries = profile.getAvailableDialinCountry()) {
    m_hash = countries->hash;
    m_includeTollfree = countries->includeTollfree;
    m_enableShowIncludeTollfree = countries->enableShowIncludeTollfree;
    setSelectedCountries(countries->selectedCountries);
  }
  m_enableWaitingRoom = profile.isEnableWaitingRoom();
  if (profile.alwaysEnableJoinBeforeHostByDefault()) m_enableJBH = true;
  if (profile.isSupportJbhPriorTime()) m_jbhPriorTime = profile.getDefaultJbhPriorTime();
  if (profile.muteUponEntryDefaultValue()) m_muteUponEntry = true;
  m_isSignedInUsersMeetingOn = profile.isDefaultEnableOnlyAuthUsersCanJoin();
  m_authId = "";
  m_enableUnmuteAll = profile.isEnableUnmuteAll();
  initRecordingWithUserProfile();
  if (profile.isEnableAddMeetingToPublicCalendarEvent()) {
    m_enablePublicEvent = profile.enableListMeetingInPublicEventListByDefault();
  }
  if (profile.isSupportForceIncludeJoinurlInLocation()) {
    m_forceIncludeJoinurlInLocation = profile.isAddJoinUrlToLocation();
  }
  if (profile.supportPutTheInvitationAtTheTopFeature()) {
    m_putTheInvitationAtTheTop = profile.putTheInvitationAtTheTopDefaultValue();
  }
  m_enableRegionCustomization = profile.isEnableRegionCustomization();
  initRegionPolicyWithUserProfile();
  setTrackingFields(profile.trackingFields());
  initPasswordWithUserProfile(usePMI);
}

void vnSettingData::initAudioTypeWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  m_enableThirdPartyAudio = profile.enableThirdPartyAudio();
  if (m_enableThirdPartyAudio) m_thirdPartyAudio = profile.thirdPartyAudioInfo();

  const bool tsp = profile.isTspSite();
  const std::int64_t telephony = tsp ? kTspTelephonyFirst : kTelephonyOnly;
  if (profile.alwaysUseBothAsDefaultAudio()) {
    const std::int64_t both = tsp ? kTspBothFirst : kBoth;
    m_audioType = profile.isScheduleAudioBothDisabled() ? telephony : both;
  } else if (profile.alwaysUseTelephonyAsDefaultAudio()) {
    m_audioType = telephony;
  } else if (profile.alwaysUseVOIPAsDefaultAudio()) {
    m_audioType = tsp ? kTspVoip : kVoipOnly;
  } else if (tsp) {
    m_audioType = kTspTelephonyFirst;
  } else if (m_enableThirdPartyAudio && profile.use3rdPartyAsDefaultAudio()) {
    m_audioType = kThirdParty;
  }
}

void vnSettingData::initRecordingWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  const bool local = profile.enableLocalRecording();
  const bool cloud = profile.enableCloudRecording();
  m_enableAutoRecordingMtgLevelFirst = local || cloud;
  if (!local && !cloud) {
    m_emAutoRecordingType = kRecordingUnavailable;
  } else if (!profile.enableAutoRecordingByDefault()) {
    m_emAutoRecordingType = 0;
  } else if (local && cloud) {
    m_emAutoRecordingType = profile.enableCloudRecordingByDefault() ? 2 : 1;
  } else {
    m_emAutoRecordingType = cloud ? 4 : 3;
  }
}

void vnSettingData::initRegionPolicyWithUserProfile() {
  const vnUserProfileHelper& profile = account();
  m_enableAllowDenyJoinMeetingRegion = profile.isEnableAllowDenyJoinMeetingRegion(m_scheduleForEmail);
  m_regionType = profile.getRegionType(m_scheduleForEmail);
  setArrRegionCodes(m_enableAllowDenyJoinMeetingRegion ? profile.getRegionCodes(m_scheduleForEmail) : Value());
}

void vnSettingData::initPasswordWithUserProfile(bool usePMI) {
  const vnUserProfileHelper& profile = account();
  if (!usePMI) {
    m_requiredMeetingPassword = profile.isEnableRequirePassword();
    if (m_requiredMeetingPassword) m_meetingPassword = getRandomPassWord();
    return;
  }
  m_requiredMeetingPassword =
      profile.isEnablePMIRequirePassword() || (m_enableJBH && profile.isEnableForcePMIJBHWithPassword());
  // The passcode of the personal meeting is the service's.
  if (m_requiredMeetingPassword) m_meetingPassword = "";
}

void vnSettingData::initWithSavedProfile() {
  const vnUserProfileHelper& profile = account();
  const Value saved = JsonTextFile(vnCommon::getVnUserProfilePath(profile.getUID())).read();
  if (saved.isAbsent()) return;

  if (profile.isTspSite() && saved.contains(vn_Setting_AudioOption)) {
    applySavedTspAudio(saved[vn_Setting_AudioOption].integerValue());
  }
  if (!profile.isLockAudioWatermark()) m_enableAudioWatermark = saved[vn_Setting_EnableAudioWatermark].boolValue();
  // The account wins over the user's last choice when it controls this, in spite of the feature's name.
  if (!profile.isSupportForceIncludeJoinurlInLocation() &&
      saved.contains(vn_Setting_ForceIncludeJoinurlInLocation)) {
    m_forceIncludeJoinurlInLocation = saved[vn_Setting_ForceIncludeJoinurlInLocation].boolValue();
  }
  if (saved.contains(vn_Setting_PutTheInvitationAtTheTop)) {
    m_putTheInvitationAtTheTop = saved[vn_Setting_PutTheInvitationAtTheTop].boolValue();
  }
  if (saved.contains(vn_Setting_SelectInvitationLanguage)) {
    m_selectInvitationLanguage = saved[vn_Setting_SelectInvitationLanguage].stringValue();
  }
  if (saved[vn_Setting_NotShowMeAgain].boolValue()) {
    resetMeetingAuthForNotShowAgain();
    m_enableAudioWatermark =
        m_isSignedInUsersMeetingOn && profile.isEnableAudioWatermark() && profile.isLockAudioWatermark();
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
    m_audioType = profile.isScheduleAudioBothDisabled() ? telephony : both;
  } else {
    m_audioType = profile.alwaysUseVOIPAsDefaultAudio() ? kTspVoip : telephony;
  }
}

void vnSettingData::resetMeetingAuthForNotShowAgain() {
  if (!m_isSignedInUsersMeetingOn) return;
  const Value auths = account().getMeetingAuths();
  for (const Value& auth : auths.items()) {
    if (!auth[vn_Setting_MeetingAuth_DefaultAuth].boolValue()) continue;
    m_authId = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
    m_authName = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
    m_authType = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
    m_authDomain = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
    return;
  }
}

void vnSettingData::resetWaitingRoomPasscodeStateForNotShowAgain() {
  const vnUserProfileHelper& profile = account();
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupport520Tasks()) return;
  if (!profile.isEnableWaitingRoomNewLogic() || m_usePMI) return;
  const bool lockedOff = profile.isLockWaitingRoom() && !profile.isEnableWaitingRoom();
  // A meeting must have one of the two.
  if (!lockedOff && !m_enableWaitingRoom && !m_requiredMeetingPassword) m_enableWaitingRoom = true;
}

void vnSettingData::resetAffectedStateByE2eeForNotShowAgain() {
  const vnUserProfileHelper& profile = account();
  const bool encrypted = vnClientFeatureMgr::sharedInstance().isVornClientSupport530Tasks() &&
                         profile.isSupportE2eeMeeting() && profile.canScheduleE2eeMeeting() && m_enableE2ee;
  if (!encrypted) {
    m_enableE2ee = false;
    return;
  }
  m_enableJBH = true;
  m_audioType = kVoipOnly;
  m_emAutoRecordingType = 0;
}

}  // namespace vorn
