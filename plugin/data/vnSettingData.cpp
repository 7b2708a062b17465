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

const Value& vnSettingData::trackingFields() const { return trackingFieldsHolder_[vn_Setting_TrackingFields]; }

void vnSettingData::setTrackingFields(const Value& fields) {
  if (fields.isArray()) {
    trackingFieldsHolder_.set(vn_Setting_TrackingFields, fields);
  } else {
    trackingFieldsHolder_.erase(vn_Setting_TrackingFields);
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

void vnSettingData::setAlternateHosts(const Value& hosts) { arrAlternateHosts_ = arrayOrEmpty(hosts); }

void vnSettingData::setSelectedCountries(const Value& countries) {
  arrSelectedCountries_ = arrayOrEmpty(countries);
}

void vnSettingData::setArrAdditionalDCRegions(const Value& regions) {
  arrAdditionalDCRegions_ = arrayOrEmpty(regions);
}

void vnSettingData::setArrRegionCodes(const Value& codes) { arrRegionCodes_ = arrayOrEmpty(codes); }

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
  if (!thirdPartyAudio_) thirdPartyAudio_ = "";
  if (!scheduleForEmail_) scheduleForEmail_ = "";
  if (requiredMeetingPassword_ && !meetingPassword_) meetingPassword_ = "";

  Value data = Value::dictionary();
  data.set(vn_Setting_EnableHostVideo, hostVideoOn_);
  data.set(vn_Setting_EnableParticipantsVideo, paticipantVideoOn_);
  data.set(vn_Setting_AudioOption, audioType_);
  data.set(vn_Setting_EnableThirdPartyAudio, enableThirdPartyAudio_);
  data.set(vn_Setting_ThirdPartyAudio, thirdPartyAudio_);
  data.set(vn_Setting_RequiredMPW, requiredMeetingPassword_);
  if (requiredMeetingPassword_) data.set(vn_Setting_MeetingPassword, meetingPassword_);
  data.set(vn_Setting_EnableJBH, enableJBH_);
  data.set(vn_Setting_IsPMI, usePMI_);
  data.set(vn_Setting_NotShowMeAgain, notShowMeAgain());
  data.set(vn_Setting_ScheduleFor, scheduleForEmail_);
  data.set(vn_Setting_TrackingFields, trackingFields());
  data.set(vn_Setting_IsSignedInUsersMeetingOn, isSignedInUsersMeetingOn_);
  if (isSignedInUsersMeetingOn_) {
    Value auth = Value::dictionary();
    auth.set(vn_Setting_MeetingAuth_AuthId, authId_);
    auth.set(vn_Setting_MeetingAuth_AuthName, authName_);
    auth.set(vn_Setting_MeetingAuth_AuthType, authType_);
    auth.set(vn_Setting_MeetingAuth_AuthDomain, authDomain_);
    data.set(vn_Setting_MeetingAuth, std::move(auth));
  }
  data.set(vn_Setting_EnableAutoRecordingMtgLevelFirst, enableAutoRecordingMtgLevelFirst_);
  data.set(vn_Setting_EnableAutoRecordingType, emAutoRecordingType_);
  data.set(vn_Setting_AlternateHosts, arrAlternateHosts_);
  data.set(vn_Setting_MuteUponEntry, muteUponEntry_);
  data.set(vn_Setting_ForceIncludeJoinurlInLocation, forceIncludeJoinurlInLocation_);
  if (!hash_.value_or("").empty() && arrSelectedCountries_.count() > 0) {
    Value countries = Value::dictionary();
    countries.set(vn_Setting_DialinCountry_Hash, hash_);
    countries.set(vn_Setting_DialinCountry_IncludeTollfree, includeTollfree_);
    countries.set(vn_Setting_DialinCountry_SelectedCountries, arrSelectedCountries_);
    data.set(vn_Setting_AvailableDialinCountry, std::move(countries));
  }
  data.set(vn_Setting_EnableAddMeetingToPublicEvent, enablePublicEvent_);
  data.set(vn_Setting_EnableAudioWatermark, enableAudioWatermark_);
  data.set(vn_Setting_PutTheInvitationAtTheTop, putTheInvitationAtTheTop_);
  data.set(vn_Setting_SelectInvitationLanguage, selectInvitationLanguage_);
  data.set(vn_Setting_JBHPriorTime, jbhPriorTime_);
  data.set(vn_Setting_EnableWaitingRoom, enableWaitingRoom_);
  data.set(vn_Setting_SupportWaitingRoom, supportWaitingRoom_);
  data.set(vn_Setting_EnableRegionCustomization, enableRegionCustomization_);
  data.set(vn_Setting_AdditionalDCRegions, arrAdditionalDCRegions_);
  data.set(vn_Setting_EnableUnmuteAll, enableUnmuteAll_);
  data.set(vn_Setting_EnableE2ee, enableE2ee_);
  Value chosen = Value::dictionary();
  chosen.set(vn_Setting_MeetingTemplate_TemplateId, templateId_);
  chosen.set(vn_Setting_MeetingTemplate_TemplateName, templateName_);
  chosen.set(vn_Setting_MeetingTemplate_TemplateType, templateType_);
  data.set(vn_Setting_MeetingTemplate, std::move(chosen));
  data.set(vn_Setting_EnableAllowDenyJoinMeetingRegion, enableAllowDenyJoinMeetingRegion_);
  data.set(vn_Setting_RegionType, regionType_);
  data.set(vn_Setting_RegionCodes, arrRegionCodes_);
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
  for (OptionalText* text :
       {&meetingPassword_, &roomMeetingId_, &thirdPartyAudio_, &scheduleForEmail_, &restrictJoinDomains_, &hash_,
        &selectInvitationLanguage_, &authId_, &authName_, &authDomain_, &templateId_, &templateName_}) {
    text->reset();
  }
  trackingFieldsHolder_ = Value();
  arrAlternateHosts_ = Value();
  arrSelectedCountries_ = Value();
  arrAdditionalDCRegions_ = Value();
  arrRegionCodes_ = Value();
}

}  // namespace vorn
