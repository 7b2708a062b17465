// The diagnosis: the account's profile as this system understands it.

#include "data/vnGetPACHelper.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "diagnosis/ProfileQuestions.h"

namespace vorn {

namespace {

const vnUserProfileHelper& account() { return vnUserProfileHelper::sharedInstance(); }

void tellDialinCountries(DiagnosisReport& report) {
  const auto countries = account().getAvailableDialinCountry();
  if (!countries) return;
  report.add("dialinCountries.all", "dial-in countries offered", countries->allCountries.size());
  report.add("dialinCountries.includeTollfree", "toll-free numbers", countries->includeTollfree);
  report.add("dialinCountries.enableShowIncludeTollfree", "toll-free numbers are offered",
             countries->enableShowIncludeTollfree);
}

void tellTelephony(DiagnosisReport& report) {
  report.add("thirdPartyAudioInfo", "third-party audio's text", account().thirdPartyAudioInfo());
  const Value accounts = account().tspAccounts();
  report.add("tspAccounts", "accounts at the provider", accounts.count());
  for (const Value& entry : accounts.items()) {
    const std::string index = entry[vn_TspAccount_Index].stringValue();
    report.add("tspAccount." + index, "account " + index, entry,
               std::to_string(entry[vn_TspAccount_TspNumbers].count()) + " numbers");
  }
  tellDialinCountries(report);
}

void tellGroups(DiagnosisReport& report) {
  for (const ProfileQuestionGroup& group : profileQuestions()) {
    report.beginGroup(group.name);
    for (const ProfileQuestion& question : group.questions) {
      report.add(question.accessor, question.words, question.ask(account()), std::nullopt,
                 std::string(question.accessor));
    }
    if (group.name == "audio") tellTelephony(report);
  }
}

// What this system knows of somebody for whom the user may schedule; the second half comes with the list of
// people.
Value factsOfPerson(const Value& person) {
  const OptionalText email = person[vn_Boss_Email].optionalText();
  const auto& list = vnGetScheduleForListHelper::sharedInstance();
  Value facts = Value::dictionary();
  facts.set("displayName", person[vn_Boss_DisplayName]);
  facts.set("email", person[vn_Boss_Email]);
  facts.set("pmiMeetingID", account().pmiMeetingIDWithScheduleForEmail(email));
  facts.set("supportPMI", account().supportPMIForOnbehalf(email));
  facts.set("isDisablePMI", account().isDisablePMIWithScheduleForEmail(email));
  facts.set("hasPolicies", list.bossesInfoWithScheduleForEmail(email).isPresent());
  facts.set("isEnableAdminTemplate", account().isEnableAdminTemplate(email));
  facts.set("isLockAdminTemplate", account().isLockAdminTemplate(email));
  facts.set("meetingTemplates", account().getMeetingTemplates(email).count());
  facts.set("isEnableAllowDenyJoinMeetingRegion", account().isEnableAllowDenyJoinMeetingRegion(email));
  facts.set("isLockAllowDenyJoinMeetingRegion", account().isLockAllowDenyJoinMeetingRegion(email));
  facts.set("regionType", account().getRegionType(email));
  facts.set("regionCodes", account().getRegionCodes(email));
  facts.set("isSupportAdditionalDc", list.isSupportAdditionalDc(email));
  return facts;
}

std::string wordsOfPerson(const Value& facts) {
  std::string words = facts["displayName"].text().empty() ? "(no name)" : facts["displayName"].text();
  const std::string number = facts["pmiMeetingID"].text();
  words += number.empty() ? ", no personal meeting ID" : ", personal meeting ID " + number;
  if (facts["isDisablePMI"].boolValue()) words += " (disabled)";
  if (facts["isEnableAllowDenyJoinMeetingRegion"].boolValue()) {
    words += facts["isLockAllowDenyJoinMeetingRegion"].boolValue() ? ", join regions limited and locked"
                                                                   : ", join regions limited";
  }
  if (facts["meetingTemplates"].integerValue() > 0) words += ", with templates";
  return words;
}

void tellPeople(DiagnosisReport& report) {
  const Value people = account().bossesInfo();
  report.beginGroup("people");
  report.add("isEnableScheduleFor", "schedules for others", account().isEnableScheduleFor());
  std::size_t number = 0;
  for (const Value& person : people.items()) {
    const Value facts = factsOfPerson(person);
    const std::string name = std::to_string(++number);
    report.add("person." + name, "person " + name, facts, wordsOfPerson(facts));
  }
}

void tellAudioConferences(DiagnosisReport& report) {
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  report.beginGroup("audioConferences");
  report.add("hasPACInfo", "the client has told them", conferences.hasPACInfo());
  report.add("isPACEnabled", "remembered as offered", conferences.isPACEnabled());
  report.add("pacCount", "conferences", conferences.pacCount());
  for (std::int64_t i = 1; i <= conferences.pacCount(); ++i) {
    Value facts = Value::dictionary();
    facts.set("meetingID", conferences.pacMeetingID(i));
    facts.set("dialInNumber", conferences.pacDialInNumber(i));
    facts.set("dedicatedNumber", conferences.dedicatedDailinNumber(i));
    facts.set("location", conferences.pacLocation(i));
    facts.set("supportHtmlInvitationMail", conferences.supportHtmlInvitationMail(i));
    report.add("conference." + std::to_string(i), "conference " + std::to_string(i), facts,
               "ID " + facts["meetingID"].text());
  }
}

}  // namespace

Value Diagnosis::account() {
  DiagnosisReport report;
  tellGroups(report);
  tellPeople(report);
  tellAudioConferences(report);
  return Value::dictionaryFromPairs(
      {{"hasProfile", vorn::account().hasUserProfile()}, {"groups", report.groups()}});
}

}  // namespace vorn
