// What this system sees in one appointment of the host.

#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

std::string sourceOfKey(const vnECCalendarEvent& event) {
  if (!event.meetingKeyFromProperty().empty()) {
    return event.isVnOIDataFromUIInband() ? "the record in olmUCInband" : "the record in olmUCCapabilities";
  }
  if (event.isOccurrence() || event.isModifiedException())
    return "none: an item of a series has its own record or nothing";
  return event.getVnMeetingKey().empty() ? "none" : "the invitation in the appointment's text";
}

std::string reasonOfSupport(const vnECCalendarEvent& event) {
  if (!event.isSupportedOwner()) return "somebody else organizes it";
  if (!event.isOccurrence() && !event.isModifiedException()) return "one's own appointment";
  if (event.occurrenceIsSingleVornMeeting()) return "an item of a series with a meeting of its own";
  return event.isSupportVorn() ? "an item of a series, and one of the two has no meeting"
                               : "an item of a series that shares the series' meeting";
}

void addRecord(DiagnosisReport& report, const vnECCalendarEvent& event) {
  report.beginGroup("record");
  const Value stored = event.getVnOIData();
  const Value record = vnOLUtils::toArrayOrNSDictionary(stored.optionalText());
  const bool isThere = stored.isText() && !stored.text().empty();
  report.add("state", "state", isThere ? record.isDictionary() ? "readable" : "not JSON" : "none");
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
  report.beginGroup("meeting");
  report.add("key", "key", event.getVnMeetingKey());
  report.add("keyFrom", "key from", sourceOfKey(event));
  report.add("supported", "may have a meeting", event.isSupportVorn(), {}, reasonOfSupport(event));
  addRecord(report, event);
  addPlainForm(report, event);
  return Value::dictionaryFromPairs({{"groups", report.groups()}});
}

}  // namespace vorn
