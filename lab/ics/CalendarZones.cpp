#include "lab/ics/CalendarZones.h"

#include <libical/ical.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <set>

namespace vornlab {

namespace {

constexpr std::int64_t kDaySeconds = 86400;

// Days since 1970 of a date in the Gregorian calendar, valid for every year of four digits.
std::int64_t daysSince1970(std::int64_t year, int month, int day) {
  year -= month <= 2;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

std::int64_t wallSeconds(const icaltimetype& time) {
  const int secondsOfDay = time.hour * 3600 + time.minute * 60 + time.second;
  return daysSince1970(time.year, time.month, time.day) * kDaySeconds + secondsOfDay;
}

icaltimetype wallTime(std::int64_t seconds) {
  icaltimetype time = icaltime_null_time();
  const std::int64_t days = seconds >= 0 ? seconds / kDaySeconds : -((-seconds + kDaySeconds - 1) / kDaySeconds);
  const std::int64_t rest = seconds - days * kDaySeconds;
  const std::int64_t shifted = days + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t dayOfEra = shifted - era * 146097;
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
  time.day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
  time.month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
  time.year = static_cast<int>(yearOfEra + era * 400 + (time.month <= 2));
  time.hour = static_cast<int>(rest / 3600);
  time.minute = static_cast<int>(rest % 3600 / 60);
  time.second = static_cast<int>(rest % 60);
  return time;
}

std::optional<int> digits(std::string_view text, std::size_t at, std::size_t count) {
  if (at + count > text.size()) return {};
  int number = 0;
  const char* end = text.data() + at + count;
  const auto read = std::from_chars(text.data() + at, end, number);
  if (read.ec != std::errc() || read.ptr != end || number < 0) return {};
  return number;
}

// A date, or a date with a time, with or without Z.
std::optional<icaltimetype> timeIn(std::string_view value) {
  value = value.substr(0, value.find(','));
  while (!value.empty() && value.back() == ' ') value.remove_suffix(1);
  const auto year = digits(value, 0, 4);
  const auto month = digits(value, 4, 2);
  const auto day = digits(value, 6, 2);
  if (!year || !month || !day || *month < 1 || *month > 12 || *day < 1 || *day > 31) return {};
  icaltimetype time = icaltime_null_time();
  time.year = *year;
  time.month = *month;
  time.day = *day;
  time.is_date = value.size() == 8;
  if (time.is_date) return time;
  const auto hour = digits(value, 9, 2);
  const auto minute = digits(value, 11, 2);
  const auto second = digits(value, 13, 2);
  if ((value[8] != 'T' && value[8] != 't') || !hour || !minute || *hour > 24 || *minute > 59) return {};
  time.hour = *hour;
  time.minute = *minute;
  time.second = std::min(second.value_or(0), 59);
  return time;
}

bool endsInUtc(std::string_view value) { return !value.empty() && (value.back() == 'Z' || value.back() == 'z'); }

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

bool isKnownZone(const std::string& name) {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
  return *zone != icu::TimeZone::getUnknown();
}

// The name of the time zone database for a name that a file uses: the name itself, its last two parts (some
// producers put a prefix of their own in front), or what another system calls the zone. "" when none is known.
std::string databaseName(const std::string& tzid) {
  if (tzid.empty()) return {};
  if (isKnownZone(tzid)) return tzid;
  std::size_t slash = tzid.rfind('/');
  if (slash != std::string::npos && slash > 0) {
    slash = tzid.rfind('/', slash - 1);
    if (slash != std::string::npos && isKnownZone(tzid.substr(slash + 1))) return tzid.substr(slash + 1);
  }
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString found;
  icu::TimeZone::getIDForWindowsID(icu::UnicodeString::fromUTF8(tzid), nullptr, found, status);
  return U_SUCCESS(status) ? utf8(found) : std::string();
}

// The rules that zones are made of. Anything else in a zone's definition could keep the expansion busy for hours.
bool isZoneRule(std::string_view rule) {
  static const std::set<std::string_view> allowed{"FREQ",  "INTERVAL", "BYMONTH", "BYDAY",
                                                  "UNTIL", "COUNT",    "WKST",    "BYMONTHDAY"};
  if (rule.find("FREQ=YEARLY") == std::string_view::npos) return false;
  while (!rule.empty()) {
    const std::size_t end = std::min(rule.find(';'), rule.size());
    const std::string_view part = rule.substr(0, end);
    if (!part.empty() && !allowed.contains(part.substr(0, part.find('=')))) return false;
    rule.remove_prefix(std::min(end + 1, rule.size()));
  }
  return true;
}

}  // namespace

// A zone by the file's definition, or else by the database; without both it is UTC under the file's name.
struct CalendarZones::Zone {
  std::string name;
  std::unique_ptr<icaltimezone, void (*)(icaltimezone*)> defined{
      nullptr, [](icaltimezone* zone) { icaltimezone_free(zone, 1); }};
  std::unique_ptr<icu::TimeZone> database;

  // A time that the clock skips counts with the offset before the change, one that it shows twice as the earlier.
  // Worked out here, because the two sources of zones differ in both.
  std::int64_t offsetAtWallTime(const icaltimetype& time) const {
    const std::int64_t wall = wallSeconds(time);
    const std::int64_t before = offsetAtUtc(wall - kDaySeconds);
    const std::int64_t after = offsetAtUtc(wall + kDaySeconds);
    if (before == after || offsetAtUtc(wall - before) == before) return before;
    return offsetAtUtc(wall - after) == after ? after : before;
  }

  std::int64_t offsetAtUtc(std::int64_t seconds) const {
    if (defined) {
      icaltimetype time = wallTime(seconds);
      int isDaylight = 0;
      return icaltimezone_get_utc_offset_of_utc_time(defined.get(), &time, &isDaylight);
    }
    if (!database) return 0;
    UErrorCode status = U_ZERO_ERROR;
    int32_t raw = 0;
    int32_t saving = 0;
    database->getOffset(static_cast<double>(seconds) * 1000, false, raw, saving, status);
    return U_SUCCESS(status) ? (raw + saving) / 1000 : 0;
  }
};

std::string CalendarTime::hostZone() const {
  if (isZoneNamed) return zone;
  if (offset == 0) return "UTC";
  const int minutes = std::abs(offset) / 60;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "GMT%c%02d%02d", offset < 0 ? '-' : '+', minutes / 60, minutes % 60);
  return text.data();
}

bool CalendarZones::isKnown(const std::string& name) { return !databaseName(name).empty(); }

CalendarZones::CalendarZones(const IcsDocument& document, std::size_t calendar, std::string floatingZone)
    : m_document(document), m_calendar(calendar), m_floatingZone(std::move(floatingZone)) {
  for (const std::size_t child : m_document.childrenOf(m_calendar)) {
    if (m_document.componentName(child) != "VTIMEZONE") continue;
    if (const auto tzid = m_document.property(child, "TZID")) m_definitions.emplace(tzid->value, child);
  }
}

CalendarZones::~CalendarZones() = default;

std::size_t CalendarZones::definition(std::string_view tzid) const {
  const auto found = m_definitions.find(tzid);
  return found == m_definitions.end() ? IcsDocument::kNone : found->second;
}

CalendarZones::Zone& CalendarZones::zone(const std::string& tzid) {
  std::unique_ptr<Zone>& made = m_zones[tzid];
  if (made) return *made;
  made = std::make_unique<Zone>();
  std::string known = databaseName(tzid);
  const auto definition = m_definitions.find(tzid);
  if (definition != m_definitions.end()) {
    if (known.empty()) {
      if (const auto location = m_document.property(definition->second, "X-LIC-LOCATION")) {
        known = databaseName(location->value);
      }
    }
    made->defined.reset(definedZone(definition->second));
  }
  made->name = known.empty() ? tzid : known;
  if (!known.empty()) {
    made->database.reset(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(known)));
  }
  return *made;
}

icaltimezone* CalendarZones::definedZone(std::size_t component) const {
  std::string text = "BEGIN:VTIMEZONE\r\nTZID:zone\r\n";
  bool hasPart = false;
  for (const std::size_t part : m_document.childrenOf(component)) {
    const std::string& name = m_document.componentName(part);
    if (name != "STANDARD" && name != "DAYLIGHT") continue;
    text += "BEGIN:" + name + "\r\n";
    for (const char* wanted : {"DTSTART", "TZOFFSETFROM", "TZOFFSETTO", "RRULE", "RDATE"}) {
      for (const IcsProperty& property : m_document.properties(part, wanted)) {
        if (property.name == "RRULE" && !isZoneRule(property.value)) return nullptr;
        text += property.name + ":" + property.value + "\r\n";
      }
    }
    text += "END:" + name + "\r\n";
    hasPart = true;
  }
  text += "END:VTIMEZONE\r\n";
  if (!hasPart) return nullptr;
  icalcomponent* parsed = icalcomponent_new_from_string(text.c_str());
  if (!parsed) return nullptr;
  icaltimezone* zone = icaltimezone_new();
  if (icaltimezone_set_component(zone, parsed)) return zone;
  icalcomponent_free(parsed);
  icaltimezone_free(zone, 1);
  return nullptr;
}

CalendarZones::Zone& CalendarZones::zoneOf(const IcsProperty& property, bool isUtc) {
  if (isUtc) return zone("UTC");
  const std::string tzid = property.parameter("TZID");
  return zone(tzid.empty() ? m_floatingZone : tzid);
}

std::optional<CalendarTime> CalendarZones::read(const IcsProperty& property) {
  const std::optional<icaltimetype> time = timeIn(property.value);
  if (!time) return {};
  const bool isUtc = endsInUtc(property.value);
  const Zone& stated = zoneOf(property, isUtc);
  CalendarTime result;
  const std::int64_t offset = stated.offsetAtWallTime(*time);
  result.seconds = static_cast<double>(wallSeconds(*time) - offset);
  result.offset = static_cast<int>(offset);
  result.isZoneNamed = static_cast<bool>(stated.database);
  result.zone = stated.name;
  result.isAllDay = time->is_date;
  result.isZoneKnown = stated.defined || stated.database;
  result.isFloating = !isUtc && property.parameter("TZID").empty();
  return result;
}

std::string CalendarZones::written(const IcsProperty& property, double seconds) {
  const bool isUtc = endsInUtc(property.value);
  const auto utc = static_cast<std::int64_t>(std::floor(seconds));
  const icaltimetype time = wallTime(utc + zoneOf(property, isUtc).offsetAtUtc(utc));
  const bool isDate = property.parameter("VALUE") == "DATE" || property.value.size() == 8;
  std::array<char, 64> text{};
  if (isDate) {
    std::snprintf(text.data(), text.size(), "%04d%02d%02d", time.year, time.month, time.day);
  } else {
    std::snprintf(text.data(), text.size(), "%04d%02d%02dT%02d%02d%02d%s", time.year, time.month, time.day,
                  time.hour, time.minute, time.second, isUtc ? "Z" : "");
  }
  return text.data();
}

}  // namespace vornlab
