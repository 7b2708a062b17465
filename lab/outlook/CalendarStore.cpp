#include "lab/outlook/CalendarStore.h"

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
  document_ = std::move(*read);
  changed_ = false;
  indexEvents();
  return true;
}

bool CalendarStore::save(const std::string& path) const { return vorn::replaceFile(path, document_.text()); }

void CalendarStore::indexEvents() {
  eventComponents_.clear();
  byUid_.clear();
  zones_.clear();
  for (std::size_t component = 0; component < document_.componentCount(); ++component) {
    const std::size_t parent = document_.parentOf(component);
    if (document_.componentName(component) != "VEVENT" || parent == IcsDocument::kNone) continue;
    if (document_.componentName(parent) != "VCALENDAR") continue;
    const std::size_t index = eventComponents_.size();
    eventComponents_.push_back(component);
    if (const auto uid = document_.property(component, "UID")) byUid_[uid->value].push_back(index);
  }
}

std::vector<CalendarEvent> CalendarStore::events() {
  std::vector<CalendarEvent> result;
  for (std::size_t index = 0; index < eventComponents_.size(); ++index) {
    if (!document_.isRemoved(eventComponents_[index])) result.push_back(eventAt(index));
  }
  return result;
}

std::optional<CalendarEvent> CalendarStore::find(std::string_view uid, std::string_view recurrenceId) {
  const auto found = byUid_.find(uid);
  if (found == byUid_.end()) return {};
  for (const std::size_t index : found->second) {
    const CalendarEvent event = eventAt(index);
    if (!event.isRemoved() && event.recurrenceId() == recurrenceId) return event;
  }
  return {};
}

std::vector<CalendarEvent> CalendarStore::exceptionsOf(std::string_view uid) {
  std::vector<CalendarEvent> result;
  const auto found = byUid_.find(uid);
  if (found == byUid_.end()) return result;
  for (const std::size_t index : found->second) {
    const CalendarEvent event = eventAt(index);
    if (!event.isRemoved() && event.isException()) result.push_back(event);
  }
  return result;
}

CalendarEvent CalendarStore::add(std::string_view uid, double startSeconds, double endSeconds,
                                 std::string_view summary) {
  IcsProblem problem;
  if (document_.componentCount() == 0) loadText(std::string(kEmptyCalendar), problem);
  std::size_t calendar = 0;
  for (std::size_t component = 0; component < document_.componentCount(); ++component) {
    if (document_.parentOf(component) == IcsDocument::kNone) calendar = component;
  }
  const IcsProperty utc{"DTSTART", {}, "Z"};
  const std::string start = zonesOf(calendar).written(utc, startSeconds);
  const std::string end = zonesOf(calendar).written(utc, endSeconds);
  document_.addComponent(
      calendar, {"BEGIN:VEVENT", "UID:" + std::string(uid), "DTSTAMP:" + start, "DTSTART:" + start, "DTEND:" + end,
                 "SUMMARY:" + escapedText(summary), "END:VEVENT"});
  changed_ = true;
  indexEvents();
  return eventAt(eventComponents_.size() - 1);
}

CalendarZones& CalendarStore::zonesOf(std::size_t component) {
  std::size_t calendar = component;
  while (document_.parentOf(calendar) != IcsDocument::kNone) calendar = document_.parentOf(calendar);
  std::unique_ptr<CalendarZones>& zones = zones_[calendar];
  if (!zones) zones = std::make_unique<CalendarZones>(document_, calendar, options_.zone);
  return *zones;
}

}  // namespace vornlab
