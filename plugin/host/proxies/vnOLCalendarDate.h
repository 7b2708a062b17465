#pragma once

#include <optional>

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// A point in time of the host with its own time zone (OLCalendarDate, or OlxCalendarDate by the object's class).
class vnOLCalendarDate : public vnDelegateBase {
 public:
  explicit vnOLCalendarDate(const HostObject& delegate);

  // The host's date object, or seconds since 1970.
  Value dateUTC() const { return getOLItemID("dateUTC"); }
  // The host's time-zone object, which answers `name`.
  Value timeZone() const { return getOLItemID("timeZone"); }
  std::int64_t minuteOfHour() const { return number("minuteOfHour"); }
  std::int64_t hourOfDay() const { return number("hourOfDay"); }
  std::int64_t weekday() const { return number("weekday"); }
  std::int64_t dayOfMonth() const { return number("dayOfMonth"); }
  std::int64_t monthOfYear() const { return number("monthOfYear"); }
  std::int64_t yearOfCommonEra() const { return number("yearOfCommonEra"); }
  double timeIntervalSince1970() const { return getOLItemID("timeIntervalSince1970").realValue(); }
  // A new date of the host, a number of seconds later.
  HostObject dateByAddingTimeInterval(double seconds) const {
    return getOLItemID("dateByAddingTimeInterval:", seconds).object();
  }
  // Seconds from the other date to this one; 0 when there is no answer.
  double timeIntervalSinceDate(const HostObject& other) const {
    return getOLItemID("timeIntervalSinceDate:", other).realValue();
  }
  HostObject dateInDifferentTimeZone(const Value& timeZone) const {
    return getOLItemID("dateInDifferentTimeZone:", timeZone).object();
  }

  // The instant in seconds since 1970, from dateUTC; absent without one.
  std::optional<double> secondsUTC() const;
  // The instant as "%Y-%m-%d %H:%M:%S" in UTC; absent without a valid connection.
  OptionalText UTCTime() const;
  // The same in the date's own time zone.
  OptionalText LocalTime() const;
  // The calendar-date entry: "UTCTime", "localTime" and "timezone", ending at the first absent value.
  Value getVnMeetingData() const;

  // The same entry from three given values; without a local time it holds "UTCTime" alone.
  static Value GenerateVnCalendarDate(const OptionalText& utcTime, const OptionalText& localTime,
                                      const Value& timeZone);
};

// The name of a host's time-zone object, or of one that is a text already; absent for anything else.
OptionalText timeZoneName(const Value& timeZone);

}  // namespace vorn
