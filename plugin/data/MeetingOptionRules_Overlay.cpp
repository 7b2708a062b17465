// The rules of a meeting's options: a fetched or stored meeting over the account's defaults.

#include <unordered_map>

#include "data/MeetingOptionRules.h"
#include "data/OptionPolicy.h"
#include "data/vnSettingKeys.h"

namespace vorn::meeting_options {

namespace {

// What the account has locked keeps the account's default.
void take(bool& option, const OptionPolicy& policy, const AccountFacts& account, const Value& setting) {
  if (!policy.isLocked(account)) option = setting[policy.key].boolValue();
}

void takePassword(MeetingOptions& options, const AccountFacts& account, const Value& setting) {
  options.meetingPassword = setting[vn_Setting_MeetingPassword].stringValue();
  options.requiredMeetingPassword =
      !options.meetingPassword->empty() ||
      (options.usePMI &&
       (account.isEnablePMIRequirePassword || (options.enableJBH && account.isEnableForcePMIJBHWithPassword)));
}

void takeDialinCountries(MeetingOptions& options, const Value& countries) {
  if (!countries.isPresent()) {
    options.hash = "";
    options.arrSelectedCountries = Value::array();
    return;
  }
  options.hash = countries[vn_Setting_DialinCountry_Hash].optionalText();
  options.includeTollfree = countries[vn_Setting_DialinCountry_IncludeTollfree].boolValue();
  options.arrSelectedCountries = arrayOrEmpty(countries[vn_Setting_DialinCountry_SelectedCountries]);
}

void takeAuth(MeetingOptions& options, const Value& auth) {
  if (!auth.isPresent()) return;
  options.authId = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
  options.authName = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
  options.authType = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
  options.authDomain = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
}

void takeTemplate(MeetingOptions& options, const Value& chosen) {
  if (!chosen.isPresent()) return;
  options.templateId = chosen[vn_Setting_MeetingTemplate_TemplateId].optionalText();
  options.templateName = chosen[vn_Setting_MeetingTemplate_TemplateName].optionalText();
  options.templateType = chosen[vn_Setting_MeetingTemplate_TemplateType].integerValue();
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

void initWithSiteMeetingInfo(MeetingOptions& options, const AccountFacts& account, const Value& meetingInfo) {
  if (meetingInfo.count() == 0) return;
  const Value& setting = meetingInfo[vn_Setting];
  take(options.hostVideoOn, policyOf(vn_Setting_EnableHostVideo), account, setting);
  take(options.paticipantVideoOn, policyOf(vn_Setting_EnableParticipantsVideo), account, setting);
  if (!policyOf(vn_Setting_AudioOption).isLocked(account)) {
    options.audioType = setting[vn_Setting_AudioOption].integerValue();
  }
  take(options.enableJBH, policyOf(vn_Setting_EnableJBH), account, setting);
  if (!policyOf(vn_Setting_JBHPriorTime).isLocked(account)) {
    options.jbhPriorTime = setting[vn_Setting_JBHPriorTime].integerValue();
  }
  take(options.usePMI, policyOf(vn_Setting_IsPMI), account, setting);
  takePassword(options, account, setting);
  const std::string thirdParty = setting[vn_Setting_ThirdPartyAudio].stringValue();
  if (!thirdParty.empty()) options.thirdPartyAudio = thirdParty;
  take(options.isSignedInUsersMeetingOn, policyOf(vn_Setting_IsSignedInUsersMeetingOn), account, setting);
  // The list of fields stays the account's; the meeting adds the chosen values.
  updateTrackingFields(options, setting[vn_Setting_TrackingFields]);
  take(options.enableAutoRecordingMtgLevelFirst, policyOf(vn_Setting_EnableAutoRecordingMtgLevelFirst), account,
       setting);
  if (!policyOf(vn_Setting_EnableAutoRecordingType).isLocked(account)) {
    options.emAutoRecordingType =
        static_cast<std::int32_t>(setting[vn_Setting_EnableAutoRecordingType].integerValue());
  }
  take(options.muteUponEntry, policyOf(vn_Setting_MuteUponEntry), account, setting);
  options.arrAlternateHosts = arrayOrEmpty(setting[vn_Setting_AlternateHosts]);
  takeDialinCountries(options, setting[vn_Setting_AvailableDialinCountry]);
  take(options.enablePublicEvent, policyOf(vn_Setting_EnableAddMeetingToPublicEvent), account, setting);
  options.scheduleForEmail = setting[vn_Setting_ScheduleFor].optionalText();
  take(options.enableAudioWatermark, policyOf(vn_Setting_EnableAudioWatermark), account, setting);
  takeAuth(options, setting[vn_Setting_MeetingAuth]);
  // The two are locked together.
  if (!policyOf(vn_Setting_EnableWaitingRoom).isLocked(account)) {
    options.enableWaitingRoom = setting[vn_Setting_EnableWaitingRoom].boolValue();
    options.supportWaitingRoom = setting[vn_Setting_SupportWaitingRoom].boolValue();
  }
  take(options.enableRegionCustomization, policyOf(vn_Setting_EnableRegionCustomization), account, setting);
  options.arrAdditionalDCRegions = arrayOrEmpty(setting[vn_Setting_AdditionalDCRegions]);
  take(options.enableUnmuteAll, policyOf(vn_Setting_EnableUnmuteAll), account, setting);
  take(options.enableE2ee, policyOf(vn_Setting_EnableE2ee), account, setting);
  takeTemplate(options, setting[vn_Setting_MeetingTemplate]);
  take(options.enableAllowDenyJoinMeetingRegion, policyOf(vn_Setting_EnableAllowDenyJoinMeetingRegion), account,
       setting);
  if (!policyOf(vn_Setting_RegionType).isLocked(account)) {
    options.regionType = setting[vn_Setting_RegionType].integerValue();
    options.arrRegionCodes = arrayOrEmpty(setting[vn_Setting_RegionCodes]);
  }
}

void resetRequiredPasswordForEditPMIMeeting(MeetingOptions& options, const Value& meetingInfo) {
  if (meetingInfo.count() == 0) return;
  options.meetingPassword = meetingInfo[vn_Setting][vn_Setting_MeetingPassword].stringValue();
  options.requiredMeetingPassword = !options.meetingPassword->empty();
}

// One pass over the fields: the last chosen value of an id counts, but an absent one before it has already cut the
// field's dictionary short.
void updateTrackingFields(MeetingOptions& options, const Value& items) {
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
  if (choices.empty() || !options.trackingFields.isArray()) return;
  Value::Array fields = options.trackingFields.items();
  for (Value& field : fields) {
    const Value& id = field[vn_Setting_TrackingFields_Id];
    const auto found = id.isText() ? choices.find(id.text()) : choices.end();
    if (found == choices.end()) continue;
    if (found->second.wasAbsent) field = fieldWithChosenValue(field, std::nullopt);
    if (found->second.last) field = fieldWithChosenValue(field, found->second.last);
  }
  options.trackingFields = Value(std::move(fields));
}

}  // namespace vorn::meeting_options
