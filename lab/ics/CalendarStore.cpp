#include "lab/ics/CalendarStore.h"

#include <algorithm>
#include <set>

#include "util/AtomicFile.h"

namespace vornlab {

namespace {

constexpr std::string_view kEmptyCalendar =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Vorn//Laboratory//EN\r\nEND:VCALENDAR\r\n";

}  // namespace

bool CalendarStore::load(const std::string& path, IcsProblem& problem) {
  std::optional<std::string> content = vorn::readFile(path);
  if (!content) {
    problem = {0, "the file cannot be read"};
    return false;
  }
  return loadText(std::move(*content), problem);
}

bool CalendarStore::loadText(std::string text, IcsProblem& problem) {
  std::optional<IcsDocument> read = IcsDocument::parse(std::move(text), problem);
  if (!read) return false;
  m_document = std::move(*read);
  m_changed = false;
  indexEvents();
  return true;
}

bool CalendarStore::save(const std::string& path) const { return vorn::replaceFile(path, m_document.text()); }

void CalendarStore::indexEvents() {
  m_eventComponents.clear();
  m_byUid.clear();
  m_zones.clear();
  for (std::size_t component = 0; component < m_document.componentCount(); ++component) {
    const std::size_t parent = m_document.parentOf(component);
    if (m_document.componentName(component) != "VEVENT" || parent == IcsDocument::kNone) continue;
    if (m_document.componentName(parent) == "VCALENDAR") indexEvent(component);
  }
}

void CalendarStore::indexEvent(std::size_t component) {
  const std::size_t index = m_eventComponents.size();
  m_eventComponents.push_back(component);
  const CalendarEvent event = eventAt(index);
  if (m_document.property(component, "UID")) m_byUid[event.uid()][event.recurrenceId()].push_back(index);
}

std::vector<CalendarEvent> CalendarStore::events() {
  std::vector<CalendarEvent> result;
  for (std::size_t index = 0; index < m_eventComponents.size(); ++index) {
    if (!m_document.isRemoved(m_eventComponents[index])) result.push_back(eventAt(index));
  }
  return result;
}

std::optional<CalendarEvent> CalendarStore::find(std::string_view uid, std::string_view recurrenceId) {
  const auto items = m_byUid.find(uid);
  if (items == m_byUid.end()) return {};
  const auto found = items->second.find(recurrenceId);
  if (found == items->second.end()) return {};
  for (const std::size_t index : found->second) {
    if (!eventAt(index).isRemoved()) return eventAt(index);
  }
  return {};
}

std::vector<CalendarEvent> CalendarStore::exceptionsOf(std::string_view uid) {
  std::vector<CalendarEvent> result;
  const auto items = m_byUid.find(uid);
  if (items == m_byUid.end()) return result;
  for (const auto& [recurrenceId, indexes] : items->second) {
    if (recurrenceId.empty()) continue;
    for (const std::size_t index : indexes) {
      if (!eventAt(index).isRemoved()) result.push_back(eventAt(index));
    }
  }
  std::sort(result.begin(), result.end(),
            [](const CalendarEvent& a, const CalendarEvent& b) { return a.index() < b.index(); });
  return result;
}

CalendarEvent CalendarStore::add(std::string_view uid, double startSeconds, double endSeconds,
                                 std::string_view summary, double stampSeconds) {
  IcsProblem problem;
  if (m_document.componentCount() == 0) loadText(std::string(kEmptyCalendar), problem);
  std::size_t calendar = 0;
  for (std::size_t component = 0; component < m_document.componentCount(); ++component) {
    if (m_document.parentOf(component) == IcsDocument::kNone) calendar = component;
  }
  const IcsProperty utc{"DTSTART", {}, "Z"};
  const std::string start = zonesOf(calendar).written(utc, startSeconds);
  const std::string end = zonesOf(calendar).written(utc, endSeconds);
  const std::string stamp = zonesOf(calendar).written(utc, stampSeconds);
  const std::size_t added = m_document.addComponent(
      calendar, {"BEGIN:VEVENT", "UID:" + std::string(uid), "DTSTAMP:" + stamp, "DTSTART:" + start, "DTEND:" + end,
                 "SUMMARY:" + escapedText(summary), "END:VEVENT"});
  m_changed = true;
  // In the text, others may stand behind it in no calendar.
  for (std::size_t& component : m_eventComponents) component += component >= added ? 1 : 0;
  m_zones.clear();
  indexEvent(added);
  return eventAt(m_eventComponents.size() - 1);
}

bool CalendarStore::change(CalendarEvent event, const std::function<void(CalendarEvent& event)>& make) {
  const std::size_t component = m_eventComponents[event.index()];
  m_document.takeMisfit();
  IcsDocument::Changes before = m_document.changesOf(component);
  make(event);
  std::optional<IcsProblem> misfit = m_document.takeMisfit();
  if (!misfit) return true;
  m_document.restore(component, std::move(before));
  m_refusal = std::move(misfit);
  return false;
}

std::vector<IcsProblem> CalendarStore::doubts() {
  std::vector<IcsProblem> result = m_document.warnings();
  std::set<std::string> told;
  for (const CalendarEvent& event : events()) {
    if (const auto fault = event.faultOfTimes()) result.push_back(*fault);
    const auto zone = event.doubtOfZones();
    if (zone && told.insert(zone->message).second) result.push_back(*zone);
    if (const auto body = event.doubtOfBody()) result.push_back(*body);
  }
  std::stable_sort(result.begin(), result.end(),
                   [](const IcsProblem& a, const IcsProblem& b) { return a.line < b.line; });
  return result;
}

CalendarZones& CalendarStore::zonesOf(std::size_t component) {
  std::size_t calendar = component;
  while (m_document.parentOf(calendar) != IcsDocument::kNone) calendar = m_document.parentOf(calendar);
  std::unique_ptr<CalendarZones>& zones = m_zones[calendar];
  if (!zones)
    zones = std::make_unique<CalendarZones>(m_document, calendar, m_options.zone.empty() ? "UTC" : m_options.zone);
  return *zones;
}

}  // namespace vornlab
