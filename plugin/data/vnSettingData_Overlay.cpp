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
  if (!profile.isHostVideoLocked()) hostVideoOn_ = setting[vn_Setting_EnableHostVideo].boolValue();
  if (!profile.isParticipantsLocked()) {
    paticipantVideoOn_ = setting[vn_Setting_EnableParticipantsVideo].boolValue();
  }
  if (!profile.isAudioTypeLocked()) audioType_ = setting[vn_Setting_AudioOption].integerValue();
  if (!profile.isJoinBeforeHostLocked()) {
    enableJBH_ = setting[vn_Setting_EnableJBH].boolValue();
    jbhPriorTime_ = setting[vn_Setting_JBHPriorTime].integerValue();
  }
  if (!profile.isLockScheduleUsePMI()) usePMI_ = setting[vn_Setting_IsPMI].boolValue();
  overlayPassword(setting);
  const std::string thirdParty = setting[vn_Setting_ThirdPartyAudio].stringValue();
  if (!thirdParty.empty()) thirdPartyAudio_ = thirdParty;
  if (!profile.isLockOnlyAuthUsersCanJoin()) {
    isSignedInUsersMeetingOn_ = setting[vn_Setting_IsSignedInUsersMeetingOn].boolValue();
  }
  // The list of fields stays the account's; the meeting adds the chosen values.
  overlayTrackingFields(setting[vn_Setting_TrackingFields]);
  enableAutoRecordingMtgLevelFirst_ = setting[vn_Setting_EnableAutoRecordingMtgLevelFirst].boolValue();
  if (!profile.isAutomaticRecordingLocked()) {
    emAutoRecordingType_ = static_cast<std::int32_t>(setting[vn_Setting_EnableAutoRecordingType].integerValue());
  }
  if (!profile.isMuteUponEntryLocked()) muteUponEntry_ = setting[vn_Setting_MuteUponEntry].boolValue();
  setAlternateHosts(setting[vn_Setting_AlternateHosts]);
  overlayDialinCountries(setting[vn_Setting_AvailableDialinCountry]);
  if (!profile.isPublicEventLocked()) {
    enablePublicEvent_ = setting[vn_Setting_EnableAddMeetingToPublicEvent].boolValue();
  }
  scheduleForEmail_ = setting[vn_Setting_ScheduleFor].optionalText();
  if (!profile.isLockAudioWatermark())
    enableAudioWatermark_ = setting[vn_Setting_EnableAudioWatermark].boolValue();
  if (const Value& auth = setting[vn_Setting_MeetingAuth]; auth.isPresent()) {
    authId_ = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
    authName_ = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
    authType_ = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
    authDomain_ = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
  }
  if (!profile.isLockWaitingRoom()) {
    enableWaitingRoom_ = setting[vn_Setting_EnableWaitingRoom].boolValue();
    supportWaitingRoom_ = setting[vn_Setting_SupportWaitingRoom].boolValue();
  }
  enableRegionCustomization_ = setting[vn_Setting_EnableRegionCustomization].boolValue();
  setArrAdditionalDCRegions(setting[vn_Setting_AdditionalDCRegions]);
  enableUnmuteAll_ = setting[vn_Setting_EnableUnmuteAll].boolValue();
  if (!profile.isLockE2eeMeeting()) enableE2ee_ = setting[vn_Setting_EnableE2ee].boolValue();
  if (const Value& chosen = setting[vn_Setting_MeetingTemplate]; chosen.isPresent()) {
    templateId_ = chosen[vn_Setting_MeetingTemplate_TemplateId].optionalText();
    templateName_ = chosen[vn_Setting_MeetingTemplate_TemplateName].optionalText();
    templateType_ = chosen[vn_Setting_MeetingTemplate_TemplateType].integerValue();
  }
  // Asked for the person who has just been read.
  if (!profile.isLockAllowDenyJoinMeetingRegion(scheduleForEmail_)) {
    enableAllowDenyJoinMeetingRegion_ = setting[vn_Setting_EnableAllowDenyJoinMeetingRegion].boolValue();
    regionType_ = setting[vn_Setting_RegionType].integerValue();
    setArrRegionCodes(setting[vn_Setting_RegionCodes]);
  }
}

void vnSettingData::overlayPassword(const Value& setting) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  meetingPassword_ = setting[vn_Setting_MeetingPassword].stringValue();
  if (!meetingPassword_->empty()) {
    requiredMeetingPassword_ = true;
    return;
  }
  requiredMeetingPassword_ = usePMI_ && (profile.isEnablePMIRequirePassword() ||
                                         (enableJBH_ && profile.isEnableForcePMIJBHWithPassword()));
}

void vnSettingData::overlayDialinCountries(const Value& countries) {
  if (!countries.isPresent()) {
    hash_ = "";
    setSelectedCountries(Value());
    return;
  }
  hash_ = countries[vn_Setting_DialinCountry_Hash].optionalText();
  includeTollfree_ = countries[vn_Setting_DialinCountry_IncludeTollfree].boolValue();
  setSelectedCountries(countries[vn_Setting_DialinCountry_SelectedCountries]);
}

void vnSettingData::resetRequiredPasswordForEditPMIMeeting(const Value& meetingInfo) {
  if (meetingInfo.count() == 0) return;
  meetingPassword_ = meetingInfo[vn_Setting][vn_Setting_MeetingPassword].stringValue();
  requiredMeetingPassword_ = !meetingPassword_->empty();
}

}  // namespace vorn
