// Dates and time zones.

#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <memory>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

// A field of the date in its own zone, as the calendar of daily life has it.
int calendarField(const CalendarTime& time, UCalendarDateFields field) {
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar calendar(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(time.zone)), status);
  if (U_FAILURE(status)) return 0;
  calendar.setTime(time.seconds * 1000, status);
  const int value = calendar.get(field, status);
  return U_SUCCESS(status) ? value : 0;
}

constexpr HostMethodOn<CalendarEvent> kOfSeries[] = {
    {"format", [](const HostCall&, CalendarEvent& series) { return Value(series.recurrence().rule); }},
    {"endType", [](const HostCall&, CalendarEvent& series) { return Value(series.recurrence().endType); }},
    {"occurrenceCount",
     [](const HostCall&, CalendarEvent& series) { return Value(series.recurrence().occurrenceCount); }},
    {"startDate", [](const HostCall& call, CalendarEvent& series) { return call.world.valueOf(series.start()); }},
    {"endDate", [](const HostCall& call,
                   CalendarEvent& series) { return call.world.valueOf(series.recurrence().lastStart); }},
};

}  // namespace

HostObject HostWorld::makeDate(const CalendarTime& time) const {
  const auto shown = std::make_shared<CalendarTime>(time);
  shown->zone = time.hostZone();
  shown->isZoneNamed = true;
  return runtime.createTemporary("OLCalendarDate", shown);
}

std::optional<CalendarTime> HostWorld::timeOf(const Value& date) const {
  const auto time = runtime.state<CalendarTime>(date.object());
  return time ? std::optional(*time) : std::nullopt;
}

HostObject HostWorld::timeZone(const std::string& name) {
  HostObject& zone = timeZones[name];
  if (!zone) zone = runtime.create("NSTimeZone", std::make_shared<std::string>(name));
  return zone;
}

void HostWorld::defineDates() {
  method("NSTimeZone", "name", [this](const HostObject& self, const Arguments&) {
    const auto name = runtime.state<std::string>(self);
    return name ? Value(*name) : Value();
  });

  runtime.defineClass("OLCalendarDate", "NSObject");
  // A method on the time that a date holds; a date that has none answers absent.
  const auto read = [this](std::string_view selector, auto body) {
    method("OLCalendarDate", selector, [this, body](const HostObject& self, const Arguments& arguments) {
      const auto time = runtime.state<CalendarTime>(self);
      return time ? Value(body(*time, arguments)) : Value();
    });
  };
  const auto secondsOf = [](const CalendarTime& time, const Arguments&) { return time.seconds; };
  read("dateUTC", secondsOf);
  read("timeIntervalSince1970", secondsOf);
  read("timeZone", [this](const CalendarTime& time, const Arguments&) { return timeZone(time.zone); });
  read("timeIntervalSinceDate:", [this](const CalendarTime& time, const Arguments& arguments) {
    const auto other = runtime.state<CalendarTime>(firstOf(arguments).object());
    return other ? Value(time.seconds - other->seconds) : Value();
  });
  read("dateByAddingTimeInterval:", [this](const CalendarTime& time, const Arguments& arguments) {
    CalendarTime moved = time;
    moved.seconds += firstOf(arguments).realValue();
    return makeDate(moved);
  });
  read("dateInDifferentTimeZone:", [this](const CalendarTime& time, const Arguments& arguments) {
    CalendarTime moved = time;
    const Value zone = firstOf(arguments);
    moved.zone = zone.isObject() ? send(zone.object(), "name").text() : zone.text();
    return makeDate(moved);
  });
  const std::pair<const char*, UCalendarDateFields> fields[] = {{"minuteOfHour", UCAL_MINUTE},
                                                                {"hourOfDay", UCAL_HOUR_OF_DAY},
                                                                {"weekday", UCAL_DAY_OF_WEEK},
                                                                {"dayOfMonth", UCAL_DAY_OF_MONTH},
                                                                {"yearOfCommonEra", UCAL_YEAR}};
  for (const auto& [selector, field] : fields) {
    read(selector,
         [field = field](const CalendarTime& time, const Arguments&) { return calendarField(time, field); });
  }
  read("monthOfYear",
       [](const CalendarTime& time, const Arguments&) { return calendarField(time, UCAL_MONTH) + 1; });

  runtime.defineClass("ECRecurrence", "NSObject");
  defineOn("ECRecurrence", kOfSeries, [this](const HostObject& self) {
    const auto held = event(self);
    return held ? held->stored() : std::nullopt;
  });
}

}  // namespace vornlab
