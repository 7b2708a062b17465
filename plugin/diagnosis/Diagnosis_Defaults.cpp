// The diagnosis: the settings of a new meeting, and who decided each of them.

#include <array>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/MeetingOptionRules.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "diagnosis/SettingReasons.h"
#include "platform/TraceMask.h"

namespace vorn {

namespace {

// The steps of a new record, one by one; a passcode is drawn once.
SettingSteps stepsOfNewMeeting() {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  SettingSteps steps;
  steps.account = accountFacts(profile, std::nullopt);
  steps.client = clientGates();
  steps.savedProfile = JsonTextFile(vnCommon::getVnUserProfilePath(profile.getUID())).read();
  MeetingOptions options;
  meeting_options::resetFields(options);
  steps.reset = settingsOf(options, false);
  meeting_options::initWithUserProfileDefault(options, steps.account, vnSettingData::getRandomPassWord);
  steps.afterProfile = settingsOf(options, false);
  const bool notShowMeAgain =
      meeting_options::initWithSavedProfile(options, steps.account, steps.client, steps.savedProfile);
  steps.afterSavedProfile = settingsOf(options, notShowMeAgain);
  return steps;
}

std::string wordsOfAudio(std::int64_t option) {
  switch (option) {
    case 0: return "telephony";
    case 1: return "computer audio";
    case 2: return "telephony and computer audio";
    case 3: return "third party";
    case 10: return "telephony, the provider's first account";
    case 11: return "telephony, the provider's second account";
    case 12: return "computer audio, with a provider";
    case 13: return "both, the provider's first account";
    case 14: return "both, the provider's second account";
    default: return "no selection";
  }
}

std::string wordsOfRecording(std::int64_t type) {
  constexpr std::array<const char*, 6> kWords = {
      "off", "local", "cloud", "local, the only one", "cloud, the only one", "recording is not available"};
  return type >= 0 && type < static_cast<std::int64_t>(kWords.size()) ? kWords[type] : "unknown";
}

std::string shownSetting(std::string_view key, const Value& value) {
  const std::string number = value.stringValue();
  if (key == vn_Setting_AudioOption) return number + ", " + wordsOfAudio(value.integerValue());
  if (key == vn_Setting_EnableAutoRecordingType) return number + ", " + wordsOfRecording(value.integerValue());
  if (key == vn_Setting_AvailableDialinCountry) {
    return DiagnosisReport::textOf(value[vn_Setting_DialinCountry_SelectedCountries]);
  }
  if (key == vn_Setting_MeetingAuth) return DiagnosisReport::textOf(value[vn_Setting_MeetingAuth_AuthName]);
  if (key == vn_Setting_MeetingTemplate) {
    return DiagnosisReport::textOf(value[vn_Setting_MeetingTemplate_TemplateName]);
  }
  return DiagnosisReport::textOf(value);
}

Value withoutSecrets(const Value& settings) {
  Value covered = vnMeetingCommon::getLogInfo_VNSetting(settings);
  const std::string thirdParty = settings[vn_Setting_ThirdPartyAudio].text();
  covered.set(vn_Setting_ThirdPartyAudio, TraceMask::covered(thirdParty));
  if (settings[vn_Setting_MeetingPassword].text().empty() && settings.contains(vn_Setting_MeetingPassword)) {
    covered.set(vn_Setting_MeetingPassword, "");
  }
  if (settings[vn_Setting_AlternateHosts].count() == 0) {
    covered.set(vn_Setting_AlternateHosts, settings[vn_Setting_AlternateHosts]);
  }
  return covered;
}

}  // namespace

Value Diagnosis::defaults() {
  const SettingSteps steps = stepsOfNewMeeting();
  const Value shown = withoutSecrets(steps.afterSavedProfile);
  DiagnosisReport report;
  report.beginGroup("settings");
  for (const std::string_view key : settingKeys()) {
    const Value& value = shown[key];
    if (value.isAbsent()) continue;
    const SettingReason reason = reasonOfSetting(key, steps);
    Value facts = Value::dictionary();
    facts.set("value", value);
    facts.set("decidedBy", reason.decidedBy);
    if (!reason.accessor.empty()) facts.set("accessor", reason.accessor);
    if (!reason.lockedBy.empty()) facts.set("lockedBy", reason.lockedBy);
    facts.set("reason", reason.words);
    report.add(key, wordsOfSetting(key), facts, shownSetting(key, value), reason.words);
  }
  return Value::dictionaryFromPairs({{"hasProfile", steps.account.hasUserProfile}, {"groups", report.groups()}});
}

}  // namespace vorn
