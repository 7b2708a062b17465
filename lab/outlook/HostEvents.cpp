// Appointments as the host shows them: ECCalendarEvent and what it hands out.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

// A row's answer that the model reads, and a change of one of its texts in memory.
template <auto Read>
Value reading(const HostCall& call, Appointment& shown) {
  return call.world.valueOf((shown.*Read)());
}
template <auto Item>
Value changing(const HostCall& call, Appointment& shown) {
  shown.changes().*Item = call.first().text();
  return {};
}

Value isOwner(const HostCall& call, Appointment& shown) { return shown.isOwnedIn(call.world); }

constexpr HostMethodOn<Appointment> kOfEvent[] = {
    {"summary", reading<&Appointment::summary>},
    {"location", reading<&Appointment::location>},
    {"body", reading<&Appointment::body>},
    {"isBodyHTML", reading<&Appointment::isBodyHtml>},
    {"olmUCInband", reading<&Appointment::olmUCInband>},
    {"olmUCCapabilities", reading<&Appointment::olmUCCapabilities>},
    {"startTime", reading<&Appointment::start>},
    {"endTime", reading<&Appointment::end>},
    {"setSummary:", changing<&AppointmentChanges::summary>},
    {"setLocation:", changing<&AppointmentChanges::location>},
    {"setBody:", changing<&AppointmentChanges::body>},
    {"setOlmUCInband:", changing<&AppointmentChanges::olmUCInband>},
    {"setOlmUCCapabilities:", changing<&AppointmentChanges::olmUCCapabilities>},
    {"setIsBodyHTML:",
     [](const HostCall& call, Appointment& shown) {
       shown.changes().isBodyHtml = call.first().boolValue();
       return Value();
     }},
    {"UUID", reading<&Appointment::uid>},
    {"UUIDString", reading<&Appointment::uid>},
    {"calendarUID", reading<&Appointment::uid>},
    {"isRecurring", reading<&Appointment::isRecurring>},
    {"isOccurrence", reading<&Appointment::isException>},
    {"isModifiedException", reading<&Appointment::isException>},
    {"recurrenceId", reading<&Appointment::recurrenceId>},
    {"sequence", reading<&Appointment::sequence>},
    {"organizer", reading<&Appointment::organizer>},
    {"iCalendarRepresentation", reading<&Appointment::calendarText>},
    {"exportAsICS", reading<&Appointment::calendarText>},
    {"attendeeList", reading<&Appointment::attendees>},
    {"isMeeting", reading<&Appointment::isMeeting>},
    {"seriesMasterRecord", reading<&Appointment::seriesMaster>},
    {"isOwner", isOwner},
    {"isOrganizer", isOwner},
    {"getOccurrenceWithRecurrenceID:",
     [](const HostCall& call, Appointment& shown) {
       return call.world.valueOf(shown.occurrence(call.first().text()));
     }},
    {"recurrence",
     [](const HostCall& call, Appointment& shown) {
       const auto series = shown.series();
       if (!series) return Value(HostObject());
       return Value(call.world.runtime.createTemporary("ECRecurrence", std::make_shared<Appointment>(*series)));
     }},
    {"recordUID",
     [](const HostCall& call, Appointment& shown) {
       if (!shown.recordExists()) return Value();
       return Value(call.world.runtime.createTemporary("ECRecordUID", std::make_shared<Appointment>(shown)));
     }},
    {"deleteEventNow", [](const HostCall&, Appointment& shown) { return Value(shown.remove()); }},
    // The host deletes a cancelled meeting past its own deleteEventNow.
    {"cancelMeetingInWindow:",
     [](const HostCall& call, Appointment& shown) {
       shown.cancel(call.world);
       return Value();
     }},
    // The appointment on the screen is drawn anew; there is nothing to draw here.
    {"displayReadyBody", [](const HostCall&, Appointment&) { return Value(); }},
    {"account", [](const HostCall& call, Appointment&) { return Value(call.world.account); }},
    {"duration",
     [](const HostCall& call, Appointment&) {
       const HostObject end = call.world.send(call.self, "endTime").object();
       return call.world.send(end, "timeIntervalSinceDate:", {call.world.send(call.self, "startTime")});
     }},
    {"timeZone",
     [](const HostCall& call, Appointment&) {
       return call.world.send(call.world.send(call.self, "startTime").object(), "timeZone");
     }},
};

constexpr HostMethodOn<Appointment> kOfRecord[] = {
    {"recordUID", reading<&Appointment::uid>},
    {"recordID", reading<&Appointment::recordId>},
    {"recordExists", reading<&Appointment::recordExists>},
};

constexpr HostMethodOn<CalendarAttendee> kOfAttendee[] = {
    {"name", [](const HostCall&, CalendarAttendee& attendee) { return Value(attendee.name); }},
    {"emailAddress", [](const HostCall&, CalendarAttendee& attendee) { return Value(attendee.emailAddress); }},
    {"attendeeType", [](const HostCall&, CalendarAttendee& attendee) { return Value(attendee.type); }},
};

Value address(const HostCall& call) { return call.world.options.userAddress; }
Value name(const HostCall& call) { return call.world.options.userName; }
Value yes(const HostCall&) { return true; }

constexpr HostMethod kOfAddress[] = {{"emailAddress", address}, {"name", name}};

constexpr HostMethod kOfAccount[] = {
    {"emailAddress", address},
    {"name", name},
    {"realName", name},
    {"isDefault", yes},
    {"isAccountConnected", yes},
    {"isGmailAccount", [](const HostCall&) { return Value(false); }},
    {"shouldDisableCalendarHTMLBodyForAccount",
     [](const HostCall& call) { return Value(call.world.options.plainTextOnly); }},
};

}  // namespace

HostObject HostWorld::makeEvent(const Appointment& shown) const {
  return runtime.createTemporary("ECCalendarEvent", std::make_shared<Appointment>(shown));
}

HostObject HostWorld::makeEditorEvent(const Appointment& shown) const {
  return runtime.create("ECCalendarEvent", std::make_shared<Appointment>(shown));
}

Value HostWorld::valueOf(const std::optional<Appointment>& other) const {
  return other ? makeEvent(*other) : HostObject();
}

Value HostWorld::valueOf(const std::vector<CalendarAttendee>& attendees) const {
  Value list = Value::array();
  for (const CalendarAttendee& attendee : attendees) {
    list.append(runtime.createTemporary("ECCalendarEventAttendee", std::make_shared<CalendarAttendee>(attendee)));
  }
  return list;
}

void HostWorld::defineEvents() {
  const auto appointment = [this](const HostObject& self) { return event(self); };
  runtime.defineClass("ECCalendarEvent", "NSObject");
  defineOn("ECCalendarEvent", kOfEvent, appointment);
  runtime.defineClass("ECRecordUID", "NSObject");
  defineOn("ECRecordUID", kOfRecord, appointment);
  runtime.defineClass("ECCalendarEventAttendee", "NSObject");
  defineOn("ECCalendarEventAttendee", kOfAttendee,
           [this](const HostObject& self) { return runtime.state<CalendarAttendee>(self); });
}

void HostWorld::defineAccounts() {
  runtime.defineClass("ECEmailAccount", "NSObject");
  runtime.defineClass("ECEmailAddress", "NSObject");
  define("ECEmailAddress", kOfAddress);
  define("ECEmailAccount", kOfAccount);
  account = runtime.create("ECEmailAccount");
  const HostObject from = runtime.create("ECEmailAddress");
  method("ECEmailAccount", "fromAddress", [from](const HostObject&, const Arguments&) { return from; });
}

}  // namespace vornlab
