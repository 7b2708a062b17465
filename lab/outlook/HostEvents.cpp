// Appointments as the host shows them: ECCalendarEvent and what it hands out.

#include <algorithm>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

std::shared_ptr<HostEvent> stateOf(CalendarStore& store, const CalendarEvent& stored) {
  auto state = std::make_shared<HostEvent>();
  state->store = &store;
  state->index = stored.index();
  return state;
}

}  // namespace

std::string htmlForPlainText(std::string_view text) {
  std::string body;
  body.reserve(text.size() + text.size() / 8);
  bool afterBlank = true;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    switch (c) {
      case '&': body += "&amp;"; break;
      case '<': body += "&lt;"; break;
      case '>': body += "&gt;"; break;
      case '\r': break;
      case '\n': body += "<br>\n"; break;
      // HTML shows a run of blanks as one, and none at the start of a line.
      case ' ': body += afterBlank ? "&nbsp;" : " "; break;
      default: body += c;
    }
    afterBlank = c == ' ' || c == '\n';
  }
  return "<html><head><meta charset=\"utf-8\"></head><body>" + body + "</body></html>";
}

std::string shownHtml(const CalendarEvent& event) {
  if (const OptionalText html = event.htmlDescription()) return *html;
  const std::string description = event.description().value_or("");
  return event.descriptionIsHtml() ? description : htmlForPlainText(description);
}

std::optional<CalendarEvent> HostEvent::stored() const {
  if (!store || !index) return {};
  return store->eventAt(*index);
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

  for (const std::string item :
       {"summary", "location", "body", "isBodyHTML", "olmUCInband", "olmUCCapabilities", "startTime", "endTime"}) {
    method("ECCalendarEvent", item, [this, item](const HostObject& self, const Arguments&) {
      const auto held = event(self);
      return held ? eventItem(*held, item) : Value();
    });
  }
  const std::pair<const char*, const char*> setters[] = {{"setSummary:", "summary"},
                                                         {"setLocation:", "location"},
                                                         {"setBody:", "body"},
                                                         {"setIsBodyHTML:", "isBodyHTML"},
                                                         {"setOlmUCInband:", "olmUCInband"},
                                                         {"setOlmUCCapabilities:", "olmUCCapabilities"}};
  for (const auto& [selector, item] : setters) {
    action("ECCalendarEvent", selector,
           [this, item = std::string(item)](const HostObject& self, const Arguments& given) {
             const Value value = firstOf(given);
             if (const auto held = event(self)) held->changed.set(item, value.isAbsent() ? Value("") : value);
           });
  }
  // The appointment on the screen is drawn anew; there is nothing to draw here.
  action("ECCalendarEvent", "displayReadyBody", [](const HostObject&, const Arguments&) {});

  // A reader of what is stored; an appointment that is not stored yet answers absent.
  const auto read = [this](std::string_view selector, auto body) {
    method("ECCalendarEvent", selector, [this, body](const HostObject& self, const Arguments& arguments) {
      const auto held = event(self);
      const auto stored = held ? held->stored() : std::nullopt;
      return stored && !stored->isRemoved() ? Value(body(*stored, arguments)) : Value();
    });
  };
  const auto uid = [](const CalendarEvent& stored, const Arguments&) {
    const std::string text = stored.uid();
    return text.empty() ? Value() : Value(text);
  };
  for (const char* selector : {"UUID", "UUIDString", "calendarUID"}) read(selector, uid);
  read("isRecurring",
       [](const CalendarEvent& stored, const Arguments&) { return stored.isRecurring() || stored.isException(); });
  const auto isException = [](const CalendarEvent& stored, const Arguments&) { return stored.isException(); };
  read("isOccurrence", isException);
  read("isModifiedException", isException);
  read("recurrenceId", [](const CalendarEvent& stored, const Arguments&) {
    return stored.isException() ? Value(stored.recurrenceId()) : Value();
  });
  read("recurrence", [this](const CalendarEvent& stored, const Arguments&) {
    const auto series = stored.isException() ? stored.master() : stored;
    if (!series || !series->isRecurring()) return HostObject();
    return runtime.createTemporary("ECRecurrence", std::make_shared<CalendarEvent>(*series));
  });
  read("seriesMasterRecord", [this](const CalendarEvent& stored, const Arguments&) {
    const auto series = stored.isException() ? stored.master() : std::nullopt;
    return series ? makeEvent(*series) : HostObject();
  });
  read("getOccurrenceWithRecurrenceID:", [this](const CalendarEvent& stored, const Arguments& arguments) {
    const auto found = store->find(stored.uid(), firstOf(arguments).text());
    return found ? makeEvent(*found) : HostObject();
  });
  read("sequence", [](const CalendarEvent& stored, const Arguments&) { return stored.sequence(); });
  read("organizer", [](const CalendarEvent& stored, const Arguments&) {
    const std::string address = stored.organizerAddress();
    return address.empty() ? Value() : Value(address);
  });
  const auto calendarText = [](const CalendarEvent& stored, const Arguments&) { return stored.calendarText(); };
  read("iCalendarRepresentation", calendarText);
  read("exportAsICS", calendarText);
  read("attendeeList", [this](const CalendarEvent& stored, const Arguments&) {
    Value list = Value::array();
    for (const CalendarAttendee& attendee : stored.attendees()) {
      list.append(
          runtime.createTemporary("ECCalendarEventAttendee", std::make_shared<CalendarAttendee>(attendee)));
    }
    return list;
  });
  read("isMeeting", [](const CalendarEvent& stored, const Arguments&) { return !stored.attendees().empty(); });
  read("recordUID", [this](const CalendarEvent& stored, const Arguments&) {
    return runtime.createTemporary("ECRecordUID", std::make_shared<CalendarEvent>(stored));
  });
  read("deleteEventNow", [](CalendarEvent stored, const Arguments&) {
    stored.remove();
    return true;
  });
  // The host deletes a cancelled meeting past its own deleteEventNow.
  read("cancelMeetingInWindow:", [this](CalendarEvent stored, const Arguments&) {
    ++sentCount;
    stored.remove();
    return Value();
  });

  const auto isOwner = [this](const HostObject& self, const Arguments&) {
    const auto held = event(self);
    const auto stored = held ? held->stored() : std::nullopt;
    const std::string organizer = stored ? stored->organizerAddress() : std::string();
    return options.userAddress.empty() || organizer.empty() || equalIgnoringCase(organizer, options.userAddress);
  };
  method("ECCalendarEvent", "isOwner", isOwner);
  method("ECCalendarEvent", "isOrganizer", isOwner);
  method("ECCalendarEvent", "account", [this](const HostObject&, const Arguments&) { return account; });
  method("ECCalendarEvent", "duration", [this](const HostObject& self, const Arguments&) {
    return send(send(self, "endTime").object(), "timeIntervalSinceDate:", {send(self, "startTime")});
  });
  method("ECCalendarEvent", "timeZone", [this](const HostObject& self, const Arguments&) {
    return send(send(self, "startTime").object(), "timeZone");
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
