#include "host/proxies/vnOLCalendarDate.h"

#include "host/proxies/vnApptInfoKeys.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "util/DateText.h"

namespace vorn {

namespace {

std::string_view calendarDateClass(const HostObject& object) {
  return isKindOfHostClass(object, "OlxCalendarDate") ? "OlxCalendarDate" : "OLCalendarDate";
}

// The zone is asked for its name much later, when the date that it belongs to may be gone.
Value kept(const Value& zone) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  return runtime && zone.isObject() ? Value(runtime->retained(zone.object())) : zone;
}

}  // namespace

vnOLCalendarDate::vnOLCalendarDate(const HostObject& delegate)
    : vnDelegateBase(calendarDateClass(delegate), delegate) {}

std::optional<double> vnOLCalendarDate::secondsUTC() const {
  const Value date = dateUTC();
  const Value seconds = date.isObject() ? askHost(date.object(), "timeIntervalSince1970") : date;
  if (!seconds.isNumber()) return {};
  return seconds.realValue();
}

OptionalText vnOLCalendarDate::UTCTime() const {
  const std::optional<double> seconds = secondsUTC();
  if (!seconds) return {};
  return dateText(*seconds, "UTC");
}

// Outlook has names of its own for zones, such as "(UTC+01:00) Amsterdam, Berlin", and what a person has called
// one. With these the entry still has to go on to the zone, or the service would get a meeting without any: then
// the host's own calendar tells the time, and if it can't, the time stands there in UTC.
OptionalText vnOLCalendarDate::LocalTime() const {
  const std::optional<double> seconds = secondsUTC();
  const OptionalText zone = timeZoneName(timeZone());
  if (!seconds || isEmpty(zone)) return {};
  if (OptionalText known = dateText(*seconds, *zone)) return known;
  const OptionalText told = dateText({.year = yearOfCommonEra(),
                                      .month = monthOfYear(),
                                      .day = dayOfMonth(),
                                      .hour = hourOfDay(),
                                      .minute = minuteOfHour()});
  return told ? told : UTCTime();
}

Value vnOLCalendarDate::getVnMeetingData() const {
  return GenerateVnCalendarDate(UTCTime(), LocalTime(), kept(timeZone()));
}

Value vnOLCalendarDate::GenerateVnCalendarDate(const OptionalText& utcTime, const OptionalText& localTime,
                                               const Value& timeZone) {
  return Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, utcTime},
                                     {vn_ApptInfo_CalDate_LocalTime, localTime},
                                     {vn_ApptInfo_Timezone, timeZone}});
}

OptionalText timeZoneName(const Value& timeZone) {
  if (timeZone.isText()) return timeZone.optionalText();
  return askHost(timeZone.object(), "name").optionalText();
}

}  // namespace vorn
