#pragma once

#include <string>

#include "tests/road/world/RoadWorld.h"

namespace vorn {

// The lines that make an appointment a meeting of two people.
constexpr const char* kGuest = "ORGANIZER:mailto:me@vorn.example\r\nATTENDEE;CN=Ada:mailto:ada@vorn.example\r\n";

// The appointment "one" with the lines given, and a plain one, "two", on the next day.
inline std::string calendarOfTwo(const std::string& eventLines) {
  return calendarWith(eventLines +
                      "END:VEVENT\r\nBEGIN:VEVENT\r\nUID:two\r\nDTSTAMP:20261101T080000Z\r\n"
                      "DTSTART:20261124T090000Z\r\nDTEND:20261124T100000Z\r\nSUMMARY:Planning\r\n");
}

}  // namespace vorn
