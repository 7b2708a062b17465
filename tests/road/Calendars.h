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

// So many appointments at the same time, "a0" and on.
inline std::string calendarOfMany(std::size_t count) {
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Example//Calendar//EN\r\n";
  for (std::size_t i = 0; i < count; ++i) {
    text += "BEGIN:VEVENT\r\nUID:a" + std::to_string(i) +
            "\r\nDTSTAMP:20261101T080000Z\r\nDTSTART:20261123T090000Z\r\nDTEND:20261123T100000Z\r\n"
            "SUMMARY:Review\r\nLOCATION:Castle\r\nDESCRIPTION:Bring the figures.\r\nEND:VEVENT\r\n";
  }
  return text + "END:VCALENDAR\r\n";
}

}  // namespace vorn
