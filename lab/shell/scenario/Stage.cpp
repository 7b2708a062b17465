#include "lab/shell/scenario/Stage.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "lab/client/MeetingStore.h"
#include "lab/shell/LabError.h"
#include "lab/shell/MeetingRoad.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

using vorn::Value;

// What a reply may take on a machine that is busy with other things.
constexpr double kPatienceSeconds = 20;
// How long a reply is waited for of which nobody knows whether it comes.
constexpr double kDoubtSeconds = 0.15;
// How long a message that found no connection may take to bring one about.
constexpr double kReconnectSeconds = 2;
// The plug-in clears up a hundredth of a second after a window has closed.
constexpr double kClearingSeconds = 0.011;

constexpr std::int64_t kMeetings = 3;

std::string nameOf(bool isRequest, const Value& facts) {
  std::string name = facts["action"].stringValue();
  // Most meeting requests share one number; the operation stands at the head of the content.
  if (isRequest && facts["action"].integerValue() == kMeetings) {
    name += "/" + std::to_string(facts["content"].integerValue());
  }
  return name;
}

}  // namespace

Stage::Stage(const ScenarioSetUp& setUp, LabOptions lab, const std::filesystem::path& folder)
    : lab_(std::move(lab)), faults_(folder / "faults") {
  lab_.world = folder;
  lab_.clientDatabase = folder / "meetings.db";
  lab_.account = setUp.account;
  lab_.panelIsOff = !setUp.panelIsOn;
  lab_.withoutClient = setUp.withoutClient;
  lab_.clientVersion = setUp.clientVersion;
  lab_.systemVersion = setUp.systemVersion;
  lab_.clientArguments.push_back("--faults=" + faults_.string());
  setFaults("");
  loadCalendar(setUp);
  fillService(setUp);
  session_.emplace(lab_, calendar_, setUp.host);
  usesSocket_ = !session_->talksByNotifications();
  journal_.emplace(session_->world().journal());
  journal_->read();
  countAnew(true);
  for (const SavedChoice& choice : setUp.choices) choose(choice);
  session_->trace().setListener([this](std::string_view step, const Value& facts) { note(step, facts); });
  session_->presenter().setAlertObserver(
      [this](const vorn::EmbeddedPresenter::Shown& shown) { alerts_.push_back(shown.alert.message); });
}

void Stage::loadCalendar(const ScenarioSetUp& setUp) {
  IcsProblem problem;
  if (!calendar_.loadText(calendarTextOf(setUp), problem)) {
    throw LabError("the calendar cannot be read: line " + std::to_string(problem.line) + ": " + problem.message);
  }
  for (const StoredRecord& record : setUp.records) {
    auto event = calendar_.find(record.uid, record.recurrenceId);
    if (!event) continue;
    record.isInOlderPlace ? event->setOlmUCCapabilities(record.text) : event->setOlmUCInband(record.text);
  }
  claimedEvents_ = calendar_.eventCount();
}

void Stage::fillService(const ScenarioSetUp& setUp) const {
  if (setUp.meetings.empty()) return;
  MeetingStore service(lab_.clientDatabase);
  for (const Meeting& meeting : setUp.meetings) service.put(meeting);
}

// -- Windows -----------------------------------------------------------------------------------------------------

void Stage::enter(const std::string& name, OutlookHost::EditorId editor, std::optional<std::size_t> event) {
  windows_[name] = {editor, event, calendar_.text()};
  current_ = name;
  lastKeys_.erase(name);
}

void Stage::enter(const std::string& name) {
  if (!windows_.contains(name)) {
    const auto event = calendar_.find(name);
    if (!event) throw Mismatch("a window or an appointment named \"" + name + "\"", "none of that name");
    windows_[name] = {0, event->index(), calendar_.text()};
  }
  current_ = name;
}

StageWindow& Stage::window() {
  const auto found = windows_.find(current_);
  if (found == windows_.end()) throw Mismatch("a window that was opened before", "none");
  return found->second;
}

OutlookHost::EditorId Stage::editor() {
  if (!isOpen()) throw Mismatch("the window \"" + current_ + "\" is open", "it is closed");
  return window().editor;
}

bool Stage::isOpen() { return window().editor != 0 && host().isOpen(window().editor); }

std::optional<CalendarEvent> Stage::stored() {
  const auto index = window().event;
  if (!index) return std::nullopt;
  const CalendarEvent event = calendar_.eventAt(*index);
  return event.isRemoved() ? std::nullopt : std::optional(event);
}

Value Stage::told() {
  return session_->ask("window", Value::dictionaryFromPairs({{"editor", host().viewController(editor())}}));
}

std::string Stage::meetingKey() {
  std::string key;
  if (isOpen()) key = told()["key"].text();
  if (const auto event = stored(); key.empty() && event) key = describe(*event).meetingKey;
  if (!key.empty()) lastKeys_[current_] = key;
  return key.empty() ? lastKeys_[current_] : key;
}

// -- Waiting -----------------------------------------------------------------------------------------------------

void Stage::note(std::string_view step, const Value& facts) {
  if (step == "dropped") hasDropped_ = true;
  if (step != "sent" && step != "received") return;
  const bool isRequest = step == "sent";
  envelopes_.push_back({isRequest, nameOf(isRequest, facts), facts["content"].text()});
}

void Stage::countAnew(bool isConnected) {
  sentBefore_ = session_->trace().sent();
  receivedBefore_ = session_->trace().received();
  journal_->begin(isConnected);
}

bool Stage::isQuiet(bool evenDoubtful) {
  journal_->read();
  const std::size_t sent = session_->trace().sent() - sentBefore_;
  const std::size_t received = session_->trace().received() - receivedBefore_;
  const std::size_t expected = journal_->sureReplies() + (evenDoubtful ? journal_->doubtfulReplies() : 0);
  return sent <= journal_->answered() && expected <= received;
}

// False when what was sent has reached nobody.
bool Stage::waitForReplies() {
  const auto isCutOff = [this] {
    return !session_->clientIsRunning() || (usesSocket_ && journal_->connections() <= 0);
  };
  if (!session_->waitUntil([&] { return isQuiet(false) || isCutOff(); }, kPatienceSeconds)) {
    throw Mismatch(
        "the plug-in comes to rest",
        "a request is unanswered after " + std::to_string(static_cast<int>(kPatienceSeconds)) + " seconds");
  }
  if (!isQuiet(false)) return false;
  session_->waitUntil([&] { return isQuiet(true); }, kDoubtSeconds);
  return true;
}

void Stage::settle() {
  // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
  do {
    if (!waitForReplies()) countAnew(false);
    session_->passTime(0);
    session_->passTime(0);
  } while (!isQuiet(false));
  const std::size_t open = host().editors().size();
  if (open < openEditors_) session_->passTime(kClearingSeconds);
  openEditors_ = open;
  if (std::exchange(hasDropped_, false) && usesSocket_ && session_->clientIsRunning()) {
    session_->waitUntil([this] { return journal_->read(), journal_->connections() > 0; }, kReconnectSeconds);
  }
  claimNewAppointment();
  // The key is asked for while the plug-in still knows it.
  if (windows_.contains(current_)) meetingKey();
}

void Stage::claimNewAppointment() {
  if (!windows_.contains(current_) || window().event || window().editor == 0) return;
  if (calendar_.eventCount() > claimedEvents_) window().event = claimedEvents_++;
}

// -- The client --------------------------------------------------------------------------------------------------

void Stage::killClient() {
  session_->killClient();
  countAnew(false);
}

void Stage::stopClient() {
  session_->stopClient();
  countAnew(false);
}

void Stage::startClient() {
  session_->restartClient();
  countAnew(false);
}

void Stage::setFaults(const std::string& rules) {
  if (!vorn::replaceFile(faults_.string(), rules)) throw LabError("cannot write " + faults_.string());
}

void Stage::choose(const SavedChoice& choice) {
  if (choice.place == SavedChoice::Place::profile) {
    session_->saveInProfile(choice.key, choice.value);
  } else {
    session_->saveInUserDefaults(choice.key, choice.value);
  }
}

// -- What there was ----------------------------------------------------------------------------------------------

std::vector<std::string> Stage::takeRequests() {
  std::vector<std::string> names;
  for (std::size_t i = requestsTakenTo_; i < envelopes_.size(); ++i) {
    if (envelopes_[i].isRequest) names.push_back(envelopes_[i].name);
  }
  requestsTakenFrom_ = requestsTakenTo_;
  requestsTakenTo_ = envelopes_.size();
  return names;
}

bool Stage::requestHolds(const std::string& part) const {
  for (std::size_t i = requestsTakenFrom_; i < envelopes_.size(); ++i) {
    if (envelopes_[i].isRequest && envelopes_[i].content.find(part) != std::string::npos) return true;
  }
  return false;
}

std::vector<std::string> Stage::takeAlerts() {
  std::vector<std::string> taken(alerts_.begin() + static_cast<std::ptrdiff_t>(alertsTaken_), alerts_.end());
  alertsTaken_ = alerts_.size();
  return taken;
}

std::optional<Meeting> Stage::meetingAtService() {
  const std::string key = meetingKey();
  std::int64_t number = 0;
  std::from_chars(key.data(), key.data() + key.size(), number);
  MeetingStore service(lab_.clientDatabase);
  if (number != 0) return service.find(number);
  const auto event = stored();
  return event ? service.findByAppointment(event->uid()) : std::nullopt;
}

std::int64_t Stage::meetingsAtService() const { return MeetingStore(lab_.clientDatabase).count(); }

}  // namespace vornlab
