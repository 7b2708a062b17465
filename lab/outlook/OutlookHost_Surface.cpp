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
  return storesDuring(
      *m_world, "performDragFrom:to:forDate:inProgress:",
      {kNoTile, kNoTile, m_world->makeDate(m_world->event(event)->timeLikeStart(newStartSeconds)), kNoFlag});
}

bool OutlookHost::resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
                         double durationSeconds) {
  const HostObject event = m_world->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*m_world,
                      "dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:",
                      {event, kNoTile, m_world->makeDate(m_world->event(event)->timeLikeStart(startSeconds)),
                       durationSeconds, kNoFlag, false, false});
}

bool OutlookHost::rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) {
  const HostObject event = m_world->selectInGrid(uid, recurrenceId);
  if (!event) return false;
  return storesDuring(*m_world, "subjectChanged:forEvent:andTileView:", {subject, event, kNoTile});
}

bool OutlookHost::deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) {
  const auto found = Appointment::find(*m_world, uid, recurrenceId);
  if (!found) return false;
  m_world->send(m_world->makeEvent(*found), "deleteEventNow");
  return !found->recordExists();
}

bool OutlookHost::cancelMeeting(std::string_view uid, std::string_view recurrenceId) {
  const auto found = Appointment::find(*m_world, uid, recurrenceId);
  if (!found) return false;
  m_world->send(m_world->makeEvent(*found),
                "cancelMeetingInWindow:", {m_world->send(m_world->mainWindowController, "window")});
  return !found->recordExists();
}

void OutlookHost::showMailPane() {
  m_world->ribbon.tab = HostState::kMailTab;
  m_world->send(m_world->mainWindowController, "loadMailPane");
  m_world->showRibbonTab(HostState::kMailTab);
}

void OutlookHost::showCalendarPane() {
  m_world->ribbon.tab = HostState::kCalendarTab;
  m_world->send(m_world->mainWindowController, "loadCalendarPane");
  m_world->showRibbonTab(HostState::kCalendarTab);
}

void OutlookHost::chooseRibbonTab(std::uint32_t tab) { m_world->showRibbonTab(tab); }

void OutlookHost::rebuildRibbon() {
  m_world->buildRibbon();
  m_world->showRibbonTab(m_world->ribbon.tab);
}

OutlookHost::Control OutlookHost::ribbonControl(const ControlName& name) const {
  return m_world->look(m_world->controlNamed(m_world->ribbon.view, name));
}

bool OutlookHost::clickRibbon(const ControlName& name) {
  return m_world->press(m_world->controlNamed(m_world->ribbon.view, name), name);
}

OutlookHost::Control OutlookHost::toolbarControl(const ControlName& name) const {
  return m_world->look(m_world->toolbarControl(name));
}

bool OutlookHost::clickToolbar(const ControlName& name) {
  return m_world->press(m_world->toolbarControl(name), name);
}

bool OutlookHost::addToolbarItem(std::string_view identifier) {
  const HostObject window = m_world->send(m_world->mainWindowController, "window").object();
  const HostObject toolbar = m_world->send(window, "toolbar").object();
  const std::size_t count = toolbarItems().size();
  m_world->send(toolbar, "insertItemWithItemIdentifier:atIndex:", {identifier, static_cast<std::int64_t>(count)});
  return toolbarItems().size() > count;
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
