// The record of a save: ECMutableCalendarEvent.

#include "lab/outlook/HostWorld.h"
#include "lab/outlook/RecordOfSave.h"

namespace vornlab {

namespace {

double secondsOf(const HostWorld& world, const Value& date) {
  return world.send(date.object(), "timeIntervalSince1970").realValue();
}

// What was changed in memory, as a save stores it.
RecordOfSave recordOf(HostWorld& world, const HostEvent& event) {
  const Value& changed = event.changed;
  const auto text = [&changed](const char* item) {
    return changed.contains(item) ? OptionalText(changed[item].text()) : std::nullopt;
  };
  RecordOfSave record;
  record.summary = text("summary");
  record.location = text("location");
  record.olmUCInband = text("olmUCInband");
  record.olmUCCapabilities = text("olmUCCapabilities");
  if (changed["body"].isText()) record.body = changed["body"].text();
  record.isBodyHtml = changed["isBodyHTML"].isAbsent() || changed["isBodyHTML"].boolValue();
  if (changed.contains("startTime") || changed.contains("endTime")) {
    record.times = RecordOfSave::Times{secondsOf(world, world.eventItem(event, "startTime")),
                                       secondsOf(world, world.eventItem(event, "endTime"))};
  }
  return record;
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

  // Answers 0 when what differs is in the calendar.
  method("ECMutableCalendarEvent", "saveRecord", [this](const HostObject& self, const Arguments&) {
    constexpr int stored = 0;
    constexpr int notStored = 1;
    const auto record = event(self);
    const bool isStored = record && storeRecord(*this, record->store, record->index, recordOf(*this, *record));
    return isStored ? stored : notStored;
  });
}

}  // namespace vornlab
