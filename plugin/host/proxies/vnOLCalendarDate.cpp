#include "host/proxies/vnOLCalendarDate.h"

#include "host/proxies/vnApptInfoKeys.h"
#include "util/DateText.h"

namespace vorn {

namespace {

std::string_view calendarDateClass(const HostObject& object) {
  return isKindOfHostClass(object, "OlxCalendarDate") ? "OlxCalendarDate" : "OLCalendarDate";
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

OptionalText vnOLCalendarDate::LocalTime() const {
  const std::optional<double> seconds = secondsUTC();
  const OptionalText zone = timeZoneName(timeZone());
  if (!seconds || !zone) return {};
  return dateText(*seconds, *zone);
}

Value vnOLCalendarDate::getVnMeetingData() const {
  return GenerateVnCalendarDate(UTCTime(), LocalTime(), timeZone());
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
