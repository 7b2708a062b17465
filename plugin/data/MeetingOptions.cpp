#include "data/MeetingOptions.h"

#include <utility>

#include "data/vnSettingKeys.h"

namespace vorn {

Value settingsOf(const MeetingOptions& options, bool notShowMeAgain) {
  Value data = Value::dictionary();
  data.set(vn_Setting_EnableHostVideo, options.hostVideoOn);
  data.set(vn_Setting_EnableParticipantsVideo, options.paticipantVideoOn);
  data.set(vn_Setting_AudioOption, options.audioType);
  data.set(vn_Setting_EnableThirdPartyAudio, options.enableThirdPartyAudio);
  data.set(vn_Setting_ThirdPartyAudio, options.thirdPartyAudio);
  data.set(vn_Setting_RequiredMPW, options.requiredMeetingPassword);
  if (options.requiredMeetingPassword) data.set(vn_Setting_MeetingPassword, options.meetingPassword);
  data.set(vn_Setting_EnableJBH, options.enableJBH);
  data.set(vn_Setting_IsPMI, options.usePMI);
  data.set(vn_Setting_NotShowMeAgain, notShowMeAgain);
  data.set(vn_Setting_ScheduleFor, options.scheduleForEmail);
  data.set(vn_Setting_TrackingFields, options.trackingFields);
  data.set(vn_Setting_IsSignedInUsersMeetingOn, options.isSignedInUsersMeetingOn);
  if (options.isSignedInUsersMeetingOn) {
    Value auth = Value::dictionary();
    auth.set(vn_Setting_MeetingAuth_AuthId, options.authId);
    auth.set(vn_Setting_MeetingAuth_AuthName, options.authName);
    auth.set(vn_Setting_MeetingAuth_AuthType, options.authType);
    auth.set(vn_Setting_MeetingAuth_AuthDomain, options.authDomain);
    data.set(vn_Setting_MeetingAuth, std::move(auth));
  }
  data.set(vn_Setting_EnableAutoRecordingMtgLevelFirst, options.enableAutoRecordingMtgLevelFirst);
  data.set(vn_Setting_EnableAutoRecordingType, options.emAutoRecordingType);
  data.set(vn_Setting_AlternateHosts, options.arrAlternateHosts);
  data.set(vn_Setting_MuteUponEntry, options.muteUponEntry);
  data.set(vn_Setting_ForceIncludeJoinurlInLocation, options.forceIncludeJoinurlInLocation);
  if (!options.hash.value_or("").empty() && options.arrSelectedCountries.count() > 0) {
    Value countries = Value::dictionary();
    countries.set(vn_Setting_DialinCountry_Hash, options.hash);
    countries.set(vn_Setting_DialinCountry_IncludeTollfree, options.includeTollfree);
    countries.set(vn_Setting_DialinCountry_SelectedCountries, options.arrSelectedCountries);
    data.set(vn_Setting_AvailableDialinCountry, std::move(countries));
  }
  data.set(vn_Setting_EnableAddMeetingToPublicEvent, options.enablePublicEvent);
  data.set(vn_Setting_EnableAudioWatermark, options.enableAudioWatermark);
  data.set(vn_Setting_PutTheInvitationAtTheTop, options.putTheInvitationAtTheTop);
  data.set(vn_Setting_SelectInvitationLanguage, options.selectInvitationLanguage);
  data.set(vn_Setting_JBHPriorTime, options.jbhPriorTime);
  data.set(vn_Setting_EnableWaitingRoom, options.enableWaitingRoom);
  data.set(vn_Setting_SupportWaitingRoom, options.supportWaitingRoom);
  data.set(vn_Setting_EnableRegionCustomization, options.enableRegionCustomization);
  data.set(vn_Setting_AdditionalDCRegions, options.arrAdditionalDCRegions);
  data.set(vn_Setting_EnableUnmuteAll, options.enableUnmuteAll);
  data.set(vn_Setting_EnableE2ee, options.enableE2ee);
  Value chosen = Value::dictionary();
  chosen.set(vn_Setting_MeetingTemplate_TemplateId, options.templateId);
  chosen.set(vn_Setting_MeetingTemplate_TemplateName, options.templateName);
  chosen.set(vn_Setting_MeetingTemplate_TemplateType, options.templateType);
  data.set(vn_Setting_MeetingTemplate, std::move(chosen));
  data.set(vn_Setting_EnableAllowDenyJoinMeetingRegion, options.enableAllowDenyJoinMeetingRegion);
  data.set(vn_Setting_RegionType, options.regionType);
  data.set(vn_Setting_RegionCodes, options.arrRegionCodes);
  return data;
}

Value arrayOrEmpty(const Value& value) { return value.isArray() ? value : Value::array(); }

}  // namespace vorn
