#include "lab/host/Appointment.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <utility>

#include "lab/host/BodyHtml.h"
#include "util/Text.h"

namespace vornlab {

using vorn::OptionalText;

namespace {

// The UID of an appointment that enters the calendar.
std::string newUid() {
  std::random_device random;
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%04X-%08X%04X", random(), random() & 0xFFFF,
                random() & 0xFFFF, random() & 0xFFFF, random(), random() & 0xFFFF);
  return text.data();
}

OptionalText unlessEmpty(std::string text) { return text.empty() ? OptionalText() : std::move(text); }

}  // namespace

void AppointmentChanges::add(const AppointmentChanges& later) {
  const auto take = [](auto& mine, const auto& other) {
    if (other) mine = other;
  };
  take(summary, later.summary);
  take(location, later.location);
  take(body, later.body);
  take(isBodyHtml, later.isBodyHtml);
  take(olmUCInband, later.olmUCInband);
  take(olmUCCapabilities, later.olmUCCapabilities);
  take(start, later.start);
  take(end, later.end);
  take(attendees, later.attendees);
  take(organizer, later.organizer);
}

Appointment Appointment::newOne(HostState& host) {
  Appointment made(host.store, std::nullopt);
  made.m_changes.start.emplace().seconds = host.takeNewStart();
  made.m_changes.end = made.timeLikeStart(made.m_changes.start->seconds + HostState::kHalfAnHour);
  return made;
}

std::optional<Appointment> Appointment::at(const HostState& host, std::size_t place) {
  if (!host.store || place >= host.store->eventCount()) return {};
  const Appointment found(host.store, place);
  return found.recordExists() ? std::optional(found) : std::nullopt;
}

std::optional<Appointment> Appointment::find(const HostState& host, std::string_view uid,
                                             std::string_view recurrenceId) {
  const auto found = host.store ? host.store->find(uid, recurrenceId) : std::nullopt;
  return found ? std::optional(Appointment(host.store, found->index())) : std::nullopt;
}

std::optional<CalendarEvent> Appointment::stored() const {
  if (!m_calendar || !m_place) return {};
  const CalendarEvent event = m_calendar->eventAt(*m_place);
  return event.isRemoved() ? std::nullopt : std::optional(event);
}

template <typename Answer>
Answer Appointment::ofStored(Answer (CalendarEvent::*read)() const) const {
  const auto event = stored();
  return event ? ((*event).*read)() : Answer();
}

std::optional<Appointment> Appointment::inSameCalendar(const std::optional<CalendarEvent>& event) const {
  return event ? std::optional(Appointment(m_calendar, event->index())) : std::nullopt;
}

// -- What is read whether it is stored or only changed in memory -------------------------------------------------

OptionalText Appointment::summary() const {
  return m_changes.summary ? m_changes.summary : ofStored(&CalendarEvent::summary);
}

OptionalText Appointment::location() const {
  return m_changes.location ? m_changes.location : ofStored(&CalendarEvent::location);
}

OptionalText Appointment::body() const {
  if (m_changes.body) return m_changes.body;
  const auto event = stored();
  return event ? storedBody(*event) : htmlForPlainText("");
}

const std::string& Appointment::storedBody(const CalendarEvent& event) const {
  const std::uint64_t state = m_calendar->document().state();
  if (!m_storedBody || m_storedBody->state != state)
    m_storedBody = std::make_shared<const StoredBody>(StoredBody{state, shownHtml(event)});
  return m_storedBody->html;
}

bool Appointment::isBodyHtml() const {
  if (m_changes.isBodyHtml) return *m_changes.isBodyHtml;
  return ofStored(&CalendarEvent::htmlDescription) || ofStored(&CalendarEvent::htmlInDescription);
}

OptionalText Appointment::olmUCInband() const {
  return m_changes.olmUCInband ? m_changes.olmUCInband : ofStored(&CalendarEvent::olmUCInband);
}

OptionalText Appointment::olmUCCapabilities() const {
  return m_changes.olmUCCapabilities ? m_changes.olmUCCapabilities : ofStored(&CalendarEvent::olmUCCapabilities);
}

std::optional<CalendarTime> Appointment::start() const {
  return m_changes.start ? m_changes.start : ofStored(&CalendarEvent::start);
}

std::optional<CalendarTime> Appointment::end() const {
  return m_changes.end ? m_changes.end : ofStored(&CalendarEvent::end);
}

std::vector<CalendarAttendee> Appointment::attendees() const {
  return m_changes.attendees ? *m_changes.attendees : ofStored(&CalendarEvent::attendees);
}

OptionalText Appointment::organizer() const {
  return m_changes.organizer ? m_changes.organizer : unlessEmpty(ofStored(&CalendarEvent::organizerAddress));
}

std::vector<std::string> Appointment::senders(const HostState& host, const OptionalText& chosen) const {
  std::vector<std::string> all{host.options.userAddress};
  all.insert(all.end(), host.options.otherAccounts.begin(), host.options.otherAccounts.end());
  for (const OptionalText& each : {organizer(), chosen}) all.push_back(each.value_or(""));
  std::vector<std::string> result;
  for (const std::string& each : all) {
    const auto isEach = [&](const std::string& other) { return vorn::equalIgnoringCase(each, other); };
    if (!each.empty() && std::none_of(result.begin(), result.end(), isEach)) result.push_back(each);
  }
  return result;
}

std::string Appointment::sender(const HostState& host, const OptionalText& chosen) const {
  if (const OptionalText caller = chosen ? chosen : organizer()) return *caller;
  const std::vector<std::string> all = senders(host, chosen);
  return all.empty() ? "" : all.front();
}

CalendarTime Appointment::timeLikeStart(double seconds) const {
  CalendarTime time = start().value_or(CalendarTime());
  time.seconds = seconds;
  return time;
}

// -- What is read of a stored one --------------------------------------------------------------------------------

OptionalText Appointment::uid() const { return unlessEmpty(ofStored(&CalendarEvent::uid)); }

bool Appointment::isRecurring() const { return isException() || ofStored(&CalendarEvent::isRecurring); }

bool Appointment::isException() const { return ofStored(&CalendarEvent::isException); }

OptionalText Appointment::recurrenceId() const { return unlessEmpty(ofStored(&CalendarEvent::recurrenceId)); }

int Appointment::sequence() const { return ofStored(&CalendarEvent::sequence); }

OptionalText Appointment::calendarText() const {
  return unlessEmpty(ofStored(&CalendarEvent::calendarTextOfHost));
}

bool Appointment::isOwnedIn(const HostState& host) const {
  const auto event = stored();
  const auto isOf = [&](const std::string& address) { return !event->isOfSomebodyElse(address); };
  const std::vector<std::string>& others = host.options.otherAccounts;
  return !event || isOf(host.options.userAddress) || std::any_of(others.begin(), others.end(), isOf);
}

std::optional<Appointment> Appointment::series() const { return inSameCalendar(ofStored(&CalendarEvent::series)); }

std::optional<Appointment> Appointment::seriesMaster() const {
  return isException() ? inSameCalendar(ofStored(&CalendarEvent::master)) : std::nullopt;
}

std::optional<Appointment> Appointment::occurrence(std::string_view recurrenceId) const {
  const auto event = stored();
  return event ? inSameCalendar(m_calendar->find(event->uid(), recurrenceId)) : std::nullopt;
}

// -- What becomes of it ------------------------------------------------------------------------------------------

Appointment Appointment::withChanges(const AppointmentChanges& later) const {
  Appointment merged = *this;
  merged.m_changes.add(later);
  return merged;
}

bool Appointment::write(HostState& host) {
  if (!m_calendar) return false;
  std::optional<std::pair<CalendarTime, CalendarTime>> times;
  if (m_changes.start || m_changes.end) {
    // A file may give an appointment no start; what it is given here is then both.
    const CalendarTime begin = start().value_or(end().value_or(CalendarTime()));
    times = {begin, end().value_or(begin)};
  }
  const bool isNew = !m_place;
  CalendarEvent target = isNew ? m_calendar->add(newUid(), times ? times->first.seconds : 0,
                                                 times ? times->second.seconds : 0, "", host.now())
                               : m_calendar->eventAt(*m_place);
  if (target.isRemoved()) return false;
  // One that is shown already is not touched: the file may have it in another form.
  const bool isBodyNew = m_changes.body && *m_changes.body != storedBody(target);
  const bool isStored = m_calendar->change(target, [&](CalendarEvent& event) {
    if (m_changes.summary) event.setSummary(*m_changes.summary);
    if (m_changes.location) event.setLocation(*m_changes.location);
    if (isBodyNew)
      storeBody(event, *m_changes.body, m_changes.isBodyHtml.value_or(true) && !host.options.plainTextOnly);
    if (m_changes.olmUCInband) event.setOlmUCInband(*m_changes.olmUCInband);
    if (m_changes.olmUCCapabilities) event.setOlmUCCapabilities(*m_changes.olmUCCapabilities);
    if (m_changes.attendees) event.setAttendees(*m_changes.attendees);
    // Who is invited hears from whom.
    if (m_changes.attendees && isMeeting() && !organizer()) event.setOrganizer(sender(host, std::nullopt));
    if (m_changes.organizer && isMeeting()) event.setOrganizer(*m_changes.organizer);
    if (times) event.setTimes(times->first.seconds, times->second.seconds);
  });
  if (isStored) {
    m_place = target.index();
    ++host.storedCount;
  } else if (isNew) {
    target.remove();
  }
  return isStored;
}

void Appointment::takeOver(const Appointment& record) {
  m_place = record.m_place;
  m_changes = {};
}

bool Appointment::remove() {
  auto event = stored();
  if (event) event->remove();
  return event.has_value();
}

void Appointment::hasBeenSent(HostState& host, bool isCancellation) {
  ++host.sentCount;
  if (isCancellation) remove();
}

void Appointment::cancel(HostState& host) {
  if (recordExists()) hasBeenSent(host, true);
}

}  // namespace vornlab
