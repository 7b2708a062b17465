// What a person does on the calendar's surface, without an editor.

#include "lab/outlook/HostWorld.h"
#include "lab/outlook/OutlookHost.h"

namespace vornlab {

namespace {

// What the host hands along while a drag goes on; no tile and no flag of a drag exist here.
const Value kNoTile;
const Value kNoFlag;

// True when a record was stored while the selector ran.
bool storesDuring(HostWorld& world, std::string_view selector, const Arguments& arguments) {
  const int before = world.storedCount;
  world.send(world.grid.wrapper, selector, arguments);
  return world.storedCount != before;
}

}  // namespace

bool OutlookHost::drag(std::string_view uid, std::string_view recurrenceId, double newStartSeconds) {
  const HostObject event = m_world->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*m_world, "performDragFrom:to:forDate:inProgress:",
                      {kNoTile, kNoTile, m_world->makeDateFor(event, newStartSeconds), kNoFlag});
}

bool OutlookHost::resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
                         double durationSeconds) {
  const HostObject event = m_world->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(
      *m_world, "dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:",
      {event, kNoTile, m_world->makeDateFor(event, startSeconds), durationSeconds, kNoFlag, false, false});
}

bool OutlookHost::rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) {
  const HostObject event = m_world->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*m_world, "subjectChanged:forEvent:andTileView:", {subject, event, kNoTile});
}

bool OutlookHost::deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) {
  const auto stored = m_world->store ? m_world->store->find(uid, recurrenceId) : std::nullopt;
  if (!stored) return false;
  m_world->send(m_world->makeEvent(*stored), "deleteEventNow");
  return stored->isRemoved();
}

bool OutlookHost::cancelMeeting(std::string_view uid, std::string_view recurrenceId) {
  const auto stored = m_world->store ? m_world->store->find(uid, recurrenceId) : std::nullopt;
  if (!stored) return false;
  m_world->send(m_world->makeEvent(*stored),
                "cancelMeetingInWindow:", {m_world->send(m_world->mainWindowController, "window")});
  return stored->isRemoved();
}

std::vector<std::string> OutlookHost::toolbarItems() const {
  const HostObject window = m_world->send(m_world->mainWindowController, "window").object();
  const Value items = m_world->send(m_world->send(window, "toolbar").object(), "visibleItems");
  std::vector<std::string> identifiers;
  for (const Value& item : items.items()) {
    identifiers.push_back(m_world->send(item.object(), "itemIdentifier").text());
  }
  return identifiers;
}

}  // namespace vornlab
