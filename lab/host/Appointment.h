#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/HostState.h"
#include "lab/ics/CalendarStore.h"
#include "util/Value.h"

namespace vornlab {

// What somebody has changed of an appointment and not stored; what is absent is as it was. Texts are UTF-8.
struct AppointmentChanges {
  vorn::OptionalText summary;
  vorn::OptionalText location;
  // As HTML, and whether a save stores it so, which it does unless told otherwise.
  vorn::OptionalText body;
  std::optional<bool> isBodyHtml;
  vorn::OptionalText olmUCInband;
  vorn::OptionalText olmUCCapabilities;
  std::optional<CalendarTime> start;
  std::optional<CalendarTime> end;
  std::optional<std::vector<CalendarAttendee>> attendees;
  // By whose address it is called.
  vorn::OptionalText organizer;

  // Takes over what the later ones have.
  void add(const AppointmentChanges& later);
};

// An appointment as the classes of a host stand for it, whatever they are made of: its place in a calendar, and
// what has been changed in memory since. An event of the host holds one, and so does the record of a save.
//
// It never sends. Where a plug-in may stand between two steps, the face sends the selector and then takes the next
// step here: it makes a record of withChanges(), sends that record its own selector for storing, whose method is
// write(), and tells the event by takeOver() what has come of it.
//
// Main thread only; the calendar outlives it.
class Appointment {
 public:
  // What the selector of a record answers that was stored, and to one that was not.
  static constexpr int kStored = 0;
  static constexpr int kNotStored = 1;

  // Of no calendar: it answers nothing, and nothing can be stored of it.
  Appointment() = default;
  // At that place among the calendar's events; without one it is not stored yet.
  Appointment(CalendarStore* calendar, std::optional<std::size_t> place) : m_calendar(calendar), m_place(place) {}
  // A new one of half an hour in the host's calendar, where the person has pointed at, or else at the next full or
  // half hour.
  static Appointment newOne(HostState& host);

  // The one at that place of the host's calendar, or of that UID and RECURRENCE-ID; absent when there is none.
  static std::optional<Appointment> at(const HostState& host, std::size_t place);
  static std::optional<Appointment> find(const HostState& host, std::string_view uid,
                                         std::string_view recurrenceId);

  // Absent for one that is not stored, or not any more.
  std::optional<CalendarEvent> stored() const;
  // What has been changed in memory, which the readers below answer before what is stored.
  AppointmentChanges& changes() { return m_changes; }

  vorn::OptionalText summary() const;
  vorn::OptionalText location() const;
  // As an editor shows it; an empty page for one that is not stored.
  vorn::OptionalText body() const;
  bool isBodyHtml() const;
  vorn::OptionalText olmUCInband() const;
  vorn::OptionalText olmUCCapabilities() const;
  std::optional<CalendarTime> start() const;
  std::optional<CalendarTime> end() const;
  std::vector<CalendarAttendee> attendees() const;
  vorn::OptionalText organizer() const;
  bool isMeeting() const { return !attendees().empty(); }
  // The addresses from which it can be sent, each once: that of the calendar's owner, those of the other accounts,
  // whoever has called it, and a person's choice, which may be of an account that is signed in no more. And the
  // one from which it is: that of the choice, or of whoever has called it, or else the first of them; "" for the
  // owner of a calendar without addresses.
  std::vector<std::string> senders(const HostState& host, const vorn::OptionalText& chosen) const;
  std::string sender(const HostState& host, const vorn::OptionalText& chosen) const;
  // That time in the zone of the start.
  CalendarTime timeLikeStart(double seconds) const;

  // What is read of a stored one alone; absent, false, 0 or none for another.
  vorn::OptionalText uid() const;
  bool isRecurring() const;
  bool isException() const;
  vorn::OptionalText recurrenceId() const;
  int sequence() const;
  vorn::OptionalText calendarText() const;
  // Whether nobody else has called it; so is one that is not stored.
  bool isOwnedIn(const HostState& host) const;
  // The number of its record, which it keeps when it is not stored any more, and whether there is one.
  std::int64_t recordId() const { return m_place ? static_cast<std::int64_t>(*m_place) + 1 : 0; }
  bool recordExists() const { return stored().has_value(); }

  // The series that it is or belongs to; the one that it is an exception of; and that of its own series with the
  // RECURRENCE-ID. Absent when there is none.
  std::optional<Appointment> series() const;
  std::optional<Appointment> seriesMaster() const;
  std::optional<Appointment> occurrence(std::string_view recurrenceId) const;

  // The same with these changes in memory, too.
  Appointment withChanges(const AppointmentChanges& later) const;
  // Brings what differs into the calendar and counts it as stored; a new one enters it and gets a place. False
  // when it was not stored, and then nothing is: there is no calendar, the appointment is not in it any more, or
  // one of the texts has no bytes in the file's encoding.
  bool write(HostState& host);
  // Is what the record has stored.
  void takeOver(const Appointment& record);

  // Takes it off the calendar; false when it is not there.
  bool remove();
  // Its attendees have been told: counts it as sent. A cancellation takes it off the calendar as well.
  void hasBeenSent(HostState& host, bool isCancellation);
  // The attendees are told that it is cancelled; nothing for one that is not stored.
  void cancel(HostState& host);

 private:
  template <typename Answer>
  Answer ofStored(Answer (CalendarEvent::*read)() const) const;
  std::optional<Appointment> inSameCalendar(const std::optional<CalendarEvent>& event) const;
  const std::string& storedBody(const CalendarEvent& event) const;

  CalendarStore* m_calendar = nullptr;
  std::optional<std::size_t> m_place;
  AppointmentChanges m_changes;
  // What an editor asks for again and again, with the state of the calendar's text that it was made of.
  struct StoredBody {
    std::uint64_t state;
    std::string html;
  };
  mutable std::shared_ptr<const StoredBody> m_storedBody;
};

}  // namespace vornlab
