#include "lab/shell/scenario/Stage.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "lab/shell/LabError.h"
#include "lab/shell/MeetingRoad.h"
#include "lab/shell/RoadWords.h"

namespace vornlab {
namespace {

using vorn::Value;

// What a reply may take on a machine that is busy with other things.
constexpr double kPatienceSeconds = 20;
// How long a reply is waited for of which nobody knows whether it comes.
constexpr double kDoubtSeconds = 0.15;
// How long a message that found no connection may take to bring one about.
constexpr double kReconnectSeconds = 2;

std::string nameOf(bool isRequest, const Value& facts) {
  std::string name = facts["action"].stringValue();
  // Most meeting requests share one number; the operation stands at the head of the content.
  if (isRequest && facts["action"].integerValue() == kMeetingRequests) {
    name += "/" + std::to_string(facts["content"].integerValue());
  }
  return name;
}

}  // namespace

Stage::Stage(const ScenarioSetUp& setUp, LabOptions lab, const StartSession& start) {
  lab.clientDatabase = lab.world / "meetings.db";
  lab.account = setUp.account;
  lab.panelIsOff = !setUp.panelIsOn;
  lab.withoutClient = setUp.withoutClient;
  lab.withAgent = setUp.withAgent;
  lab.clientVersion = setUp.clientVersion;
  lab.systemVersion = setUp.systemVersion;
  lab.takesFaults = true;
  loadCalendar(setUp);
  m_session = start(lab, m_calendar, setUp.host);
  for (const Meeting& meeting : setUp.meetings) m_session->meetings().put(meeting);
  m_usesSocket = !m_session->talksByNotifications();
  m_journal.emplace(m_session->world().journal());
  m_journal->read();
  countAnew(true);
  for (const SavedChoice& choice : setUp.choices) choose(choice);
  m_session->trace().setListener([this](std::string_view step, const Value& facts) { note(step, facts); });
}

// A session lets its host go on for a moment at its end, and a reply that comes then would be noted in what has
// ended before it.
Stage::~Stage() { m_session->trace().setListener({}); }

void Stage::loadCalendar(const ScenarioSetUp& setUp) {
  IcsProblem problem;
  if (!m_calendar.loadText(calendarTextOf(setUp), problem)) {
    throw LabError("the calendar cannot be read: line " + std::to_string(problem.line) + ": " + problem.message);
  }
  for (const StoredRecord& record : setUp.records) {
    auto event = m_calendar.find(record.uid, record.recurrenceId);
    if (!event) continue;
    record.isInOlderPlace ? event->setOlmUCCapabilities(record.text) : event->setOlmUCInband(record.text);
  }
  m_claimedEvents = m_calendar.eventCount();
}

// -- Windows -----------------------------------------------------------------------------------------------------

void Stage::enter(const std::string& name, HostFace::EditorId editor, std::optional<std::size_t> event) {
  const auto known = m_windows.find(name);
  if (known != m_windows.end() && known->second.editor != editor && host().isOpen(known->second.editor)) {
    throw Mismatch("a name for the window that no other open window has", "\"" + name + "\" twice");
  }
  m_windows[name] = {editor, event, m_calendar.text()};
  m_current = name;
  m_lastKeys.erase(name);
}

HostFace::EditorId Stage::newestUnnamedEditor() {
  HostFace::EditorId newest = 0;
  for (const HostFace::EditorId editor : host().editors()) {
    const bool isNamed = std::any_of(m_windows.begin(), m_windows.end(),
                                     [editor](const auto& known) { return known.second.editor == editor; });
    if (!isNamed) newest = std::max(newest, editor);
  }
  return newest;
}

void Stage::enter(const std::string& name) {
  if (!m_windows.contains(name)) {
    const auto event = m_calendar.find(name);
    if (!event) throw Mismatch("a window or an appointment named \"" + name + "\"", "none of that name");
    m_windows[name] = {0, event->index(), m_calendar.text()};
  }
  m_current = name;
}

StageWindow& Stage::window() {
  const auto found = m_windows.find(m_current);
  if (found == m_windows.end()) throw Mismatch("a window that was opened before", "none");
  return found->second;
}

HostFace::EditorId Stage::editor() {
  if (!isOpen()) throw Mismatch("the window \"" + m_current + "\" is open", "it is closed");
  return window().editor;
}

bool Stage::isOpen() { return window().editor != 0 && host().isOpen(window().editor); }

std::optional<CalendarEvent> Stage::stored() {
  const auto index = window().event;
  if (!index) return std::nullopt;
  const CalendarEvent event = m_calendar.eventAt(*index);
  return event.isRemoved() ? std::nullopt : std::optional(event);
}

Value Stage::told() {
  return m_session->ask("window", Value::dictionaryFromPairs({{"editor", host().viewController(editor())}}));
}

std::string Stage::meetingKey() {
  std::string key;
  if (isOpen()) key = told()["key"].text();
  if (const auto event = stored(); key.empty() && event) key = describe(*event).meetingKey;
  if (!key.empty()) m_lastKeys[m_current] = key;
  return key.empty() ? m_lastKeys[m_current] : key;
}

// -- Waiting -----------------------------------------------------------------------------------------------------

void Stage::note(std::string_view step, const Value& facts) {
  if (step == "dropped") m_hasDropped = true;
  if (step != "sent" && step != "received") return;
  const bool isRequest = step == "sent";
  m_envelopes.push_back(
      {isRequest, nameOf(isRequest, facts), facts["content"].text(), facts["wholeContent"].text()});
}

void Stage::countAnew(bool isConnected) {
  m_sentBefore = m_session->trace().sent();
  m_receivedBefore = m_session->trace().received();
  m_journal->begin(isConnected);
}

bool Stage::isQuiet(bool evenDoubtful) {
  m_journal->read();
  const std::size_t sent = m_session->trace().sent() - m_sentBefore;
  const std::size_t received = m_session->trace().received() - m_receivedBefore;
  const std::size_t expected = m_journal->sureReplies() + (evenDoubtful ? m_journal->doubtfulReplies() : 0);
  return sent <= m_journal->answered() && expected <= received;
}

// False when what was sent has reached nobody.
bool Stage::waitForReplies() {
  const auto isCutOff = [this] {
    return !m_session->clientIsRunning() || (m_usesSocket && m_journal->connections() <= 0);
  };
  if (!m_session->waitUntil([&] { return isQuiet(false) || isCutOff(); }, kPatienceSeconds)) {
    throw Mismatch(
        "the plug-in comes to rest",
        "a request is unanswered after " + std::to_string(static_cast<int>(kPatienceSeconds)) + " seconds");
  }
  if (!isQuiet(false)) return false;
  m_session->waitUntil([&] { return isQuiet(true); }, kDoubtSeconds);
  return true;
}

void Stage::settle() {
  // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
  do {
    if (!waitForReplies()) countAnew(false);
    m_session->passTime(0);
    m_session->passTime(0);
  } while (!isQuiet(false));
  const std::size_t open = host().editors().size();
  if (open < m_openEditors) m_session->clearUp();
  m_openEditors = open;
  if (std::exchange(m_hasDropped, false) && m_usesSocket && m_session->clientIsRunning()) {
    m_session->waitUntil([this] { return m_journal->read(), m_journal->connections() > 0; }, kReconnectSeconds);
  }
  claimNewAppointment();
  // The key is asked for while the plug-in still knows it.
  if (m_windows.contains(m_current)) meetingKey();
}

void Stage::claimNewAppointment() {
  if (!m_windows.contains(m_current) || window().event || window().editor == 0) return;
  while (m_claimedEvents < m_calendar.eventCount() && !window().event) {
    const std::size_t place = m_claimedEvents++;
    // One that the file had no bytes for was taken out at once.
    if (!m_calendar.eventAt(place).isRemoved()) window().event = place;
  }
}

// -- The client --------------------------------------------------------------------------------------------------

void Stage::killClient() {
  m_session->killClient();
  countAnew(false);
}

void Stage::stopClient() {
  m_session->stopClient();
  countAnew(false);
}

void Stage::startClient() {
  m_session->restartClient();
  countAnew(false);
}

void Stage::choose(const SavedChoice& choice) {
  switch (choice.place) {
    case SavedChoice::Place::profile: m_session->saveInProfile(choice.key, choice.value); break;
    case SavedChoice::Place::site: m_session->world().saveChoice(World::kSite, choice.key, choice.value); break;
    case SavedChoice::Place::userDefaults: m_session->saveInUserDefaults(choice.key, choice.value); break;
  }
}

// -- What there was ----------------------------------------------------------------------------------------------

std::vector<std::string> Stage::takeRequests() {
  std::vector<std::string> names;
  for (std::size_t i = m_requestsTakenTo; i < m_envelopes.size(); ++i) {
    if (m_envelopes[i].isRequest) names.push_back(m_envelopes[i].name);
  }
  m_requestsTakenFrom = m_requestsTakenTo;
  m_requestsTakenTo = m_envelopes.size();
  return names;
}

bool Stage::requestHolds(const std::string& part) const {
  for (std::size_t i = m_requestsTakenFrom; i < m_envelopes.size(); ++i) {
    if (m_envelopes[i].isRequest && m_envelopes[i].wholeContent.find(part) != std::string::npos) return true;
  }
  return false;
}

std::vector<std::string> Stage::takeAlerts() {
  const std::vector<std::string> shown = m_session->screen().alertMessages();
  std::vector<std::string> taken(shown.begin() + static_cast<std::ptrdiff_t>(m_alertsTaken), shown.end());
  m_alertsTaken = shown.size();
  return taken;
}

std::string Stage::takeAgentAct() {
  const auto& acts = m_journal->agentActs();
  const auto hasCome = [&] { return m_journal->read(), acts.size() > m_agentActsTaken; };
  return m_session->waitUntil(hasCome, kPatienceSeconds) ? acts[m_agentActsTaken++] : "nothing";
}

std::optional<Meeting> Stage::meetingAtService() {
  const std::string key = meetingKey();
  std::int64_t number = 0;
  std::from_chars(key.data(), key.data() + key.size(), number);
  MeetingStore& service = m_session->meetings();
  if (number != 0) return service.find(number);
  const auto event = stored();
  const auto found = event ? service.findByAppointment(event->uid()) : std::nullopt;
  if (!found) throw Mismatch("a meeting that the window has or had", "none");
  return found;
}

}  // namespace vornlab
