#pragma once

#include <string>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/LabSession.h"
#include "lab/shell/MeetReport.h"

namespace vornlab {

// Leads one appointment after another through the whole road: the editor opens, a person clicks Add when the bar
// offers it, and saves or sends; the plug-in does the rest.
class MeetingRoad {
 public:
  // What a person does, as it happens.
  using Narrator = std::function<void(const std::string& act)>;

  MeetingRoad(LabSession& session, double timeoutSeconds) : m_session(session), m_timeoutSeconds(timeoutSeconds) {}

  void setNarrator(Narrator narrator) { m_narrator = std::move(narrator); }

  // What the person is after.
  enum class Aim { add, remove };

  // Throws LabError only when the person wants the program to end.
  MeetResult take(CalendarEvent event, Aim aim = Aim::add);

 private:
  using EditorId = HostFace::EditorId;

  // Each answers why the road ended there, or "". The result has the stored meeting's key at first, and gets the
  // outcome of a road that ends early.
  std::string walk(EditorId editor, MeetResult& result, Aim aim);
  std::string addMeeting(EditorId editor);
  std::string removeMeeting(EditorId editor, bool hasRecord);
  // What the open settings panel does about a refused meeting; "" without one.
  std::string panelsWord(EditorId editor);
  std::string finishEditing(EditorId editor);
  std::string waitForQuiet();

  bool isShown(EditorId editor, const char* action);
  void tell(const std::string& act) const;
  double secondsLeft() const;

  LabSession& m_session;
  double m_timeoutSeconds;
  Narrator m_narrator;
  std::chrono::steady_clock::time_point m_began;
  std::size_t m_sentBefore = 0;
  std::size_t m_receivedBefore = 0;
};

// What the plug-in has told a person, as a reason. What the service says of errors that the plug-in has no words
// for it tells as it is, and here it gets a sentence.
std::string noticeInWords(const std::string& message);

// The result of an appointment as it stands in the calendar: its names, its meeting's key and its location.
MeetResult describe(const CalendarEvent& event);
// The same at the end of a road: with the reason and the outcome for which it ended early, if it did.
MeetResult endOfRoad(const CalendarEvent& event, const MeetResult& walked, bool hadMeeting, bool isUpdated);
// At the end of the road on which its meeting was to go.
MeetResult endOfRemoval(const CalendarEvent& event, const MeetResult& walked);

}  // namespace vornlab
