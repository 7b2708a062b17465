// What a person does without saving: on the calendar's grid, and while an editor is open.

#include "lab/objc/HostClasses.h"
#include "lab/objc/ObjcLab.h"

namespace vornlab {

namespace {

ECCalendarEvent* shownEvent(CalendarStore& calendar, const CalendarEvent& event) {
  return [[[ECCalendarEvent alloc] initWithStore:&calendar
                                           index:static_cast<NSInteger>(event.index())] autorelease];
}

OLCalendarDate* dateLike(OLCalendarDate* pattern, double seconds) {
  return [[[OLCalendarDate alloc] initWithSeconds:seconds zone:[pattern timeZone]] autorelease];
}

}  // namespace

bool ObjcLab::onGrid(const CalendarEvent& event, const std::function<bool(void* grid, void* selected)>& act) {
  const Pool pool;
  OLCalendarGridViewWrapper* grid = [static_cast<ERageMainWindowController*>(mainWindowController()) grid];
  ECCalendarEvent* selected = shownEvent(calendar(), event);
  [[grid gridViewController] setSelectedEvent:selected];
  const bool done = act(grid, selected);
  [[grid gridViewController] setSelectedEvent:nil];
  return done;
}

bool ObjcLab::drag(const CalendarEvent& event, double newStart) {
  return onGrid(event, [=](void* grid, void* selected) {
    BOOL inProgress = YES;
    OLCalendarDate* start = dateLike([static_cast<ECCalendarEvent*>(selected) startTime], newStart);
    return [static_cast<OLCalendarGridViewWrapper*>(grid) performDragFrom:nil
                                                                       to:nil
                                                                  forDate:start
                                                               inProgress:&inProgress] &&
           !inProgress;
  });
}

bool ObjcLab::resize(const CalendarEvent& event, double newStart, double seconds) {
  return onGrid(event, [=](void* grid, void* selected) {
    BOOL inProgress = YES;
    ECCalendarEvent* shown = static_cast<ECCalendarEvent*>(selected);
    return [static_cast<OLCalendarGridViewWrapper*>(grid) dragResizedEvent:shown
                                                              withTileView:nil
                                                             withStartDate:dateLike([shown startTime], newStart)
                                                                  duration:seconds
                                                                inProgress:&inProgress
                                                              partialStart:NO
                                                                partialEnd:NO] &&
           !inProgress;
  });
}

bool ObjcLab::rename(const CalendarEvent& event, const std::string& subject) {
  return onGrid(event, [&](void* grid, void* selected) -> bool {
    return [static_cast<OLCalendarGridViewWrapper*>(grid) subjectChanged:foundationText(std::string_view(subject))
                                                                forEvent:static_cast<ECCalendarEvent*>(selected)
                                                             andTileView:nil];
  });
}

bool ObjcLab::deleteFromCalendar(const CalendarEvent& event) {
  const Pool pool;
  return [shownEvent(calendar(), event) deleteEventNow];
}

bool ObjcLab::findsChangesForAttendees(const CalendarEvent& event, const std::string& item) {
  const Pool pool;
  ERCalendarEventEditorWindowController* controller =
      [ERCalendarEventEditorWindowController showWindowForMeeting:shownEvent(calendar(), event)];
  ERCalendarEventEditorViewController* editor = [controller editorViewController];
  [editor->m_uncommitted setObject:@"typed" forKey:foundationText(std::string_view(item))];
  const bool found = [editor checkMeetingChangesForAttendees:[[editor->m_uncommitted description] UTF8String]];
  [controller close];
  passTime(kClearingSeconds);
  return found;
}

}  // namespace vornlab
