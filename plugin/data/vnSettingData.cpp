#include "data/vnSettingData.h"

#include <unordered_map>

#include "data/vnSettingKeys.h"
#include "platform/Registry.h"
#include "platform/UserDefaults.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

Value arrayOrEmpty(const Value& value) { return value.isArray() ? value : Value::array(); }

void saveToUserDefaults(bool value, std::string_view key) {
  UserDefaults& defaults = *Registry::platform().userDefaults;
  defaults.setObject(value, key);
  defaults.synchronize();
}

Value fieldWithChosenValue(const Value& field, const OptionalText& mtValue) {
  return Value::dictionaryFromPairs(
      {{vn_Setting_TrackingFields_Id, field[vn_Setting_TrackingFields_Id]},
       {vn_Setting_TrackingFields_Field, field[vn_Setting_TrackingFields_Field]},
       {vn_Setting_TrackingFields_Value, field[vn_Setting_TrackingFields_Value]},
       {vn_Setting_TrackingFields_MtValue, mtValue},
       {vn_Setting_TrackingFields_Required, field[vn_Setting_TrackingFields_Required]}});
}

}  // namespace

const Value& vnSettingData::trackingFields() const { return m_trackingFieldsHolder[vn_Setting_TrackingFields]; }

void vnSettingData::setTrackingFields(const Value& fields) {
  if (fields.isArray()) {
    m_trackingFieldsHolder.set(vn_Setting_TrackingFields, fields);
  } else {
    m_trackingFieldsHolder.erase(vn_Setting_TrackingFields);
  }
}

void vnSettingData::updateTrackingFieldMtValue(const OptionalText& id, const OptionalText& mtValue) {
  if (!id) return;
  Value item = Value::dictionaryFromPairs(
      {{vn_Setting_TrackingFields_Id, id}, {vn_Setting_TrackingFields_MtValue, mtValue}});
  overlayTrackingFields(Value::Array{std::move(item)});
}

// What one update for each item in turn would give, in one pass over the fields: the last chosen value of an id
// counts, but an absent one before it has already cut the field's dictionary short.
void vnSettingData::overlayTrackingFields(const Value& items) {
  struct Choice {
    OptionalText last;
    bool wasAbsent = false;
  };
  std::unordered_map<std::string, Choice> choices;
  for (const Value& item : items.items()) {
    if (!item[vn_Setting_TrackingFields_Id].isText()) continue;
    Choice& choice = choices[item[vn_Setting_TrackingFields_Id].text()];
    choice.last = item[vn_Setting_TrackingFields_MtValue].optionalText();
    if (!choice.last) choice.wasAbsent = true;
  }
  if (choices.empty() || !trackingFields().isArray()) return;
  Value::Array fields = trackingFields().items();
  for (Value& field : fields) {
    const Value& id = field[vn_Setting_TrackingFields_Id];
    const auto found = id.isText() ? choices.find(id.text()) : choices.end();
    if (found == choices.end()) continue;
    if (found->second.wasAbsent) field = fieldWithChosenValue(field, std::nullopt);
    if (found->second.last) field = fieldWithChosenValue(field, found->second.last);
  }
  setTrackingFields(fields);
}

void vnSettingData::setAlternateHosts(const Value& hosts) { m_arrAlternateHosts = arrayOrEmpty(hosts); }

void vnSettingData::setSelectedCountries(const Value& countries) {
  m_arrSelectedCountries = arrayOrEmpty(countries);
}

void vnSettingData::setArrAdditionalDCRegions(const Value& regions) {
  m_arrAdditionalDCRegions = arrayOrEmpty(regions);
}

void vnSettingData::setArrRegionCodes(const Value& codes) { m_arrRegionCodes = arrayOrEmpty(codes); }

bool vnSettingData::notShowMeAgain() const {
  return Registry::platform().userDefaults->objectForKey(vn_Setting_NotShowMeAgain).boolValue();
}

void vnSettingData::setNotShowMeAgain(bool notShow) { saveToUserDefaults(notShow, vn_Setting_NotShowMeAgain); }

void vnSettingData::saveForceIncludeJoinurlInLocationToUserDefault(bool include) {
  saveToUserDefaults(include, vn_Setting_ForceIncludeJoinurlInLocation);
}

void vnSettingData::savePutInvitationAtTheTopToUserDefault(bool top) {
  saveToUserDefaults(top, vn_Setting_PutTheInvitationAtTheTop);
}

Value vnSettingData::getSettingsData() {
  if (!m_thirdPartyAudio) m_thirdPartyAudio = "";
  if (!m_scheduleForEmail) m_scheduleForEmail = "";
  if (m_requiredMeetingPassword && !m_meetingPassword) m_meetingPassword = "";

  Value data = Value::dictionary();
  data.set(vn_Setting_EnableHostVideo, m_hostVideoOn);
  data.set(vn_Setting_EnableParticipantsVideo, m_paticipantVideoOn);
  data.set(vn_Setting_AudioOption, m_audioType);
  data.set(vn_Setting_EnableThirdPartyAudio, m_enableThirdPartyAudio);
  data.set(vn_Setting_ThirdPartyAudio, m_thirdPartyAudio);
  data.set(vn_Setting_RequiredMPW, m_requiredMeetingPassword);
  if (m_requiredMeetingPassword) data.set(vn_Setting_MeetingPassword, m_meetingPassword);
  data.set(vn_Setting_EnableJBH, m_enableJBH);
  data.set(vn_Setting_IsPMI, m_usePMI);
  data.set(vn_Setting_NotShowMeAgain, notShowMeAgain());
  data.set(vn_Setting_ScheduleFor, m_scheduleForEmail);
  data.set(vn_Setting_TrackingFields, trackingFields());
  data.set(vn_Setting_IsSignedInUsersMeetingOn, m_isSignedInUsersMeetingOn);
  if (m_isSignedInUsersMeetingOn) {
    Value auth = Value::dictionary();
    auth.set(vn_Setting_MeetingAuth_AuthId, m_authId);
    auth.set(vn_Setting_MeetingAuth_AuthName, m_authName);
    auth.set(vn_Setting_MeetingAuth_AuthType, m_authType);
    auth.set(vn_Setting_MeetingAuth_AuthDomain, m_authDomain);
    data.set(vn_Setting_MeetingAuth, std::move(auth));
  }
  data.set(vn_Setting_EnableAutoRecordingMtgLevelFirst, m_enableAutoRecordingMtgLevelFirst);
  data.set(vn_Setting_EnableAutoRecordingType, m_emAutoRecordingType);
  data.set(vn_Setting_AlternateHosts, m_arrAlternateHosts);
  data.set(vn_Setting_MuteUponEntry, m_muteUponEntry);
  data.set(vn_Setting_ForceIncludeJoinurlInLocation, m_forceIncludeJoinurlInLocation);
  if (!m_hash.value_or("").empty() && m_arrSelectedCountries.count() > 0) {
    Value countries = Value::dictionary();
    countries.set(vn_Setting_DialinCountry_Hash, m_hash);
    countries.set(vn_Setting_DialinCountry_IncludeTollfree, m_includeTollfree);
    countries.set(vn_Setting_DialinCountry_SelectedCountries, m_arrSelectedCountries);
    data.set(vn_Setting_AvailableDialinCountry, std::move(countries));
  }
  data.set(vn_Setting_EnableAddMeetingToPublicEvent, m_enablePublicEvent);
  data.set(vn_Setting_EnableAudioWatermark, m_enableAudioWatermark);
  data.set(vn_Setting_PutTheInvitationAtTheTop, m_putTheInvitationAtTheTop);
  data.set(vn_Setting_SelectInvitationLanguage, m_selectInvitationLanguage);
  data.set(vn_Setting_JBHPriorTime, m_jbhPriorTime);
  data.set(vn_Setting_EnableWaitingRoom, m_enableWaitingRoom);
  data.set(vn_Setting_SupportWaitingRoom, m_supportWaitingRoom);
  data.set(vn_Setting_EnableRegionCustomization, m_enableRegionCustomization);
  data.set(vn_Setting_AdditionalDCRegions, m_arrAdditionalDCRegions);
  data.set(vn_Setting_EnableUnmuteAll, m_enableUnmuteAll);
  data.set(vn_Setting_EnableE2ee, m_enableE2ee);
  Value chosen = Value::dictionary();
  chosen.set(vn_Setting_MeetingTemplate_TemplateId, m_templateId);
  chosen.set(vn_Setting_MeetingTemplate_TemplateName, m_templateName);
  chosen.set(vn_Setting_MeetingTemplate_TemplateType, m_templateType);
  data.set(vn_Setting_MeetingTemplate, std::move(chosen));
  data.set(vn_Setting_EnableAllowDenyJoinMeetingRegion, m_enableAllowDenyJoinMeetingRegion);
  data.set(vn_Setting_RegionType, m_regionType);
  data.set(vn_Setting_RegionCodes, m_arrRegionCodes);
  return data;
}

std::string vnSettingData::getFormatRoomMeetingId(const OptionalText& meetingId) {
  if (!meetingId) return {};
  std::string text = *meetingId;
  const std::size_t length = utf16Length(text);
  if (length >= 3) text.insert(bytePosition(text, 3), " ");
  const std::size_t second = length < 11 ? 7 : 8;
  // Seven digits stay in two groups, though shorter and longer numbers follow the rule.
  if (length != 7 && utf16Length(text) >= second) text.insert(bytePosition(text, second), " ");
  return text;
}

void vnSettingData::cleanup() {
  for (OptionalText* text : {&m_meetingPassword, &m_roomMeetingId, &m_thirdPartyAudio, &m_scheduleForEmail,
                             &m_restrictJoinDomains, &m_hash, &m_selectInvitationLanguage, &m_authId, &m_authName,
                             &m_authDomain, &m_templateId, &m_templateName}) {
    text->reset();
  }
  m_trackingFieldsHolder = Value();
  m_arrAlternateHosts = Value();
  m_arrSelectedCountries = Value();
  m_arrAdditionalDCRegions = Value();
  m_arrRegionCodes = Value();
}

}  // namespace vorn
