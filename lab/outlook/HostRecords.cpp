// The record of a save: ECMutableCalendarEvent.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

double secondsOf(const HostWorld& world, const Value& date) {
  return world.send(date.object(), "timeIntervalSince1970").realValue();
}

void storeChangedBody(CalendarEvent& stored, const HostEvent& record, const HostWorld& world) {
  const Value& body = record.changed["body"];
  const Value& saysHtml = record.changed["isBodyHTML"];
  const bool isHtml = !world.options.plainTextOnly && (saysHtml.isAbsent() || saysHtml.boolValue());
  if (body.isText()) storeBody(stored, body.text(), isHtml);
}

}  // namespace

bool HostWorld::storeChanges(HostEvent& shown, const Value& changes) {
  const auto merged = std::make_shared<HostEvent>(shown);
  for (const auto& [item, value] : changes.entries())
    merged->changed.set(item, value.isNull() ? Value("") : value);
  const HostObject record = runtime.createTemporary("ECMutableCalendarEvent", merged);
  constexpr int stored = 0;
  if (send(record, "saveRecord").integerValue() != stored) return false;
  shown.index = merged->index;
  shown.changed = Value::dictionary();
  return true;
}

void HostWorld::defineRecords() {
  runtime.defineClass("ECMutableCalendarEvent", "ECCalendarEvent");
  // The plug-in exchanges this one, and the event's own must stay out of it.
  action("ECMutableCalendarEvent", "setOlmUCInband:", [this](const HostObject& self, const Arguments& arguments) {
    const Value value = firstOf(arguments);
    if (const auto record = event(self)) record->changed.set("olmUCInband", value.isAbsent() ? Value("") : value);
  });

  // Brings what differs into the calendar; what does not differ is not touched. Answers 0 when that is done.
  method("ECMutableCalendarEvent", "saveRecord", [this](const HostObject& self, const Arguments&) {
    constexpr int stored = 0;
    constexpr int notStored = 1;
    const auto record = event(self);
    if (!record || !record->store) return notStored;
    const Value& changed = record->changed;
    if (!record->index) {
      const CalendarEvent added =
          record->store->add(newUid(), secondsOf(*this, changed["startTime"]),
                             secondsOf(*this, changed["endTime"]), changed["summary"].text());
      record->index = added.index();
    }
    CalendarEvent target = *record->stored();
    if (target.isRemoved()) return notStored;
    const bool isStored = record->store->change(target, [&](CalendarEvent& event) {
      if (changed.contains("summary")) event.setSummary(changed["summary"].text());
      if (changed.contains("location")) event.setLocation(changed["location"].text());
      storeChangedBody(event, *record, *this);
      if (changed.contains("olmUCInband")) event.setOlmUCInband(changed["olmUCInband"].text());
      if (changed.contains("olmUCCapabilities")) event.setOlmUCCapabilities(changed["olmUCCapabilities"].text());
      if (changed.contains("startTime") || changed.contains("endTime")) {
        event.setTimes(secondsOf(*this, eventItem(*record, "startTime")),
                       secondsOf(*this, eventItem(*record, "endTime")));
      }
    });
    if (!isStored) return notStored;
    ++storedCount;
    return stored;
  });
}

}  // namespace vornlab
