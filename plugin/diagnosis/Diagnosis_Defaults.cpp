// The diagnosis: the settings of a new meeting, and who decided each of them.

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/MeetingOptionRules.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "diagnosis/SettingReasons.h"
#include "diagnosis/SettingWords.h"
#include "util/CoveredValue.h"

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

}  // namespace

Value Diagnosis::defaults() {
  const SettingSteps steps = stepsOfNewMeeting();
  const Value shown = covered(steps.afterSavedProfile);
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
  return Value::dictionaryFromPairs({{"hasProfile", steps.account.knowsAccount}, {"groups", report.groups()}});
}

}  // namespace vorn
