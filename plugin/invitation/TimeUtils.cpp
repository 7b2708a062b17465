#include "invitation/TimeUtils.h"

#include "util/DateText.h"

namespace vorn {

namespace {

constexpr const char* kUTC = "UTC";
constexpr int kYearBase = 1900;

}  // namespace

TimeUtils::Date TimeUtils::stringToDate(const OptionalText& text) { return stringToDateWithTimezone(text, kUTC); }

TimeUtils::Date TimeUtils::stringToDateWithTimezone(const OptionalText& text, const OptionalText& timeZone) {
  if (!text || !timeZone) return std::nullopt;
  return dateFromText(*text, *timeZone);
}

OptionalText TimeUtils::localToGMT(const OptionalText& text, const OptionalText& timeZone) {
  const Date date = stringToDateWithTimezone(text, timeZone);
  return date ? dateText(*date, kUTC) : std::nullopt;
}

std::int64_t TimeUtils::dateToTimestamp(const Date& date) { return Value(date.value_or(0)).integerValue(); }

TimeUtils::Date TimeUtils::timestampToDate(std::int64_t timestamp) { return static_cast<double>(timestamp); }

std::string TimeUtils::stringToTimestamp(const OptionalText& text) {
  return std::to_string(dateToTimestamp(stringToDate(text)));
}

std::string TimeUtils::stringToTimestampWithTimezone(const OptionalText& text, const OptionalText& timeZone) {
  return std::to_string(dateToTimestamp(stringToDateWithTimezone(text, timeZone)));
}

std::time_t TimeUtils::localToGMTWithTM(std::time_t time, const OptionalText&) {
  // The year that is put back is far outside the present, so the result depends on what the machine's zone was
  // then. Nothing repairs that: the year adjustments belong to the value that callers have always had.
  std::tm parts{};
  if (!::localtime_r(&time, &parts)) return -1;
  parts.tm_year -= kYearBase;
  const std::time_t moved = std::mktime(&parts);
  if (!::gmtime_r(&moved, &parts)) return -1;
  parts.tm_year += kYearBase;
  return std::mktime(&parts);
}

}  // namespace vorn
