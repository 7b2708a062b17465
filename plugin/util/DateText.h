#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Instants as text. An instant is seconds since 1970 in UTC; a text has the form "2026-01-31 23:59:59"; a zone is
// named as in the IANA database or as Windows names it. Any thread.

// The instant on the zone's clock, parts of a second cut off. Absent for an unknown zone and outside the years 1
// to 9999.
OptionalText dateText(double secondsSince1970, const std::string& zoneName);

// What a clock and a calendar of daily life show; months and days begin at 1.
struct ClockTime {
  std::int64_t year = 0;
  std::int64_t month = 0;
  std::int64_t day = 0;
  std::int64_t hour = 0;
  std::int64_t minute = 0;
  std::int64_t second = 0;
};
// The same text for it. Absent for a day or a time that does not exist, and outside the years 1 to 9999.
OptionalText dateText(const ClockTime& time);

// The instant at which the zone's clock shows the text. A time that the clock skips is read with the offset before
// the change, one that it shows twice as the earlier. Absent for an unknown zone, for any other form, and for a
// day or a time that does not exist.
std::optional<double> dateFromText(std::string_view text, const std::string& zoneName);

}  // namespace vorn
