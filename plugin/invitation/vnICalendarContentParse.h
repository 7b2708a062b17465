#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "util/Value.h"

namespace vorn {

inline constexpr std::string_view tagBeginVEvent = "BEGIN:VEVENT";
inline constexpr std::string_view tagEndVEvent = "END:VEVENT";
inline constexpr std::string_view tagLocation = "LOCATION:";
inline constexpr std::string_view tagUUID = "X-ENTOURAGE_UUID:";
inline constexpr std::string_view tagDTStamp = "DTSTAMP:";
inline constexpr std::string_view tagDescription = "DESCRIPTION:";
inline constexpr std::string_view tagVornMeetingNumber = "VORNMEETINGNUMBER:";
// Declared only; nothing reads it.
inline constexpr std::string_view tagDTStart = "DTSTART;";
inline constexpr std::string_view tagInstanceType = "X-MICROSOFT-CDO-INSTTYPE:";
inline constexpr std::string_view tagOrganizer = "ORGANIZER:";

// A deliberately small line reader over an appointment's iCalendar text. It finds the event that stands for the
// whole series and answers four questions about it: the meeting number, the stamp, the place and the UUID.
//
// It is no iCalendar parser: folded lines and escapes stay as they are, apart from one case in the description.
// Every answer about an event is absent when there is none. Main thread; time is linear in the text.
class vnICalendarContentParse {
 public:
  explicit vnICalendarContentParse(const OptionalText& content) { parseEvents(content); }

  // Adds the events of a text, in their order. False when the text lacks a begin or an end tag.
  bool parseEvents(const OptionalText& content);

  // The only event, or of several the first one that is the master of a series; absent otherwise.
  OptionalText getEvent() const;
  // What follows the tag in the first line that holds it, at any place and in any case, without white space at
  // both ends; "" when no line does. Absent for an absent or empty event and for an absent tag.
  OptionalText getItemValue(const OptionalText& event, const OptionalText& itemName) const;

  OptionalText getMeetingNumberByVornKey() const { return getEventValue(tagVornMeetingNumber); }
  OptionalText getLocation() const { return getEventValue(tagLocation); }
  OptionalText getUUID() const { return getEventValue(tagUUID); }
  // The stamp's digits as a number; 0 without one.
  std::int64_t getDTStamp() const;
  // The raw description, up to the location or the organizer or the end of the event; absent without one.
  OptionalText getDescriptionWithVornInvitation() const;

  // True for an appointment that the desktop client has made just now. The difference is one of dates written as
  // digits and not of seconds, so it jumps at a full minute, and a stamp in the future always passes.
  bool isFromClientSchedule() const;
  // The number in the service's own property, or for a fresh appointment of the client the one in its invitation.
  OptionalText getMeetingNumberForClientSchedule();
  // True once the number above has come from the invitation.
  bool isGetMeetingNumberFromInvitation() const { return isMeetingNumberFromInvitation; }

  // The number behind "Meeting ID:" or in a join URL of the description: 9 to 12 digits, or absent.
  OptionalText getMeetingNumberFromDescription() const;
  OptionalText getMeetingNumberFromDescription(const OptionalText& description) const;
  // The number in the first join URL that has one on one line. A personal link ends the search.
  OptionalText parseMeetingNumberWithJoinUrlFromDescription(const OptionalText& description) const;

  // The decimal digits that the text begins with; absent for absence.
  OptionalText cutStrToFirstNotDigitNumber(const OptionalText& text) const;
  // The digits 0 to 9 of the whole text, joined and cut to a count; absent for absence.
  OptionalText findNumberFromStr(const OptionalText& text, std::size_t length) const;

 private:
  const std::string* event() const;
  OptionalText getEventValue(std::string_view tag) const;

  std::vector<std::string> arrEvents;
  bool isMeetingNumberFromInvitation = false;
};

}  // namespace vorn
