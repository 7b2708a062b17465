#include "util/DateText.h"

#include <unicode/basictz.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <unordered_map>

namespace vorn {

namespace {

constexpr std::size_t kMaxKeptZones = 64;
constexpr double kMillisecondsInSecond = 1000;
constexpr std::int64_t kSecondsInDay = 86400;

using Zone = std::shared_ptr<const icu::BasicTimeZone>;

Zone zoneWithIdentifier(const icu::UnicodeString& identifier) {
  const std::shared_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone(identifier));
  if (!made || *made == icu::TimeZone::getUnknown()) return nullptr;
  return std::dynamic_pointer_cast<icu::BasicTimeZone>(made);
}

Zone makeZone(const std::string& name) {
  const auto isPlain = [](unsigned char c) { return c >= 0x20 && c < 0x7F; };
  if (!std::all_of(name.begin(), name.end(), isPlain)) return nullptr;
  const auto given = icu::UnicodeString::fromUTF8(name);
  if (Zone zone = zoneWithIdentifier(given)) return zone;
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString identifier;
  icu::TimeZone::getIDForWindowsID(given, nullptr, identifier, status);
  if (U_FAILURE(status) || identifier.isEmpty()) return nullptr;
  return zoneWithIdentifier(identifier);
}

// Making a zone reads its rules from the library's data, which costs far more than a conversion.
Zone zoneNamed(const std::string& name) {
  thread_local std::unordered_map<std::string, Zone> kept;
  const auto found = kept.find(name);
  if (found != kept.end()) return found->second;
  if (kept.size() >= kMaxKeptZones) kept.clear();
  return kept.emplace(name, makeZone(name)).first->second;
}

std::optional<double> wholeSeconds(std::int32_t rawOffset, std::int32_t savings, UErrorCode status) {
  if (U_FAILURE(status)) return std::nullopt;
  return (rawOffset + savings) / kMillisecondsInSecond;
}

std::optional<double> offsetAt(const icu::BasicTimeZone& zone, double seconds) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t rawOffset = 0;
  std::int32_t savings = 0;
  zone.getOffset(seconds * kMillisecondsInSecond, false, rawOffset, savings, status);
  return wholeSeconds(rawOffset, savings, status);
}

std::optional<double> offsetAtLocal(const icu::BasicTimeZone& zone, double localSeconds) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t rawOffset = 0;
  std::int32_t savings = 0;
  zone.getOffsetFromLocal(localSeconds * kMillisecondsInSecond, UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_FORMER,
                          rawOffset, savings, status);
  return wholeSeconds(rawOffset, savings, status);
}

constexpr std::string_view kForm = "dddd-dd-dd dd:dd:dd";

bool hasForm(std::string_view text) {
  if (text.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == 'd' ? !isDigit : text[i] != kForm[i]) return false;
  }
  return true;
}

int numberAt(std::string_view text, std::size_t position, std::size_t digits) {
  int number = 0;
  for (const char c : text.substr(position, digits)) number = number * 10 + (c - '0');
  return number;
}

}  // namespace

OptionalText dateText(double secondsSince1970, const std::string& zoneName) {
  constexpr double reach = 1e12;
  const Zone zone = zoneNamed(zoneName);
  if (!zone || !(std::fabs(secondsSince1970) < reach)) return std::nullopt;
  const double whole = std::floor(secondsSince1970);
  const std::optional<double> offset = offsetAt(*zone, whole);
  if (!offset) return std::nullopt;
  const auto local = static_cast<std::int64_t>(std::floor(whole + *offset));
  const std::int64_t second = ((local % kSecondsInDay) + kSecondsInDay) % kSecondsInDay;
  const std::chrono::sys_days day(std::chrono::days((local - second) / kSecondsInDay));
  const std::chrono::year_month_day date(day);
  return dateText({.year = static_cast<int>(date.year()),
                   .month = static_cast<unsigned>(date.month()),
                   .day = static_cast<unsigned>(date.day()),
                   .hour = second / 3600,
                   .minute = second / 60 % 60,
                   .second = second % 60});
}

OptionalText dateText(const ClockTime& time) {
  const auto isWithin = [](std::int64_t value, std::int64_t first, std::int64_t last) {
    return value >= first && value <= last;
  };
  if (!isWithin(time.year, 1, 9999) || !isWithin(time.month, 1, 12) || !isWithin(time.day, 1, 31) ||
      !isWithin(time.hour, 0, 23) || !isWithin(time.minute, 0, 59) || !isWithin(time.second, 0, 59))
    return std::nullopt;
  const auto year = static_cast<int>(time.year);
  const auto month = static_cast<unsigned>(time.month);
  const auto day = static_cast<unsigned>(time.day);
  if (!std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)).ok())
    return std::nullopt;
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", year, month, day,
                static_cast<int>(time.hour), static_cast<int>(time.minute), static_cast<int>(time.second));
  return text.data();
}

std::optional<double> dateFromText(std::string_view text, const std::string& zoneName) {
  const Zone zone = zoneNamed(zoneName);
  if (!zone || !hasForm(text)) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(numberAt(text, 0, 4)),
                                         std::chrono::month(static_cast<unsigned>(numberAt(text, 5, 2))),
                                         std::chrono::day(static_cast<unsigned>(numberAt(text, 8, 2))));
  const std::int64_t hour = numberAt(text, 11, 2);
  const std::int64_t minute = numberAt(text, 14, 2);
  const std::int64_t second = numberAt(text, 17, 2);
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  const auto local = static_cast<double>(days * kSecondsInDay + hour * 3600 + minute * 60 + second);
  const std::optional<double> offset = offsetAtLocal(*zone, local);
  if (!offset) return std::nullopt;
  return local - *offset;
}

}  // namespace vorn
