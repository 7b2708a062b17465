#include "lab/shell/MeetingRoad.h"

#include <nlohmann/json.hpp>

#include "lab/shell/Words.h"

namespace vornlab {
namespace {

std::string meetingKeyOf(const CalendarEvent& event) {
  for (const vorn::OptionalText& record : {event.olmUCInband(), event.olmUCCapabilities()}) {
    const auto document = nlohmann::json::parse(record.value_or(""), nullptr, false);
    if (!document.is_object()) continue;
    const auto key = document.find("meetingKey");
    if (key != document.end() && key->is_string()) return key->get<std::string>();
  }
  return "";
}

// The bar's buttons, by what they send.
constexpr const char* kAdd = "onClickAddVornMeeting:";
constexpr const char* kCancel = "onClickCancelVornMeeting:";

// The bar shows a meeting, and the appointment has no key of one.
constexpr const char* kKnownToServiceAlone = "the service knows its meeting; the calendar has no record of it";

}  // namespace

std::string noticeInWords(const std::string& message) {
  const std::string_view said = std::string_view(message).substr(message.starts_with("0;") ? 2 : 0);
  if (!said.starts_with("Err")) return message;
  return "the service refused, and the plug-in has no words for it: " + std::string(said);
}

MeetResult describe(const CalendarEvent& event) {
  MeetResult result;
  result.uid = event.uid();
  result.recurrenceId = event.recurrenceId();
  result.subject = event.summary().value_or("");
  result.meetingKey = meetingKeyOf(event);
  result.location = event.location().value_or("");
  return result;
}

MeetResult endOfRoad(const CalendarEvent& event, const MeetResult& walked, bool hadMeeting, bool isUpdated) {
  MeetResult result = describe(event);
  result.reason = walked.reason;
  if (!result.reason.empty()) {
    result.outcome = walked.outcome;
    if (walked.outcome == Outcome::unchanged) result.meetingKey = walked.meetingKey;
  } else if (result.meetingKey.empty()) {
    result.outcome = Outcome::failed;
    result.reason = "the appointment was stored without a meeting";
  } else if (!hadMeeting) {
    result.outcome = Outcome::added;
  } else {
    result.outcome = isUpdated ? Outcome::updated : Outcome::unchanged;
  }
  return result;
}

MeetResult endOfRemoval(const CalendarEvent& event, const MeetResult& walked) {
  MeetResult result = describe(event);
  result.reason = walked.reason;
  if (!result.reason.empty()) {
    result.outcome = walked.outcome;
  } else if (result.meetingKey.empty()) {
    result.outcome = Outcome::removed;
  } else {
    result.outcome = Outcome::failed;
    result.reason = "the appointment was stored with its meeting";
  }
  return result;
}

MeetResult MeetingRoad::take(CalendarEvent event, Aim aim) {
  m_began = std::chrono::steady_clock::now();
  RoadTrace& trace = m_session.trace();
  m_sentBefore = trace.sent();
  m_receivedBefore = trace.received();
  const std::size_t commitsBefore = trace.commits();
  trace.forgetTrouble();
  const std::string keyBefore = meetingKeyOf(event);
  const std::string textBefore = event.calendarText();

  HostFace& host = m_session.host();
  tell("opens the appointment");
  const EditorId editor = host.openEditorAt(event.index());
  MeetResult walked;
  walked.meetingKey = keyBefore;
  walked.reason = editor == 0 ? "the host cannot open the appointment" : walk(editor, walked, aim);
  if (host.isOpen(editor)) {
    tell("closes the editor without saving");
    host.closeWithoutSaving(editor);
  }
  m_session.clearUp();

  if (aim == Aim::remove) return endOfRemoval(event, walked);
  return endOfRoad(event, walked, !keyBefore.empty(),
                   trace.commits() > commitsBefore || event.calendarText() != textBefore);
}

std::string MeetingRoad::walk(EditorId editor, MeetResult& result, Aim aim) {
  if (std::string reason = waitForQuiet(); !reason.empty()) return reason;
  HostFace& host = m_session.host();
  if (!host.barView(editor)) return "the plug-in put no bar into the editor";
  if (aim == Aim::remove) {
    if (!isShown(editor, kCancel)) {
      result.outcome = Outcome::skipped;
      return "it has no meeting";
    }
    const bool hasRecord = !result.meetingKey.empty();
    if (std::string reason = removeMeeting(editor, hasRecord); !reason.empty()) return reason;
  } else if (isShown(editor, kAdd)) {
    if (std::string reason = addMeeting(editor); !reason.empty()) return reason;
  } else if (!isShown(editor, kCancel)) {
    result.outcome = Outcome::skipped;
    return "the plug-in offers no meeting for it";
  } else if (result.meetingKey.empty()) {
    result.outcome = Outcome::unchanged;
    const vorn::Value parameters = vorn::Value::dictionaryFromPairs({{"editor", host.viewController(editor)}});
    result.meetingKey = m_session.ask("window", parameters)["key"].text();
    return kKnownToServiceAlone;
  }
  return finishEditing(editor);
}

std::string MeetingRoad::addMeeting(EditorId editor) {
  tell("clicks Add");
  m_session.host().clickBar(editor, kAdd);
  if (std::string reason = waitForQuiet(); !reason.empty()) return reason;
  if (isShown(editor, kCancel)) return "";
  const std::string& refusal = m_session.trace().refusal();
  if (refusal.empty()) return "the plug-in did not add a meeting";
  const std::string reason = "the client refused, with error " + refusal;
  const std::string said = panelsWord(editor);
  return said.empty() ? reason : reason + "; the settings panel " + said;
}

std::string MeetingRoad::removeMeeting(EditorId editor, bool hasRecord) {
  tell("clicks Cancel");
  m_session.host().clickBar(editor, kCancel);
  const std::string reason = waitForQuiet();
  if (!isShown(editor, kAdd)) {
    if (!reason.empty()) return reason;
    return hasRecord ? "the plug-in did not take the meeting away" : kKnownToServiceAlone;
  }
  // It is told where the meeting has gone, which is no trouble.
  m_session.trace().forgetTrouble();
  return "";
}

std::string MeetingRoad::panelsWord(EditorId editor) {
  const HostScreen& screen = m_session.screen();
  const vorn::HostObject window = m_session.host().window(editor);
  if (!screen.showsPanel(window)) return "";
  for (const char* error : {"pswFormatErrorTextField", "securityErrorTextField", "templateDeletedTipTextField"}) {
    const auto seen = screen.look(window, error);
    if (seen && !seen->hidden) return "says: " + seen->text;
  }
  return "waits for other settings";
}

std::string MeetingRoad::finishEditing(EditorId editor) {
  HostFace& host = m_session.host();
  if (host.hasAttendees(editor)) {
    tell("sends the meeting");
    host.send(editor);
  } else {
    tell("saves and closes");
    host.saveAndClose(editor);
  }
  if (std::string reason = waitForQuiet(); !reason.empty() && host.isOpen(editor)) return reason;
  if (host.isOpen(editor)) return "the editor stayed open";
  tell("sees the editor close; the appointment is stored");
  return "";
}

std::string MeetingRoad::waitForQuiet() {
  const auto quiet = m_session.waitForQuiet(m_sentBefore, m_receivedBefore, secondsLeft());
  // The plug-in's own words tell more than what was noticed from outside.
  if (!m_session.trace().alert().empty()) return noticeInWords(m_session.trace().alert());
  switch (quiet) {
    case LabSession::Quiet::reached: return "";
    case LabSession::Quiet::clientGone: return "the client ended before it answered";
    case LabSession::Quiet::timeout: break;
  }
  return "the client did not answer within " + secondsInWords(m_timeoutSeconds);
}

bool MeetingRoad::isShown(EditorId editor, const char* action) {
  return m_session.host().barControl(editor, action).isShown;
}

void MeetingRoad::tell(const std::string& act) const {
  if (m_narrator) m_narrator(act);
}

double MeetingRoad::secondsLeft() const {
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - m_began;
  return std::max(0.0, m_timeoutSeconds - since.count());
}

}  // namespace vornlab
