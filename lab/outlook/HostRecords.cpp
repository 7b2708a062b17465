// The record of a save: ECMutableCalendarEvent.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

bool HostWorld::storeChanges(Appointment& shown, const AppointmentChanges& changes) {
  const auto record = std::make_shared<Appointment>(shown.withChanges(changes));
  const HostObject object = runtime.createTemporary("ECMutableCalendarEvent", record);
  if (send(object, "saveRecord").integerValue() != Appointment::kStored) return false;
  shown.takeOver(*record);
  return true;
}

void HostWorld::defineRecords() {
  constexpr HostMethodOn<Appointment> rows[] = {
      // The plug-in exchanges this one, and the event's own must stay out of it.
      {"setOlmUCInband:",
       [](const HostCall& call, Appointment& record) {
         record.changes().olmUCInband = call.first().text();
         return Value();
       }},
      {"saveRecord",
       [](const HostCall& call, Appointment& record) {
         return Value(record.write(call.world) ? Appointment::kStored : Appointment::kNotStored);
       }},
  };
  runtime.defineClass("ECMutableCalendarEvent", "ECCalendarEvent");
  defineOn("ECMutableCalendarEvent", rows, [this](const HostObject& self) { return event(self); });
}

}  // namespace vornlab
