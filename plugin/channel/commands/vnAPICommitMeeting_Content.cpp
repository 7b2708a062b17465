// What goes to the client.

#include <string>
#include <string_view>

#include "channel/commands/vnAPICommitMeeting.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/AudioType.h"
#include "data/RecordingType.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "invitation/TimeUtils.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::size_t MeetingTopicLength_Max = 200;

// The head fills the fields of other operations, so that the document begins in field 13.
constexpr std::string_view kEmptyFields = ";;;;;;;;;;;;;";

// What the client calls the first of the audio choices of a telephony provider's site.
constexpr std::int64_t kTspAudioOptionFirst = 1;

// The document's member is the source's, and is missing when the source has none.
class Copier {
 public:
  Copier(const Value& source, Value& document) : m_source(source), m_document(document) {}

  void copy(std::string_view key) { m_document.set(key, m_source[key]); }
  void copyList(std::string_view key) {
    if (m_source[key].count() > 0) copy(key);
  }
  void copyBoolean(std::string_view key) { m_document.set(key, m_source[key].boolValue()); }

 private:
  const Value& m_source;
  Value& m_document;
};

void setAudio(const Value& setting, Value& document) {
  const std::int64_t audio = setting[vn_Setting_AudioOption].integerValue();
  if (audio >= kAudioTspTelephonyFirst && audio <= kAudioTspBothSecond) {
    document.set(vn_Setting_TspAudioOption, audio - kAudioTspTelephonyFirst + kTspAudioOptionFirst);
    return;
  }
  document.set(vn_Setting_AudioOption, setting[vn_Setting_AudioOption]);
  if (audio == kAudioThirdParty) document.set(vn_Setting_ThirdPartyAudio, setting[vn_Setting_ThirdPartyAudio]);
}

void setRecording(const Value& setting, Value& document) {
  const std::int64_t type = setting[vn_Setting_EnableAutoRecordingType].integerValue();
  if (type == kRecordingUnavailable) return;
  document.set(vn_Setting_EnableAutoRecordingMtgLevelFirst,
               setting[vn_Setting_EnableAutoRecordingMtgLevelFirst].boolValue());
  document.set(vn_Setting_EnableCloudRecording, type == kRecordingCloudOfBoth || type == kRecordingOnlyCloud);
  document.set(vn_Setting_EnableLocalRecording, type == kRecordingLocalOfBoth || type == kRecordingOnlyLocal);
}

void setRegions(const Value& setting, Value& document) {
  Copier copier(setting, document);
  copier.copy(vn_Setting_EnableAllowDenyJoinMeetingRegion);
  if (!setting[vn_Setting_EnableAllowDenyJoinMeetingRegion].boolValue()) return;
  Value policy = Value::dictionary();
  Copier(setting, policy).copy(vn_Setting_RegionType);
  Copier(setting, policy).copy(vn_Setting_RegionCodes);
  document.set(vn_Setting_RegionPolicy, policy);
}

}  // namespace

std::string vnAPICommitMeeting::getContentIdentifierHead() const {
  return std::to_string(m_msgParamActionId) + std::string(kEmptyFields);
}

std::string vnAPICommitMeeting::getAPIData() { return hasValidMeetingInfo() ? contentOf(documentText()) : ""; }

std::string vnAPICommitMeeting::contentOf(const OptionalText& document) {
  if (m_owner) {
    m_owner->setScheduleForEmail(m_dataMeetingInfo[vn_Setting][vn_Setting_ScheduleFor].optionalText());
  }
  return document ? getContentIdentifierHead() + *document : "";
}

OptionalText vnAPICommitMeeting::documentText() const {
  const vnClientFeatureMgr::OneReading oneReading;
  Value document = Value::dictionary();
  document.set(vn_Outlook_ApptInfo, apptInfoDocument());
  document.set(vn_Setting, settingDocument());
  const Value& key = m_dataMeetingInfo[vn_MeetingKey];
  if (const std::string number = key.stringValue(); !number.empty() && number != "0") {
    document.set(vn_MeetingKey, key);
  }
  return vnOLUtils::toJSONString(document);
}

Value vnAPICommitMeeting::apptInfoDocument() const {
  const Value& source = m_dataMeetingInfo[vn_Outlook_ApptInfo];
  const Value& start = source[vn_ApptInfo_StartTime];
  Value document = Value::dictionary();
  Copier copier(source, document);

  copier.copy(vn_ApptInfo_Duration);
  copier.copy(vn_ApptInfo_Location);
  document.set(vn_ApptInfo_Subject, utf16Prefix(source[vn_ApptInfo_Subject].text(), MeetingTopicLength_Max));
  copier.copy(vn_ApptInfo_Recurrence);
  document.set(vn_ApptInfo_StartTime,
               TimeUtils::stringToTimestamp(start[vn_ApptInfo_CalDate_UTCTime].optionalText()));
  copier.copyList(vn_ApptInfo_Attendees);
  const OptionalText zone = getJodaTimezoneName(timeZoneName(start[vn_ApptInfo_Timezone]));
  document.set(vn_ApptInfo_Timezone, zone.value_or(""));
  if (vnClientFeatureMgr::sharedInstance().isVornClientSupportExtInfo()) copier.copy(vn_ApptInfo_OlApptUUID);
  return document;
}

Value vnAPICommitMeeting::settingDocument() const {
  const Value& setting = m_dataMeetingInfo[vn_Setting];
  vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
  Value document = Value::dictionary();
  Copier copier(setting, document);

  setAudio(setting, document);
  copier.copy(vn_Setting_EnableHostVideo);
  copier.copy(vn_Setting_EnableJBH);
  copier.copy(vn_Setting_EnableParticipantsVideo);
  copier.copy(vn_Setting_IsPMI);
  const bool hasPassword = setting[vn_Setting_RequiredMPW].boolValue();
  document.set(vn_Setting_MeetingPassword, hasPassword ? setting[vn_Setting_MeetingPassword].text() : "");
  if (!setting[vn_Setting_ScheduleFor].text().empty()) copier.copy(vn_Setting_ScheduleFor);
  copier.copyList(vn_Setting_TrackingFields);
  setRecording(setting, document);
  if (client.isVornClientSupportAHAndMuteOnEntry()) {
    copier.copyBoolean(vn_Setting_MuteUponEntry);
    copier.copy(vn_Setting_AlternateHosts);
  }
  if (client.isVornClientSupportEditCountries()) copier.copy(vn_Setting_AvailableDialinCountry);
  if (client.isVornClientSupportPublicEvent()) copier.copy(vn_Setting_EnableAddMeetingToPublicEvent);
  if (client.isVornClientSupportAudioWatermark()) copier.copy(vn_Setting_EnableAudioWatermark);
  copier.copy(vn_Setting_JBHPriorTime);
  copier.copy(vn_Setting_IsSignedInUsersMeetingOn);
  copier.copy(vn_Setting_MeetingAuth);
  if (!setting[vn_Setting_IsPMI].boolValue()) copier.copy(vn_Setting_MeetingTemplate);
  copier.copy(vn_Setting_SupportWaitingRoom);
  copier.copy(vn_Setting_EnableWaitingRoom);
  copier.copy(vn_Setting_EnableUnmuteAll);
  copier.copy(vn_Setting_EnableE2ee);
  if (client.isVornClientSupport500Tasks()) {
    copier.copy(vn_Setting_EnableRegionCustomization);
    copier.copyList(vn_Setting_AdditionalDCRegions);
  }
  if (client.isVornClientSupport550Tasks()) setRegions(setting, document);
  document.set(vn_Setting_VnSrc, kRequestSource);
  copier.copy(vn_Setting_SelectInvitationLanguage);
  return document;
}

}  // namespace vorn
