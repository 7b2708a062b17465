#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

#include "util/Value.h"

namespace vorn {

// Dates and their texts of the form "2026-01-31 23:59:59". A date is seconds since 1970; a time zone is named as
// in util/DateText.h. A text that cannot be read gives an absent date, and that counts as 0 where a number is
// asked. Any thread.
class TimeUtils {
 public:
  using Date = std::optional<double>;

  // Reads in UTC, and in a given zone.
  static Date stringToDate(const OptionalText& text);
  static Date stringToDateWithTimezone(const OptionalText& text, const OptionalText& timeZone);

  // Reads in the zone and writes in UTC.
  static OptionalText localToGMT(const OptionalText& text, const OptionalText& timeZone);

  // Whole seconds since 1970, cut toward zero, and back.
  static std::int64_t dateToTimestamp(const Date& date);
  static Date timestampToDate(std::int64_t timestamp);
  // The same number as decimal text.
  static std::string stringToTimestamp(const OptionalText& text);
  static std::string stringToTimestampWithTimezone(const OptionalText& text, const OptionalText& timeZone);

  // A time value moved by the machine's own zone, which the given zone has no part in: it is taken apart as local
  // time, put back 1900 years earlier, taken apart as UTC and put back 1900 years later. -1 when a step fails.
  static std::time_t localToGMTWithTM(std::time_t time, const OptionalText& timeZone);
};

}  // namespace vorn
