// The meeting reader: the meeting-information dictionary.

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetMeetingHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "util/DateText.h"

namespace vorn {

namespace {

constexpr std::int64_t kNoAudioOption = 100;

// The service always sends these. One that is missing gets the neutral value of its kind, where the host's
// dictionary would end the process.
Value textOrNeutral(const Value& value) { return value.isPresent() ? value : Value(""); }
Value flagOrNeutral(const Value& value) { return value.isPresent() ? value : Value(false); }

Value audioOption(const Value& meeting) {
  const Value& tspAudio = meeting[vn_Setting_TspAudioOption];
  if (tspAudio.isPresent()) return vnGetMeetingHelper::convertTspAudioToAudioType(tspAudio.integerValue());
  const Value& audio = meeting[vn_Setting_AudioOption];
  return audio.isPresent() ? audio : Value(kNoAudioOption);
}

}  // namespace

Value vnGetMeetingHelper::getMeetingInfo() const {
  Value info = Value::dictionary();
  if (!hasMeetingInfo()) return info;
  info.set(vn_Outlook_ApptInfo, apptInfo());
  info.set(vn_Setting, settings());

  // A personal meeting goes by the number that it was scheduled with, when the service tells one.
  const std::string original = m_dataMeetingData[vn_MeetingData_OriginalMeetingNumber].stringValue();
  const bool originalCounts =
      m_dataMeetingData[vn_Setting_IsPMI].integerValue() == 1 && !original.empty() && original != "0";
  info.set(vn_MeetingKey, originalCounts ? original : m_dataMeetingData[vn_MeetingKey].stringValue());

  const OptionalText invitation = getInviteEmail();
  if (invitation && !invitation->empty()) info.set(vn_ApptInfo_Body, invitation);
  info.set(vn_Meeting_JoinUrl, m_dataMeetingData[vn_Meeting_JoinUrl]);
  info.set(vn_API_Para_InviteHtmlEmail, getInviteHtmlEmail());
  return info;
}

Value vnGetMeetingHelper::getMeetingSettings() const { return hasMeetingInfo() ? settings() : Value(); }

Value vnGetMeetingHelper::apptInfo() const {
  Value appt = Value::dictionary();
  appt.set(vn_ApptInfo_Subject, textOrNeutral(m_dataMeetingData[vn_ApptInfo_Subject]));
  appt.set(vn_ApptInfo_Duration, textOrNeutral(m_dataMeetingData[vn_ApptInfo_Duration]));
  appt.set(vn_ApptInfo_Recurrence, flagOrNeutral(m_dataMeetingData[vn_ApptInfo_Recurrence]));
  const std::int64_t start = m_dataMeetingData[vn_ApptInfo_StartTime].integerValue();
  const OptionalText utc = dateText(static_cast<double>(start), "UTC");
  appt.set(vn_ApptInfo_StartTime, vnOLCalendarDate::GenerateVnCalendarDate(utc, std::nullopt, "UTC"));
  appt.set(vn_ApptInfo_OlApptUUID, getExtInfoNodeValue(vn_ApptInfo_OlApptUUID));
  return appt;
}

Value vnGetMeetingHelper::settings() const {
  // Some of the account's answers are the client's too.
  const vnClientFeatureMgr::OneReading oneReading;
  const Value& meeting = m_dataMeetingData;
  Value setting = Value::dictionary();
  setting.set(vn_Setting_EnableAddMeetingToPublicEvent, isEnableMeetingToPublic());
  setting.set(vn_Setting_EnableAudioWatermark, isEnableAudioWatermark());
  setting.set(vn_Setting_AudioOption, audioOption(meeting));
  setting.set(vn_Setting_EnableHostVideo, flagOrNeutral(meeting[vn_Setting_EnableHostVideo]));
  setting.set(vn_Setting_EnableParticipantsVideo, flagOrNeutral(meeting[vn_Setting_EnableParticipantsVideo]));
  setting.set(vn_Setting_EnableJBH, flagOrNeutral(meeting[vn_Setting_EnableJBH]));
  setting.set(vn_Setting_JBHPriorTime, meeting[vn_Setting_JBHPriorTime].integerValue());
  setting.set(vn_Setting_IsPMI, flagOrNeutral(meeting[vn_Setting_IsPMI]));
  if (meeting[vn_MeetingData_Enable3rdPartyAudio].boolValue()) {
    setting.set(vn_Setting_ThirdPartyAudio, meeting[vn_Setting_ThirdPartyAudio]);
  }
  const Value password = textOrNeutral(meeting[vn_Setting_MeetingPassword]);
  setting.set(vn_Setting_MeetingPassword, password);
  setting.set(vn_Setting_RequiredMPW, !password.stringValue().empty());
  setting.set(vn_Setting_IsSignedInUsersMeetingOn, isSignedInUsersMeetingOn());
  const Value fields = getTrackingFields();
  if (fields.count() > 0) setting.set(vn_Setting_TrackingFields, fields);
  setting.set(vn_Setting_EnableAutoRecordingMtgLevelFirst, isEnableAutoRecordingMtgLevelFirst());
  setting.set(vn_Setting_EnableAutoRecordingType, autoRecordingType());
  setting.set(vn_Setting_MuteUponEntry, isEnableMuteOnEntry());
  setting.set(vn_Setting_AlternateHosts, getAlternateHosts());
  addMeetingOptions(setting);
  return setting;
}

void vnGetMeetingHelper::addMeetingOptions(Value& setting) const {
  const _sAvailableDialinCountry_ countries = getAvailableDialinCountry();
  setting.set(vn_Setting_AvailableDialinCountry,
              Value::dictionaryFromPairs(
                  {{vn_Setting_DialinCountry_Hash, countries.hash},
                   {vn_Setting_DialinCountry_IncludeTollfree, countries.includeTollfree},
                   {vn_Setting_DialinCountry_SelectedCountries, textArray(countries.selectedCountries)}}));

  const Value& scheduleFor = m_dataMeetingData[vn_Setting_ScheduleFor];
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  if (scheduleFor.isPresent()) {
    setting.set(vn_Setting_ScheduleFor, scheduleFor);
  } else if (const OptionalText host = getHostID(); host != account.getUID()) {
    // A host who is none of the account's people leaves no key, unlike the answer of getScheduleForEmail().
    const std::int64_t index = account.getScheduleForIndexWithHostID(host);
    if (index >= 0) setting.set(vn_Setting_ScheduleFor, account.getScheduleForEmailWithIndex(index));
  }

  const _sAuthDomainInfo_ auth = getAuthDomainInfo();
  setting.set(vn_Setting_MeetingAuth,
              Value::dictionaryFromPairs({{vn_Setting_MeetingAuth_AuthId, auth.authId},
                                          {vn_Setting_MeetingAuth_AuthName, auth.authName},
                                          {vn_Setting_MeetingAuth_AuthType, auth.authType},
                                          {vn_Setting_MeetingAuth_AuthDomain, auth.authDomain}}));
  setting.set(vn_Setting_SupportWaitingRoom, isSupportWaitingRoom());
  setting.set(vn_Setting_EnableWaitingRoom, isEnableWaitingRoom());
  setting.set(vn_Setting_EnableRegionCustomization, isEnableRegionCustomization());
  setting.set(vn_Setting_AdditionalDCRegions, getAdditionalDCRegions());
  setting.set(vn_Setting_EnableUnmuteAll, isEnableUnmuteAll());
  setting.set(vn_Setting_EnableE2ee, isEnableE2ee());
  const _sMeetingTemplate_ chosen = getMeetingTemplate();
  setting.set(vn_Setting_MeetingTemplate,
              Value::dictionaryFromPairs({{vn_Setting_MeetingTemplate_TemplateId, chosen.templateId},
                                          {vn_Setting_MeetingTemplate_TemplateName, chosen.templateName},
                                          {vn_Setting_MeetingTemplate_TemplateType, chosen.templateType}}));
  setting.set(vn_Setting_EnableAllowDenyJoinMeetingRegion, isEnableAllowDenyJoinMeetingRegion());
  const _sJoinMeetingRegionPolicy_ policy = getJoinMeetingRegionPolicy();
  setting.set(vn_Setting_RegionType, policy.regionType);
  setting.set(vn_Setting_RegionCodes, textArray(policy.regionCodes));
}

int vnGetMeetingHelper::autoRecordingType() const {
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  const bool localAvailable = account.enableLocalRecording();
  const bool cloudAvailable = account.enableCloudRecording();
  if (!localAvailable && !cloudAvailable) return 5;
  const bool both = localAvailable && cloudAvailable;
  if (isEnableAutoRecordingCloud()) return both ? 2 : 4;
  if (isEnableAutoRecordingLocal()) return both ? 1 : 3;
  return 0;
}

}  // namespace vorn
