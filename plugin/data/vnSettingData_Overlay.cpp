#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"

// The settings record: a fetched or stored meeting over the account's defaults.

namespace vorn {

void vnSettingData::initWithSiteMeetingInfo(const Value& meetingInfo) {
  if (meetingInfo.count() == 0) return;
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const Value& setting = meetingInfo[vn_Setting];
  // What the account has locked keeps the account's default.
  if (!profile.isHostVideoLocked()) m_hostVideoOn = setting[vn_Setting_EnableHostVideo].boolValue();
  if (!profile.isParticipantsLocked()) {
    m_paticipantVideoOn = setting[vn_Setting_EnableParticipantsVideo].boolValue();
  }
  if (!profile.isAudioTypeLocked()) m_audioType = setting[vn_Setting_AudioOption].integerValue();
  if (!profile.isJoinBeforeHostLocked()) {
    m_enableJBH = setting[vn_Setting_EnableJBH].boolValue();
    m_jbhPriorTime = setting[vn_Setting_JBHPriorTime].integerValue();
  }
  if (!profile.isLockScheduleUsePMI()) m_usePMI = setting[vn_Setting_IsPMI].boolValue();
  overlayPassword(setting);
  const std::string thirdParty = setting[vn_Setting_ThirdPartyAudio].stringValue();
  if (!thirdParty.empty()) m_thirdPartyAudio = thirdParty;
  if (!profile.isLockOnlyAuthUsersCanJoin()) {
    m_isSignedInUsersMeetingOn = setting[vn_Setting_IsSignedInUsersMeetingOn].boolValue();
  }
  // The list of fields stays the account's; the meeting adds the chosen values.
  overlayTrackingFields(setting[vn_Setting_TrackingFields]);
  m_enableAutoRecordingMtgLevelFirst = setting[vn_Setting_EnableAutoRecordingMtgLevelFirst].boolValue();
  if (!profile.isAutomaticRecordingLocked()) {
    m_emAutoRecordingType = static_cast<std::int32_t>(setting[vn_Setting_EnableAutoRecordingType].integerValue());
  }
  if (!profile.isMuteUponEntryLocked()) m_muteUponEntry = setting[vn_Setting_MuteUponEntry].boolValue();
  setAlternateHosts(setting[vn_Setting_AlternateHosts]);
  overlayDialinCountries(setting[vn_Setting_AvailableDialinCountry]);
  if (!profile.isPublicEventLocked()) {
    m_enablePublicEvent = setting[vn_Setting_EnableAddMeetingToPublicEvent].boolValue();
  }
  m_scheduleForEmail = setting[vn_Setting_ScheduleFor].optionalText();
  if (!profile.isLockAudioWatermark())
    m_enableAudioWatermark = setting[vn_Setting_EnableAudioWatermark].boolValue();
  if (const Value& auth = setting[vn_Setting_MeetingAuth]; auth.isPresent()) {
    m_authId = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
    m_authName = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
    m_authType = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
    m_authDomain = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
  }
  if (!profile.isLockWaitingRoom()) {
    m_enableWaitingRoom = setting[vn_Setting_EnableWaitingRoom].boolValue();
    m_supportWaitingRoom = setting[vn_Setting_SupportWaitingRoom].boolValue();
  }
  m_enableRegionCustomization = setting[vn_Setting_EnableRegionCustomization].boolValue();
  setArrAdditionalDCRegions(setting[vn_Setting_AdditionalDCRegions]);
  m_enableUnmuteAll = setting[vn_Setting_EnableUnmuteAll].boolValue();
  if (!profile.isLockE2eeMeeting()) m_enableE2ee = setting[vn_Setting_EnableE2ee].boolValue();
  if (const Value& chosen = setting[vn_Setting_MeetingTemplate]; chosen.isPresent()) {
    m_templateId = chosen[vn_Setting_MeetingTemplate_TemplateId].optionalText();
    m_templateName = chosen[vn_Setting_MeetingTemplate_TemplateName].optionalText();
    m_templateType = chosen[vn_Setting_MeetingTemplate_TemplateType].integerValue();
  }
  // Asked for the person who has just been read.
  if (!profile.isLockAllowDenyJoinMeetingRegion(m_scheduleForEmail)) {
    m_enableAllowDenyJoinMeetingRegion = setting[vn_Setting_EnableAllowDenyJoinMeetingRegion].boolValue();
    m_regionType = setting[vn_Setting_RegionType].integerValue();
    setArrRegionCodes(setting[vn_Setting_RegionCodes]);
  }
}

void vnSettingData::overlayPassword(const Value& setting) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  m_meetingPassword = setting[vn_Setting_MeetingPassword].stringValue();
  if (!m_meetingPassword->empty()) {
    m_requiredMeetingPassword = true;
    return;
  }
  m_requiredMeetingPassword = m_usePMI && (profile.isEnablePMIRequirePassword() ||
                                           (m_enableJBH && profile.isEnableForcePMIJBHWithPassword()));
}

void vnSettingData::overlayDialinCountries(const Value& countries) {
  if (!countries.isPresent()) {
    m_hash = "";
    setSelectedCountries(Value());
    return;
  }
  m_hash = countries[vn_Setting_DialinCountry_Hash].optionalText();
  m_includeTollfree = countries[vn_Setting_DialinCountry_IncludeTollfree].boolValue();
  setSelectedCountries(countries[vn_Setting_DialinCountry_SelectedCountries]);
}

void vnSettingData::resetRequiredPasswordForEditPMIMeeting(const Value& meetingInfo) {
  if (meetingInfo.count() == 0) return;
  m_meetingPassword = meetingInfo[vn_Setting][vn_Setting_MeetingPassword].stringValue();
  m_requiredMeetingPassword = !m_meetingPassword->empty();
}

}  // namespace vorn
