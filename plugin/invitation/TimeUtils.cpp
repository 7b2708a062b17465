#include "invitation/TimeUtils.h"

#include <limits>

#include "util/DateText.h"

namespace vorn {

namespace {

constexpr const char* kUTC = "UTC";
constexpr int kYearBase = 1900;

// False, and nothing moved, when the year cannot be held.
bool moveYears(std::tm& parts, int years) {
  const std::int64_t year = std::int64_t{parts.tm_year} + years;
  if (year < std::numeric_limits<int>::min() || year > std::numeric_limits<int>::max()) return false;
  parts.tm_year = static_cast<int>(year);
  return true;
}

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
  if (!::localtime_r(&time, &parts) || !moveYears(parts, -kYearBase)) return -1;
  const std::time_t moved = std::mktime(&parts);
  if (!::gmtime_r(&moved, &parts) || !moveYears(parts, kYearBase)) return -1;
  return std::mktime(&parts);
}

}  // namespace vorn
