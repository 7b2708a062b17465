#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lab/ics/CalendarZones.h"
#include "lab/ics/IcsDocument.h"
#include "util/Value.h"

namespace vornlab {

class CalendarStore;
class ProducerQuirks;

struct CalendarAttendee {
  std::string name;
  std::string emailAddress;
  // 0 required, 1 optional, 2 a room or a resource.
  int type = 0;

  bool operator==(const CalendarAttendee&) const = default;
};

struct CalendarRecurrence {
  // The value of RRULE as it stands; "" when there are only single dates.
  std::string rule;
  // 0 without an end, 1 after a number of occurrences, 2 at a date.
  int endType = 0;
  // The number of COUNT, or the occurrences up to UNTIL as far as they were counted (a thousand at most).
  int occurrenceCount = 0;
  // The start of the last occurrence; absent without an end, and when there are more than a thousand occurrences.
  std::optional<CalendarTime> lastStart;
};

// One VEVENT of a store: a light handle that stays good as long as the store.
//
// Texts are unescaped UTF-8; bytes that are none show as the replacement character. An absent text is a property
// that the file does not have. A setter that gives what is there already changes nothing.
class CalendarEvent {
 public:
  CalendarEvent(CalendarStore& store, std::size_t index) : m_store(&store), m_index(index) {}

  // The place among the store's events, counted from 0 in file order; those that are added follow, and those that
  // are removed keep theirs.
  std::size_t index() const { return m_index; }
  // "" for a component without one.
  std::string uid() const;
  // The value of RECURRENCE-ID as written; "" for a single appointment or the master of a series.
  std::string recurrenceId() const;
  bool isException() const { return !recurrenceId().empty(); }
  bool isRecurring() const;
  // The event that holds the rule of the series, when the file has it.
  std::optional<CalendarEvent> master() const;
  // The series that this is or is an exception of; absent when it is neither, and when the file has no series.
  std::optional<CalendarEvent> series() const;
  bool isRemoved() const;
  // CANCELLED, CONFIRMED, TENTATIVE or what else the file says, in upper case; "" without one.
  std::string status() const;
  bool isCancelled() const { return status() == "CANCELLED"; }
  int sequence() const;

  vorn::OptionalText summary() const;
  vorn::OptionalText location() const;
  // DESCRIPTION, and the HTML of X-ALT-DESC;FMTTYPE=text/html, or else that of DESCRIPTION's own ALTREP.
  vorn::OptionalText description() const;
  vorn::OptionalText htmlDescription() const;
  // The HTML that DESCRIPTION itself holds, as one producer or another writes it; absent when it is plain text.
  vorn::OptionalText htmlInDescription() const;
  // DESCRIPTION as plain text, whatever it holds; "" without one.
  std::string plainDescription() const;

  // Absent when DTSTART is missing or no time.
  std::optional<CalendarTime> start() const;
  // DTEND, or the start with DURATION; without both, the start, and for a whole day the next.
  std::optional<CalendarTime> end() const;
  bool isAllDay() const;
  // What is broken in its times: one that is none, an end before the start. Absent when nothing is.
  std::optional<IcsProblem> faultOfTimes() const;
  // What was assumed about its times, and may be wrong: a zone that nobody knows, or none. Absent when
  // nothing is.
  std::optional<IcsProblem> doubtOfZones() const;
  // The graver of both; without a message for neither.
  IcsProblem doubtOfTimes() const;
  // That DESCRIPTION and the HTML beside it say different things; absent when they do not.
  std::optional<IcsProblem> doubtOfBody() const;
  CalendarRecurrence recurrence() const;
  // The starts of a series in that span, in seconds since 1970, oldest first: without the dates that the file
  // takes out, and without those that have an event of their own. None for what is no series.
  std::vector<double> startsWithin(double from, double until);

  std::vector<CalendarAttendee> attendees() const;
  // The address of ORGANIZER without "mailto:"; "" without one.
  std::string organizerAddress() const;
  // Whether the meeting is called by somebody else than the person with the address. Nobody else is known without
  // an organizer, and for the address "".
  bool isOfSomebodyElse(std::string_view address) const;
  std::string organizerName() const;

  // The records that the plug-in has stored in the appointment, as JSON text.
  vorn::OptionalText olmUCInband() const;
  vorn::OptionalText olmUCCapabilities() const;

  // The whole VCALENDAR of this event: the frame, the zones it speaks of, and the event itself.
  std::string calendarText() const;
  // The same as a host tells it, which makes this text itself: without the ALTREP of DESCRIPTION and LOCATION.
  std::string calendarTextOfHost() const;

  void setSummary(std::string_view text);
  void setLocation(std::string_view text);
  // The plain text goes into DESCRIPTION, the HTML into X-ALT-DESC, or into DESCRIPTION's own ALTREP where the
  // file has it there; an absent HTML takes either out.
  void setDescription(std::string_view plainText, const vorn::OptionalText& html);
  // Whom it invites, in time linear in their number and the event's lines. The lines of those who stay are kept,
  // with whatever they have answered, and only a name that is another now is changed in them. Who calls the
  // meeting is set by the address; "" leaves that as it is.
  void setAttendees(const std::vector<CalendarAttendee>& people);
  void setOrganizer(std::string_view address);
  // An empty text takes the record out.
  void setOlmUCInband(std::string_view record);
  void setOlmUCCapabilities(std::string_view record);
  // Moves the event, in seconds since 1970, keeping the form of the file: its zone, UTC, floating or whole days,
  // DTEND or DURATION. One without a start that can be read gets both ends, in UTC.
  void setTimes(double startSeconds, double endSeconds);
  void remove();

 private:
  std::size_t component() const;
  std::unique_ptr<ProducerQuirks> quirks() const;
  std::optional<IcsProperty> htmlAlternative() const;
  std::string textOf(std::string_view name) const;
  vorn::OptionalText optionalTextOf(std::string_view name) const;
  void setText(std::string_view name, std::string_view text);
  void setRecord(std::string_view name, std::string_view record);
  IcsProblem doubt(std::string_view name, const std::string& what) const;
  std::optional<CalendarTime> timeOf(std::string_view name) const;
  void writeTime(std::string_view name, double seconds);

  CalendarStore* m_store;
  std::size_t m_index;
};

// The appointments of one iCalendar file. What nobody changes is written back byte for byte. Main thread only.
class CalendarStore {
 public:
  struct Options {
    // What floating times and whole days are in; "" when nobody has said it, and they are taken as UTC.
    std::string zone = {};
  };

  CalendarStore() = default;
  explicit CalendarStore(Options options) : m_options(std::move(options)) {}

  // Replaces the content with that of a file or a text. False, with the problem filled in and the content
  // untouched, when it is no calendar; a file that cannot be read has line 0.
  bool load(const std::string& path, IcsProblem& problem);
  bool loadText(std::string text, IcsProblem& problem);
  // Writes the file whole, or not at all and answers false.
  bool save(const std::string& path) const;
  std::string text() const { return m_document.text(); }
  bool isChanged() const { return m_changed || m_document.isChanged(); }
  // What is doubtful in the file, each with its line: lines that nobody can read, what is broken in the times of
  // events, what was assumed about them, told once for each zone, and bodies in two forms that disagree.
  std::vector<IcsProblem> doubts();

  // All events in file order, removed ones left out.
  std::vector<CalendarEvent> events();
  std::size_t eventCount() const { return m_eventComponents.size(); }
  CalendarEvent eventAt(std::size_t index) { return CalendarEvent(*this, index); }
  // The first event of that UID and RECURRENCE-ID; "" names the single appointment or the master.
  std::optional<CalendarEvent> find(std::string_view uid, std::string_view recurrenceId = {});
  // The exceptions of a series, in file order.
  std::vector<CalendarEvent> exceptionsOf(std::string_view uid);
  // Adds an appointment in UTC to the last VCALENDAR (an empty store gets one). It is the last of the events. The
  // UID must be without line ends. The stamp says when it was made; one that does not lie in the past is to the
  // plug-in that of an appointment which the client has just made.
  CalendarEvent add(std::string_view uid, double startSeconds, double endSeconds, std::string_view summary,
                    double stampSeconds = 0);

  // Makes the changes of one event, all or none. False when one of the texts has no bytes in the file's encoding;
  // takeRefusal() tells which.
  bool change(CalendarEvent event, const std::function<void(CalendarEvent& event)>& make);
  // Why changes were refused since the last call, with the line of the file.
  std::optional<IcsProblem> takeRefusal() { return std::exchange(m_refusal, std::nullopt); }

  IcsDocument& document() { return m_document; }
  const IcsDocument& document() const { return m_document; }
  const Options& options() const { return m_options; }

 private:
  friend class CalendarEvent;

  void indexEvents();
  // Gives the component the next place.
  void indexEvent(std::size_t component);
  // The zones of the VCALENDAR that the component stands in.
  CalendarZones& zonesOf(std::size_t component);

  Options m_options;
  IcsDocument m_document;
  bool m_changed = false;
  std::optional<IcsProblem> m_refusal;
  std::vector<std::size_t> m_eventComponents;
  // By UID, and below it by RECURRENCE-ID: a series may have thousands of exceptions, and each looks for its
  // master.
  std::map<std::string, std::map<std::string, std::vector<std::size_t>, std::less<>>, std::less<>> m_byUid;
  std::map<std::size_t, std::unique_ptr<CalendarZones>> m_zones;
};

}  // namespace vornlab
