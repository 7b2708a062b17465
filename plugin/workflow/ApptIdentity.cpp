#include "workflow/ApptIdentity.h"

#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"

namespace vorn {

HostObject shownAppointment(MeetingBar& bar) {
  return vnERCalendarEventEditorViewController(bar.editorViewController()).content();
}

bool isStoredAppointment(const HostObject& event) { return !vnECCalendarEvent(event).UUID().value_or("").empty(); }

bool isSameAppointment(const HostObject& one, const HostObject& other) {
  if (one && one == other) return true;
  const vnECCalendarEvent first(one);
  const vnECCalendarEvent second(other);
  const OptionalText uuid = first.UUID();
  if (uuid.value_or("").empty() || uuid != second.UUID()) return false;
  // The items of a series share a UUID, so their records or their places in the series have to tell them apart.
  const Value firstId = first.recordID();
  const Value secondId = second.recordID();
  if (firstId.isPresent() && secondId.isPresent()) return firstId == secondId;
  return first.recurrenceId() == second.recurrenceId();
}

}  // namespace vorn
