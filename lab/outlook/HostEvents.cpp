// Appointments as the host shows them: ECCalendarEvent and what it hands out.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

std::shared_ptr<HostEvent> stateOf(CalendarStore& store, const CalendarEvent& stored) {
  auto state = std::make_shared<HostEvent>();
  state->store = &store;
  state->index = stored.index();
  return state;
}

// -- What is read whether it is stored or only changed in memory -------------------------------------------------

struct Setter {
  const char* selector;
  const char* item;
};

constexpr const char* kItems[] = {"summary",     "location",          "body",      "isBodyHTML",
                                  "olmUCInband", "olmUCCapabilities", "startTime", "endTime"};
constexpr Setter kSetters[] = {{"setSummary:", "summary"},
                               {"setLocation:", "location"},
                               {"setBody:", "body"},
                               {"setIsBodyHTML:", "isBodyHTML"},
                               {"setOlmUCInband:", "olmUCInband"},
                               {"setOlmUCCapabilities:", "olmUCCapabilities"}};

Value isOwner(const HostCall& call) {
  const auto held = call.world.event(call.self);
  const auto stored = held ? held->stored() : std::nullopt;
  return !stored || !stored->isOfSomebodyElse(call.world.options.userAddress);
}

constexpr HostMethod kOfAnyEvent[] = {
    // The appointment on the screen is drawn anew; there is nothing to draw here.
    {"displayReadyBody", [](const HostCall&) { return Value(); }},
    {"isOwner", isOwner},
    {"isOrganizer", isOwner},
    {"account", [](const HostCall& call) { return Value(call.world.account); }},
    {"duration",
     [](const HostCall& call) {
       const HostObject end = call.world.send(call.self, "endTime").object();
       return call.world.send(end, "timeIntervalSinceDate:", {call.world.send(call.self, "startTime")});
     }},
    {"timeZone",
     [](const HostCall& call) {
       return call.world.send(call.world.send(call.self, "startTime").object(), "timeZone");
     }},
};

// -- What is read of a stored appointment ------------------------------------------------------------------------

Value orAbsent(const std::string& text) { return text.empty() ? Value() : Value(text); }

Value uid(const HostCall&, CalendarEvent& stored) { return orAbsent(stored.uid()); }
Value isException(const HostCall&, CalendarEvent& stored) { return stored.isException(); }
Value calendarText(const HostCall&, CalendarEvent& stored) { return stored.calendarText(); }

Value recurrence(const HostCall& call, CalendarEvent& stored) {
  const auto series = stored.series();
  if (!series) return HostObject();
  return call.world.runtime.createTemporary("ECRecurrence", std::make_shared<CalendarEvent>(*series));
}

Value attendeeList(const HostCall& call, CalendarEvent& stored) {
  Value list = Value::array();
  for (const CalendarAttendee& attendee : stored.attendees()) {
    list.append(call.world.runtime.createTemporary("ECCalendarEventAttendee",
                                                   std::make_shared<CalendarAttendee>(attendee)));
  }
  return list;
}

constexpr HostMethodOn<CalendarEvent> kOfStoredEvent[] = {
    {"UUID", uid},
    {"UUIDString", uid},
    {"calendarUID", uid},
    {"isRecurring",
     [](const HostCall&, CalendarEvent& stored) { return Value(stored.isRecurring() || stored.isException()); }},
    {"isOccurrence", isException},
    {"isModifiedException", isException},
    {"recurrenceId",
     [](const HostCall&, CalendarEvent& stored) {
       return stored.isException() ? Value(stored.recurrenceId()) : Value();
     }},
    {"recurrence", recurrence},
    {"seriesMasterRecord",
     [](const HostCall& call, CalendarEvent& stored) {
       const auto series = stored.isException() ? stored.master() : std::nullopt;
       return Value(series ? call.world.makeEvent(*series) : HostObject());
     }},
    {"getOccurrenceWithRecurrenceID:",
     [](const HostCall& call, CalendarEvent& stored) {
       const auto found = call.world.store->find(stored.uid(), call.first().text());
       return Value(found ? call.world.makeEvent(*found) : HostObject());
     }},
    {"sequence", [](const HostCall&, CalendarEvent& stored) { return Value(stored.sequence()); }},
    {"organizer", [](const HostCall&, CalendarEvent& stored) { return orAbsent(stored.organizerAddress()); }},
    {"iCalendarRepresentation", calendarText},
    {"exportAsICS", calendarText},
    {"attendeeList", attendeeList},
    {"isMeeting", [](const HostCall&, CalendarEvent& stored) { return Value(!stored.attendees().empty()); }},
    {"recordUID",
     [](const HostCall& call, CalendarEvent& stored) {
       return Value(call.world.runtime.createTemporary("ECRecordUID", std::make_shared<CalendarEvent>(stored)));
     }},
    {"deleteEventNow",
     [](const HostCall&, CalendarEvent& stored) {
       stored.remove();
       return Value(true);
     }},
    // The host deletes a cancelled meeting past its own deleteEventNow.
    {"cancelMeetingInWindow:",
     [](const HostCall& call, CalendarEvent& stored) {
       ++call.world.sentCount;
       stored.remove();
       return Value();
     }},
};

}  // namespace

std::optional<CalendarEvent> HostEvent::stored() const {
  if (!store || !index) return {};
  const CalendarEvent event = store->eventAt(*index);
  return event.isRemoved() ? std::nullopt : std::optional(event);
}

HostObject HostWorld::makeEvent(const CalendarEvent& stored) const {
  return runtime.createTemporary("ECCalendarEvent", stateOf(*store, stored));
}

HostObject HostWorld::makeEditorEvent(const CalendarEvent& stored) const {
  return runtime.create("ECCalendarEvent", stateOf(*store, stored));
}

Value HostWorld::eventItem(const HostEvent& event, std::string_view item) {
  if (const Value& changed = event.changed[item]; !changed.isAbsent()) return changed;
  const std::optional<CalendarEvent> stored = event.stored();
  if (!stored) return item == "body" ? Value(htmlForPlainText("")) : Value();
  if (item == "summary") return stored->summary();
  if (item == "location") return stored->location();
  if (item == "body") return shownHtml(*stored);
  if (item == "isBodyHTML") return stored->htmlDescription().has_value() || stored->descriptionIsHtml();
  if (item == "olmUCInband") return stored->olmUCInband();
  if (item == "olmUCCapabilities") return stored->olmUCCapabilities();
  const std::optional<CalendarTime> time = item == "startTime" ? stored->start()
                                           : item == "endTime" ? stored->end()
                                                               : std::nullopt;
  return time ? Value(makeDate(*time)) : Value();
}

void HostWorld::defineEvents() {
  runtime.defineClass("ECCalendarEvent", "NSObject");
  for (const std::string item : kItems) {
    method("ECCalendarEvent", item, [this, item](const HostObject& self, const Arguments&) {
      const auto held = event(self);
      return held ? eventItem(*held, item) : Value();
    });
  }
  for (const auto& [selector, item] : kSetters) {
    action("ECCalendarEvent", selector, [this, item = item](const HostObject& self, const Arguments& given) {
      const Value value = firstOf(given);
      if (const auto held = event(self)) held->changed.set(item, value.isAbsent() ? Value("") : value);
    });
  }
  define("ECCalendarEvent", kOfAnyEvent);
  // An appointment that is not stored, or not any more, answers absent.
  defineOn("ECCalendarEvent", kOfStoredEvent, [this](const HostObject& self) {
    const auto held = event(self);
    return held ? held->stored() : std::nullopt;
  });
}

void HostWorld::defineAccounts() {
  runtime.defineClass("ECCalendarEventAttendee", "NSObject");
  const auto readAttendee = [this](std::string_view selector, auto body) {
    method("ECCalendarEventAttendee", selector, [this, body](const HostObject& self, const Arguments&) {
      const auto attendee = runtime.state<CalendarAttendee>(self);
      return attendee ? Value(body(*attendee)) : Value();
    });
  };
  readAttendee("name", [](const CalendarAttendee& attendee) { return attendee.name; });
  readAttendee("emailAddress", [](const CalendarAttendee& attendee) { return attendee.emailAddress; });
  readAttendee("attendeeType", [](const CalendarAttendee& attendee) { return attendee.type; });

  runtime.defineClass("ECRecordUID", "NSObject");
  const auto readRecord = [this](std::string_view selector, auto body) {
    method("ECRecordUID", selector, [this, body](const HostObject& self, const Arguments&) {
      const auto event = runtime.state<CalendarEvent>(self);
      return event ? Value(body(*event)) : Value();
    });
  };
  readRecord("recordUID", [](const CalendarEvent& event) { return event.uid(); });
  readRecord("recordID", [](const CalendarEvent& event) { return static_cast<std::int64_t>(event.index() + 1); });
  readRecord("recordExists", [](const CalendarEvent& event) { return !event.isRemoved(); });

  runtime.defineClass("ECEmailAccount", "NSObject");
  runtime.defineClass("ECEmailAddress", "NSObject");
  const auto address = [this](const HostObject&, const Arguments&) { return options.userAddress; };
  const auto name = [this](const HostObject&, const Arguments&) { return options.userName; };
  const auto yes = [](const HostObject&, const Arguments&) { return true; };
  method("ECEmailAddress", "emailAddress", address);
  method("ECEmailAddress", "name", name);
  method("ECEmailAccount", "emailAddress", address);
  method("ECEmailAccount", "name", name);
  method("ECEmailAccount", "realName", name);
  method("ECEmailAccount", "isDefault", yes);
  method("ECEmailAccount", "isAccountConnected", yes);
  method("ECEmailAccount", "isGmailAccount", [](const HostObject&, const Arguments&) { return false; });
  method("ECEmailAccount", "shouldDisableCalendarHTMLBodyForAccount",
         [this](const HostObject&, const Arguments&) { return options.plainTextOnly; });
  account = runtime.create("ECEmailAccount");
  const HostObject from = runtime.create("ECEmailAddress");
  method("ECEmailAccount", "fromAddress", [from](const HostObject&, const Arguments&) { return from; });
}

}  // namespace vornlab
