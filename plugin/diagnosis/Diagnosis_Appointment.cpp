// What this system sees in one appointment of the host.

#include <algorithm>

#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "diagnosis/RecognitionWays.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

std::string reasonOfSupport(const vnECCalendarEvent& event) {
  if (!event.isSupportedOwner()) return "somebody else organizes it";
  if (!event.isOccurrence() && !event.isModifiedException()) return "one's own appointment";
  if (event.occurrenceIsSingleVornMeeting()) return "an item of a series with a meeting of its own";
  return event.isSupportVorn() ? "an item of a series, and one of the two has no meeting"
                               : "an item of a series that shares the series' meeting";
}

// The way that has given the appointment its key; null when there is none.
const RecognitionWay* decisiveWay(const std::vector<RecognitionWay>& ways, const std::string& key) {
  if (key.empty()) return nullptr;
  const auto found = std::find_if(ways.begin(), ways.end(),
                                  [&](const RecognitionWay& way) { return way.isAsked && way.number == key; });
  return found == ways.end() ? nullptr : &*found;
}

void addMeeting(DiagnosisReport& report, const vnECCalendarEvent& event, const std::vector<RecognitionWay>& ways) {
  const std::string key = event.getVnMeetingKey();
  const RecognitionWay* way = decisiveWay(ways, key);
  report.beginGroup("meeting");
  report.add("key", "key", key, std::nullopt,
             way && way->isGuess ? OptionalText("a guess: anybody may have written it") : std::nullopt);
  report.add("keyFrom", "key from", way ? std::string(way->key) : "none",
             way ? std::string(way->words) : "none of the ways below");
  report.add("keyIsGuess", "key is a guess", way && way->isGuess);
  report.add("supported", "may have a meeting", event.isSupportVorn(), {}, reasonOfSupport(event));
}

void addRecognition(DiagnosisReport& report, const std::vector<RecognitionWay>& ways) {
  report.beginGroup("recognition");
  for (const RecognitionWay& way : ways) {
    const bool isFound = way.result == RecognitionWay::Result::found;
    std::string note = way.reason;
    if (way.isGuess) note += "; a guess";
    if (!way.isAsked) note += "; not asked";
    const Value facts = Value::dictionaryFromPairs({{"result", std::string(nameOf(way.result))},
                                                    {"key", way.number},
                                                    {"reason", way.reason},
                                                    {"asked", way.isAsked},
                                                    {"guess", way.isGuess}});
    report.add(way.key, way.words, facts, isFound ? way.number : std::string(nameOf(way.result)), note);
  }
}

void addRecord(DiagnosisReport& report, const vnECCalendarEvent& event, const std::vector<RecognitionWay>& ways) {
  report.beginGroup("record");
  const bool isInband = event.isVnOIDataFromUIInband() || event.olmUCCapabilities().text().empty();
  const Value record = vnOLUtils::toArrayOrNSDictionary(
      (isInband ? event.olmUCInband() : event.olmUCCapabilities()).optionalText());
  const RecognitionWay::Result result = ways[isInband ? 0 : 1].result;
  report.add("state", "state", result == RecognitionWay::Result::found ? "readable" : std::string(nameOf(result)));
  for (const std::string_view key :
       {vn_OLProperty_EncodeMailBody, vn_Setting_ForceIncludeJoinurlInLocation,
        vn_Setting_SelectInvitationLanguage, vn_ApptInfo_Subject, vn_ApptInfo_Duration, vn_ApptInfo_StartTime}) {
    if (record.contains(key)) report.add(key, key, record[key]);
  }
  // A join URL carries its passcode.
  report.add("hasJoinUrl", "join URL", record[vn_Meeting_JoinUrl].isText());
}

void addPlainForm(DiagnosisReport& report, const vnECCalendarEvent& event) {
  report.beginGroup("plainForm");
  const Value form = vnMeetingCommon::getLogInfo_ApptInfo(event.getVnMeetingData());
  report.add("subject", "subject",
             form[vn_ApptInfo_Subject].isAbsent() ? Value(nullptr) : form[vn_ApptInfo_Subject]);
  report.add("startUTC", "start in UTC", form[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime]);
  report.add("startLocal", "start there", form[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_LocalTime]);
  report.add("endUTC", "end in UTC", form[vn_ApptInfo_EndTime][vn_ApptInfo_CalDate_UTCTime]);
  report.add("duration", "minutes", form[vn_ApptInfo_Duration]);
  report.add("recurrence", "master of a series", form[vn_ApptInfo_Recurrence].boolValue());
  report.add("olApptUUID", "UUID",
             form[vn_ApptInfo_OlApptUUID].isAbsent() ? Value(nullptr) : form[vn_ApptInfo_OlApptUUID]);
  report.add("attendees", "attendees", static_cast<std::int64_t>(event.getVnAttendeesData().count()));
}

}  // namespace

Value Diagnosis::appointment(const Value& parameters) {
  const vnECCalendarEvent event(parameters["event"].object());
  DiagnosisReport report;
  const std::vector<RecognitionWay> ways = waysOfRecognition(event);
  addMeeting(report, event, ways);
  addRecognition(report, ways);
  addRecord(report, event, ways);
  addPlainForm(report, event);
  return Value::dictionaryFromPairs({{"groups", report.groups()}});
}

}  // namespace vorn
