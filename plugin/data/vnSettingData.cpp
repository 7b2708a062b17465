#include "data/vnSettingData.h"

#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/MeetingOptionRules.h"
#include "data/Passcodes.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

const vnUserProfileHelper& user() { return vnUserProfileHelper::sharedInstance(); }

AccountFacts factsFor(const OptionalText& email) { return accountFacts(user(), email); }

Passcodes accountsPasscodes() {
  Surroundings& surroundings = *Registry::platform().surroundings;
  return {vnSettingData::passcodePolicy(), surroundings.preferredLanguages().front(),
          [&surroundings] { return surroundings.random32(); }};
}

void saveToUserDefaults(bool value, std::string_view key) {
  UserDefaults& defaults = *Registry::platform().userDefaults;
  defaults.setObject(value, key);
  defaults.synchronize();
}

}  // namespace

void vnSettingData::updateTrackingFieldMtValue(const OptionalText& id, const OptionalText& mtValue) {
  if (!id) return;
  meeting_options::updateTrackingFields(
      m_options, Value::Array{Value::dictionaryFromPairs(
                     {{vn_Setting_TrackingFields_Id, id}, {vn_Setting_TrackingFields_MtValue, mtValue}})});
}

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

void vnSettingData::initSettingData() {
  const vnClientFeatureMgr::OneReading oneReading;
  resetFields();
  initWithUserProfileDefault();
  initWithSavedProfile();
}

void vnSettingData::resetFields() {
  meeting_options::resetFields(m_options);
  // Really written each time, until the saved profile says otherwise.
  setNotShowMeAgain(false);
}

void vnSettingData::initWithUserProfileDefault() {
  meeting_options::initWithUserProfileDefault(m_options, factsFor(m_options.scheduleForEmail), getRandomPassWord);
}

void vnSettingData::initSubDataWithUserProfile(bool usePMI) {
  meeting_options::initSubDataWithUserProfile(m_options, factsFor(m_options.scheduleForEmail), usePMI,
                                              getRandomPassWord);
}

void vnSettingData::initAudioTypeWithUserProfile() {
  meeting_options::initAudioTypeWithUserProfile(m_options, factsFor(m_options.scheduleForEmail));
}

void vnSettingData::initWithSavedProfile() {
  const Value saved = JsonTextFile(vnCommon::getVnUserProfilePath(user().getUID())).read();
  if (saved.isAbsent()) return;
  const vnClientFeatureMgr::OneReading oneReading;
  const AccountFacts facts = accountFactsWithoutLists(user(), m_options.scheduleForEmail);
  if (meeting_options::initWithSavedProfile(m_options, facts, clientGates(), saved)) setNotShowMeAgain(true);
}

void vnSettingData::setSignInChoice(const MeetingOptions& from) {
  m_options.authId = from.authId;
  m_options.authName = from.authName;
  m_options.authType = from.authType;
  m_options.authDomain = from.authDomain;
}

void vnSettingData::initWithSiteMeetingInfo(const Value& meetingInfo) {
  // The regions of the person who stands in the meeting.
  const OptionalText email = meetingInfo[vn_Setting][vn_Setting_ScheduleFor].optionalText();
  meeting_options::initWithSiteMeetingInfo(m_options, factsFor(email), meetingInfo);
}

Value vnSettingData::getSettingsData() {
  if (!m_options.thirdPartyAudio) m_options.thirdPartyAudio = "";
  if (!m_options.scheduleForEmail) m_options.scheduleForEmail = "";
  if (m_options.requiredMeetingPassword && !m_options.meetingPassword) m_options.meetingPassword = "";
  return settingsOf(m_options, notShowMeAgain());
}

void vnSettingData::resetRequiredPasswordForEditPMIMeeting(const Value& meetingInfo) {
  meeting_options::resetRequiredPasswordForEditPMIMeeting(m_options, meetingInfo);
}

void vnSettingData::resetMeetingAuthForNotShowAgain() {
  meeting_options::resetMeetingAuthForNotShowAgain(m_options, factsFor(m_options.scheduleForEmail));
}

void vnSettingData::resetWaitingRoomPasscodeStateForNotShowAgain() {
  const vnClientFeatureMgr::OneReading oneReading;
  meeting_options::resetWaitingRoomPasscodeStateForNotShowAgain(m_options, factsFor(m_options.scheduleForEmail),
                                                                clientGates());
}

void vnSettingData::resetAffectedStateByE2eeForNotShowAgain() {
  const vnClientFeatureMgr::OneReading oneReading;
  meeting_options::resetAffectedStateByE2eeForNotShowAgain(m_options, factsFor(m_options.scheduleForEmail),
                                                           clientGates());
}

PasscodePolicy vnSettingData::passcodePolicy() {
  return {.rules = user().getMeetingPasswordRulesOption(),
          .minLength = user().getMeetingPasswordMinLength(),
          .consecutiveLength = user().getMeetingPasswordConsecutiveLength(),
          .isEnableNumberalphabet = user().isEnableNumberalphabet()};
}

bool vnSettingData::ValidateMeetingPassword(const OptionalText& password, std::int64_t& strResult) {
  strResult = accountsPasscodes().failedRules(password);
  return strResult == 0;
}

bool vnSettingData::IsPasswordConsecutiveString(const OptionalText& password, std::int64_t len, bool bIgnoreCase) {
  return accountsPasscodes().isConsecutive(password, len, bIgnoreCase);
}

bool vnSettingData::IsKeyboardConsecutive(const OptionalText& text) {
  return Passcodes::isKeyboardConsecutive(text);
}

std::string vnSettingData::getRandomPassWord() { return accountsPasscodes().getRandomPassWord(); }

std::string vnSettingData::GetNumberPassword(std::int64_t length) {
  return accountsPasscodes().GetNumberPassword(length);
}

std::string vnSettingData::GetComplexPassword(std::int64_t length, const std::string& charset) {
  return accountsPasscodes().GetComplexPassword(length, charset);
}

std::string vnSettingData::GetNumberalphabetPassword(std::int64_t length) {
  return accountsPasscodes().GetNumberalphabetPassword(length);
}

std::string vnSettingData::GetPasswordWithRules(std::int64_t length) {
  return accountsPasscodes().GetPasswordWithRules(length);
}

std::string vnSettingData::ShuffleStr(const std::string& text) { return accountsPasscodes().ShuffleStr(text); }

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
  MeetingOptions& options = m_options;
  for (OptionalText* text :
       {&options.meetingPassword, &options.roomMeetingId, &options.thirdPartyAudio, &options.scheduleForEmail,
        &options.restrictJoinDomains, &options.hash, &options.selectInvitationLanguage, &options.authId,
        &options.authName, &options.authDomain, &options.templateId, &options.templateName}) {
    text->reset();
  }
  for (Value* list : {&options.trackingFields, &options.arrAlternateHosts, &options.arrSelectedCountries,
                      &options.arrAdditionalDCRegions, &options.arrRegionCodes}) {
    *list = Value();
  }
}

}  // namespace vorn
