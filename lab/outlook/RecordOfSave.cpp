#include "lab/outlook/RecordOfSave.h"

#include "lab/outlook/HostForms.h"

namespace vornlab {

bool storeRecord(HostState& host, CalendarStore* calendar, std::optional<std::size_t>& place,
                 const RecordOfSave& record) {
  if (!calendar) return false;
  if (!place) {
    const RecordOfSave::Times times = record.times.value_or(RecordOfSave::Times());
    place = calendar->add(newUid(), times.start, times.end, record.summary.value_or("")).index();
  }
  const CalendarEvent target = calendar->eventAt(*place);
  if (target.isRemoved()) return false;
  const bool isStored = calendar->change(target, [&](CalendarEvent& event) {
    if (record.summary) event.setSummary(*record.summary);
    if (record.location) event.setLocation(*record.location);
    if (record.body) storeBody(event, *record.body, record.isBodyHtml && !host.options.plainTextOnly);
    if (record.olmUCInband) event.setOlmUCInband(*record.olmUCInband);
    if (record.olmUCCapabilities) event.setOlmUCCapabilities(*record.olmUCCapabilities);
    if (record.times) event.setTimes(record.times->start, record.times->end);
  });
  if (isStored) ++host.storedCount;
  return isStored;
}

}  // namespace vornlab
