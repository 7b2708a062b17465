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
  const HostObject event = world_->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*world_, "performDragFrom:to:forDate:inProgress:",
                      {kNoTile, kNoTile, world_->makeDateFor(event, newStartSeconds), kNoFlag});
}

bool OutlookHost::resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
                         double durationSeconds) {
  const HostObject event = world_->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(
      *world_, "dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:",
      {event, kNoTile, world_->makeDateFor(event, startSeconds), durationSeconds, kNoFlag, false, false});
}

bool OutlookHost::rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) {
  const HostObject event = world_->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*world_, "subjectChanged:forEvent:andTileView:", {subject, event, kNoTile});
}

bool OutlookHost::deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) {
  const auto stored = world_->store ? world_->store->find(uid, recurrenceId) : std::nullopt;
  if (!stored) return false;
  world_->send(world_->makeEvent(*stored), "deleteEventNow");
  return stored->isRemoved();
}

bool OutlookHost::cancelMeeting(std::string_view uid, std::string_view recurrenceId) {
  const auto stored = world_->store ? world_->store->find(uid, recurrenceId) : std::nullopt;
  if (!stored) return false;
  world_->send(world_->makeEvent(*stored),
               "cancelMeetingInWindow:", {world_->send(world_->mainWindowController, "window")});
  return stored->isRemoved();
}

std::vector<std::string> OutlookHost::toolbarItems() const {
  const HostObject window = world_->send(world_->mainWindowController, "window").object();
  const Value items = world_->send(world_->send(window, "toolbar").object(), "visibleItems");
  std::vector<std::string> identifiers;
  for (const Value& item : items.items()) {
    identifiers.push_back(world_->send(item.object(), "itemIdentifier").text());
  }
  return identifiers;
}

}  // namespace vornlab
