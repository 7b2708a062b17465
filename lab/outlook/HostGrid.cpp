// The calendar's grid: OLCalendarGridViewWrapper, and the CCGridViewController with its selection.

#include "lab/outlook/HostWorld.h"

namespace vornlab {

HostObject HostWorld::selectInGrid(std::string_view uid, std::string_view recurrenceId) {
  const auto found = grid.wrapper ? Appointment::find(*this, uid, recurrenceId) : std::nullopt;
  grid.selectedEvent = found ? makeEvent(*found) : HostObject();
  return grid.selectedEvent;
}

void HostWorld::defineGrid() {
  runtime.defineClass("CCGridViewController", "NSViewController");
  method("CCGridViewController", "view", [this](const HostObject&, const Arguments&) { return grid.view; });
  method("CCGridViewController", "selectedEvent",
         [this](const HostObject&, const Arguments&) { return grid.selectedEvent; });

  runtime.defineClass("OLCalendarGridViewWrapper", "NSObject");
  method("OLCalendarGridViewWrapper", "gridViewController",
         [this](const HostObject&, const Arguments&) { return grid.controller; });
  // A drag, a resize and a new title on the selected event. Each answers whether it has been done.
  const auto onSelection = [this](std::string_view selector, auto changesOf) {
    method("OLCalendarGridViewWrapper", selector,
           [this, changesOf](const HostObject&, const Arguments& arguments) {
             const HostObject selected = grid.selectedEvent;
             const auto shown = event(selected);
             return shown && storeChanges(*shown, changesOf(selected, arguments));
           });
  };
  const auto times = [this](const Value& start, const Value& seconds) {
    AppointmentChanges changes;
    changes.start = timeOf(start);
    changes.end = timeOf(send(start.object(), "dateByAddingTimeInterval:", {seconds}));
    return changes;
  };
  onSelection("performDragFrom:to:forDate:inProgress:",
              [this, times](const HostObject& selected, const Arguments& arguments) {
                return times(argumentAt(arguments, 2), send(selected, "duration"));
              });
  onSelection("dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:",
              [times](const HostObject&, const Arguments& arguments) {
                return times(argumentAt(arguments, 2), argumentAt(arguments, 3));
              });
  onSelection("subjectChanged:forEvent:andTileView:", [](const HostObject&, const Arguments& arguments) {
    AppointmentChanges changes;
    changes.summary = firstOf(arguments).text();
    return changes;
  });
}

}  // namespace vornlab
