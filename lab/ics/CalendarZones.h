#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "lab/ics/IcsDocument.h"

struct _icaltimezone;

namespace vornlab {

// A point in time as an appointment states it.
struct CalendarTime {
  // Since 1970, UTC.
  double seconds = 0;
  // The zone that it was stated in, by the name of the time zone database where one is known; otherwise the
  // file's.
  std::string zone = "UTC";
  bool isAllDay = false;
  bool isFloating = false;
  // False when nobody knows the zone, and the time was taken as UTC.
  bool isZoneKnown = true;
  // False for a zone that only the file knows, or nobody, which a host has no name for.
  bool isZoneNamed = true;
  // Seconds east of UTC at that time.
  int offset = 0;

  // What a host calls the zone: its name, or else UTC or such as GMT+0430.
  std::string hostZone() const;
};

// The time zones that one VCALENDAR speaks of: its own VTIMEZONE, else the one of the time zone database with that
// name or with the name that another system has for it.
class CalendarZones {
 public:
  // Whether the time zone database has a zone of that name, or under the name of another system.
  static bool isKnown(const std::string& name);

  // The document outlives this and the calendar is one of its components. Floating times are taken in the zone.
  CalendarZones(const IcsDocument& document, std::size_t calendar, std::string floatingZone);
  ~CalendarZones();
  CalendarZones(const CalendarZones&) = delete;
  CalendarZones& operator=(const CalendarZones&) = delete;

  // The first date or time in the property's value; absent when it is none.
  std::optional<CalendarTime> read(const IcsProperty& property);
  // The value that states the time in the form that the property has now: a date, UTC, its zone, or floating.
  std::string written(const IcsProperty& property, double seconds);

  // The VTIMEZONE of that name in the calendar; IcsDocument::kNone when it has none.
  std::size_t definition(std::string_view tzid) const;

 private:
  struct Zone;

  Zone& zone(const std::string& tzid);
  // The zone that a VTIMEZONE defines, to be freed by the caller; null when it is not a sensible one.
  _icaltimezone* definedZone(std::size_t component) const;
  Zone& zoneOf(const IcsProperty& property, bool isUtc);

  const IcsDocument& m_document;
  std::size_t m_calendar;
  std::string m_floatingZone;
  std::map<std::string, std::unique_ptr<Zone>, std::less<>> m_zones;
  std::map<std::string, std::size_t, std::less<>> m_definitions;
};

}  // namespace vornlab
