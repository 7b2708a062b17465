#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "lab/host/Appointment.h"

namespace vornlab {

// An open editor of an appointment, whatever the host's classes are made of: what was typed and not saved, the
// body in its compose view, and whether there is something to save.
//
// It never sends. Where a plug-in may stand between two steps, the face sends the selector and then takes the next
// step here: it asks its event for the body and gives that to load(), sends setIsDirty: when contentDidChange()
// says so, and calls saved() when the record's own selector has stored what changes() gave.
//
// Bodies are HTML in UTF-8. Main thread only.
class EditorState {
 public:
  // What a save that may close the window answers, and what a person answers who means the whole series.
  static constexpr int kDone = 0;
  static constexpr int kNotDone = -1;
  static constexpr int kWholeSeries = 1;

  bool isDirty = false;
  bool isCancelMode = false;
  // What was typed and not saved: texts, times and people. The body comes in by contentDidChange().
  AppointmentChanges typed;

  // What the compose view shows.
  const std::string& html() const { return m_html; }
  void switchToPlainText(bool isPlainText) { m_isPlainText = isPlainText; }
  // Shows the appointment's own body; what differs from it later has been changed by somebody.
  void load(std::string html);
  // Puts another body in its place, and a piece of HTML or plain text in front of it: only the start of the body
  // is a place that the compose view knows.
  void show(std::string html) { m_html = std::move(html); }
  void insert(std::string_view text, bool isHtml);
  // The compose view tells that its content may have changed. True when there is something to save now; only a
  // true difference is.
  bool contentDidChange();
  // Shows another appointment, whose body is yet to be loaded: what was typed is dropped.
  void forgetTyped() { typed = {}; }

  // What a save brings into the appointment, and that this has been done. Who calls an appointment to which nobody
  // is invited has no place in a calendar, and stays typed until somebody is.
  AppointmentChanges changes() const;
  void saved(bool isMeeting);

  // What was typed, as the host's dictionary of uncommitted changes has it: without the organizer. A subject that
  // was emptied is null.
  using Uncommitted = std::variant<std::nullptr_t, std::string, CalendarTime, std::vector<CalendarAttendee>>;
  std::vector<std::pair<std::string, Uncommitted>> uncommitted() const;
  // The names of these as one text; and whether such a text names any that the attendees should hear of.
  std::string namesOfUncommitted() const;
  static bool namesChanges(std::string_view text);

 private:
  std::string m_html;
  std::string m_loadedHtml;
  bool m_isPlainText = false;
};

}  // namespace vornlab
