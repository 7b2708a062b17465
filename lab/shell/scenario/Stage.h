#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/client/Meeting.h"
#include "lab/ics/CalendarStore.h"
#include "lab/shell/LabSession.h"
#include "lab/shell/scenario/ClientJournal.h"
#include "lab/shell/scenario/Mismatch.h"
#include "lab/shell/scenario/ScenarioSetUp.h"

namespace vornlab {

// A window, or an appointment without one, under the name that the scenario has for it.
struct StageWindow {
  // 0 when no window was opened.
  HostFace::EditorId editor = 0;
  // The place among the calendar's events; absent for a new appointment that is not stored.
  std::optional<std::size_t> event;
  // The whole calendar as it was when the window opened.
  std::string calendarBefore;
};

// A request or a reply as the plug-in tells it, covered.
struct StageEnvelope {
  bool isRequest = false;
  // "6", or "3/4" for the inner operation 4.
  std::string name;
  // Cut short when it is long.
  std::string content;
  // A request's; "" for a reply.
  std::string wholeContent;
};

// What plays in one scenario: a session of the laboratory, the calendar, the windows by their names, and what has
// gone between the plug-in and the client. The world is the one of the options; whoever made its folder removes
// it.
class Stage {
 public:
  // Throws LabError when the world cannot be made or the client cannot be started.
  Stage(const ScenarioSetUp& setUp, LabOptions lab, const StartSession& start);
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  LabSession& session() { return *m_session; }
  HostFace& host() { return m_session->host(); }
  CalendarStore& calendar() { return m_calendar; }

  // -- Windows

  // Names a window, or an appointment when the editor is 0; the lines that follow mean it.
  void enter(const std::string& name, HostFace::EditorId editor, std::optional<std::size_t> event);
  // A name that was given before, or the UID of an appointment. Throws Mismatch for any other.
  void enter(const std::string& name);
  StageWindow& window();
  // The window that was opened last and that no line has named; 0 when there is none.
  HostFace::EditorId newestUnnamedEditor();
  // The window's editor; throws Mismatch when it has closed or never was.
  HostFace::EditorId editor();
  bool isOpen();
  // The appointment as it is stored; absent when it is not, or not any more.
  std::optional<CalendarEvent> stored();
  // The control of the window's bar with that action.
  HostFace::Control barControl(const ControlName& name) { return host().barControl(editor(), name); }
  // What the plug-in tells of the window; see its question "window".
  vorn::Value told();
  // The number of the window's meeting: from the plug-in, or else from the stored record, or the last one known.
  std::string meetingKey();

  // -- What happens beside the calling line

  // Runs the host until the plug-in has come to rest: each request has its reply or will never have one, and
  // nothing more is due at once. Throws Mismatch when that does not happen.
  void settle();
  void wait(double seconds) { m_session->passTime(seconds); }

  void killClient();
  void stopClient();
  void startClient();
  // Replaces what the client does wrong, from its next reply on.
  void setFaults(const std::string& rules) { m_session->setFaults(rules); }
  void choose(const SavedChoice& choice);

  // -- What there was

  const std::vector<StageEnvelope>& envelopes() const { return m_envelopes; }
  // The requests since the last call.
  std::vector<std::string> takeRequests();
  // Whether one of the requests that the last takeRequests() gave, or a later one, holds the text.
  bool requestHolds(const std::string& part) const;
  // The alerts since the last call.
  std::vector<std::string> takeAlerts();
  // What the agent does next, or has done that was not taken yet; "nothing" when that does not come.
  std::string takeAgentAct();
  // Throws Mismatch for a window that never had a meeting.
  std::optional<Meeting> meetingAtService();
  std::int64_t meetingsAtService() { return m_session->meetings().count(); }

 private:
  void loadCalendar(const ScenarioSetUp& setUp);
  void note(std::string_view step, const vorn::Value& facts);
  bool isQuiet(bool evenDoubtful);
  bool waitForReplies();
  void countAnew(bool isConnected);
  void claimNewAppointment();

  CalendarStore m_calendar;
  std::unique_ptr<LabSession> m_session;
  std::optional<ClientJournal> m_journal;
  bool m_usesSocket = true;

  std::map<std::string, StageWindow> m_windows;
  std::string m_current;
  // Keys by window, for meetings that are no more.
  std::map<std::string, std::string> m_lastKeys;
  // Events that belong to the file or to a window.
  std::size_t m_claimedEvents = 0;
  std::size_t m_openEditors = 0;

  std::vector<StageEnvelope> m_envelopes;
  std::size_t m_requestsTakenFrom = 0;
  std::size_t m_requestsTakenTo = 0;
  std::size_t m_alertsTaken = 0;
  std::size_t m_agentActsTaken = 0;
  std::size_t m_sentBefore = 0;
  std::size_t m_receivedBefore = 0;
  bool m_hasDropped = false;
};

}  // namespace vornlab
