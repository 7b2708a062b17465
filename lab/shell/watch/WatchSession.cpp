#include "lab/shell/watch/WatchSession.h"

#include <algorithm>
#include <utility>

#include "lab/shell/LabError.h"
#include "lab/shell/RoadWords.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using vorn::Value;

constexpr double kPollSeconds = 0.1;
// What one who comes later is told of the past.
constexpr std::size_t kStepsKept = 40;
constexpr std::size_t kNoticesKept = 5;
// Of an envelope whose content is longer, only what is told of it is kept, covered at once.
constexpr std::size_t kLargestKept = std::size_t{64} * 1024;
// Replies that never come leave their requests behind.
constexpr std::size_t kMostPending = 50;

// More than the plug-in's trace gives of an envelope. Covered before it is cut: half an address is none that would
// be recognised.
std::string seenByWatchers(std::string_view text) {
  constexpr std::size_t kMostBytes = 2000;
  return vorn::SecretMask::coveredAndCut(text, kMostBytes);
}

// "5 VnCmdUpdate"; "" for a number that says nothing.
std::string numbered(const Value& number, const Value& name) {
  return name.text().empty() ? "" : number.stringValue() + " " + name.text();
}

}  // namespace

WatchSession::WatchSession(WatchPost& post, EmbeddedSession& session, vorn::HostRunLoop& loop,
                           const std::string& title)
    : m_post(post), m_session(session), m_loop(loop), m_timers(loop), m_loopBegan(post.now() - loop.now()) {
  const World& world = session.world();
  m_world = {post.now(), seenByWatchers(title), seenByWatchers(world.root().string())};
  post.announce(world.root());
  post.tell(m_world);
}

WatchSession::~WatchSession() {
  if (std::exchange(m_isOver, true)) return;
  if (m_lookingAgain) m_lookingAgain->invalidate();
  m_post.tell(WatchWorldEnd{m_post.now()});
}

void WatchSession::standBetween(vorn::Platform& platform) {
  platform.trace = this;
  platform.runLoop = &m_timers;
  m_hasClient = std::filesystem::exists(m_session.world().clientProgram());
  m_lookingAgain =
      m_loop.scheduledTimer(kPollSeconds, vorn::RunLoop::Repeats::yes, [this](vorn::RunLoop::Timer&) { look(); });
  look();
}

void WatchSession::end() {
  if (m_isOver) return;
  look();
  m_isOver = true;
  if (m_lookingAgain) m_lookingAgain->invalidate();
  m_post.tell(WatchWorldEnd{m_post.now()});
}

// -- What happens ------------------------------------------------------------------------------------------------

void WatchSession::note(std::string_view step, const Value& facts) {
  m_session.trace().note(step, facts);
  // An alert is told with its answer, as the presenter has it.
  if (m_isOver || step == "alert") return;
  remember({m_post.now(), std::string(step), facts, std::nullopt});
}

void WatchSession::noteEnvelope(std::string_view step, Value facts, const vorn::CoveredLater& content) {
  m_session.trace().noteEnvelope(step, facts, content);
  if (m_isOver) return;
  if (content.size() <= kLargestKept) {
    remember({m_post.now(), std::string(step), std::move(facts), content});
  } else {
    facts.set("content", content.coveredAndCut(kBytesAtAGlance));
    remember({m_post.now(), std::string(step), std::move(facts), std::nullopt});
  }
}

void WatchSession::remember(PastStep past) {
  followRequests(past.step, past.facts);
  if (m_post.isWatched()) {
    m_post.tell(stepOf(past));
    lookSoon();
  }
  m_past.push_back(std::move(past));
  if (m_past.size() > kStepsKept) m_past.pop_front();
}

// A command starts its timers, and then sends. A request without any waits for nothing.
void WatchSession::followRequests(std::string_view step, const Value& facts) {
  std::vector<StartedTimer> timers = m_timers.takeStarted();
  if (step == "sent" && !timers.empty()) {
    m_pending.push_back({requestName(facts), m_post.now(), std::move(timers)});
    if (m_pending.size() > kMostPending) m_pending.erase(m_pending.begin());
  } else if (step == "received") {
    // Replies carry no number: it is the oldest of its kind that has been answered.
    const auto answered = std::find_if(m_pending.begin(), m_pending.end(),
                                       [&](const Pending& pending) { return pending.name == replyName(facts); });
    if (answered != m_pending.end()) m_pending.erase(answered);
  }
}

void WatchSession::dropAbandoned() {
  const bool hasWindows = !m_session.host().editors().empty();
  std::erase_if(m_pending, [&](const Pending& pending) {
    return std::none_of(pending.timers.begin(), pending.timers.end(), [&](const StartedTimer& timer) {
      // When its time is over, a request in a window still waits.
      return timer.isRunning() || (hasWindows && timer.isOver(m_loop.now()));
    });
  });
}

void WatchSession::lookSoon() {
  if (std::exchange(m_looksSoon, true)) return;
  m_loop.post([weak = std::weak_ptr(m_self)] {
    const auto self = weak.lock();
    if (!self || (*self)->m_isOver) return;
    (*self)->m_looksSoon = false;
    (*self)->look();
  });
}

// -- What is told ------------------------------------------------------------------------------------------------

void WatchSession::look() {
  m_noticedAt.resize(m_session.presenter().alerts().size(), m_post.now());
  m_noticesSeen = std::min(m_noticesSeen, m_noticedAt.size());
  if (m_post.isWatched()) refresh();
  m_post.serve([this] { return greeting(); });
}

void WatchSession::refresh() {
  tellNotices();
  WatchState now = stateNow();
  if (now.saysTheSameAs(m_state)) return;
  m_state = std::move(now);
  m_post.tell(m_state);
}

void WatchSession::tellNotices() {
  for (; m_noticesSeen < m_noticedAt.size(); ++m_noticesSeen) m_post.tell(noticeAt(m_noticesSeen));
}

std::vector<WatchEvent> WatchSession::greeting() {
  refresh();
  std::vector<WatchEvent> events{m_world, m_state};
  for (const PastStep& past : m_past) {
    WatchStep step = stepOf(past);
    step.isPast = true;
    events.emplace_back(std::move(step));
  }
  for (std::size_t i = m_noticesSeen - std::min(m_noticesSeen, kNoticesKept); i < m_noticesSeen; ++i) {
    WatchNotice notice = noticeAt(i);
    notice.isPast = true;
    events.emplace_back(std::move(notice));
  }
  return events;
}

WatchState WatchSession::stateNow() {
  dropAbandoned();
  WatchState state;
  state.at = m_post.now();
  state.client = !m_hasClient ? "none" : m_session.clientIsRunning() ? "running" : "stopped";
  state.sent = static_cast<std::int64_t>(m_session.trace().sent());
  state.received = static_cast<std::int64_t>(m_session.trace().received());
  for (const OutlookHost::EditorId editor : m_session.host().editors()) state.windows.push_back(windowNow(editor));
  for (const Pending& pending : m_pending) state.pending.push_back(requestNow(pending));
  for (const std::string& sheet : m_session.presenter().progress().open()) {
    state.sheets.push_back(seenByWatchers(sheet));
  }
  for (const auto& shown : m_session.presenter().alerts()) {
    if (!shown.answer) state.sheets.push_back(seenByWatchers(closedUp(shown.alert.message)));
  }
  return state;
}

WatchWindow WatchSession::windowNow(OutlookHost::EditorId editor) {
  OutlookHost& host = m_session.host();
  WatchWindow window;
  window.number = static_cast<std::int64_t>(editor);
  window.subject = seenByWatchers(host.subject(editor));
  window.isDirty = host.isDirty(editor);
  window.bar = "none";
  // For a window without a bar the manager that all windows share would answer.
  if (!host.barView(editor)) return window;
  window.bar = barNow(editor);
  const Value told =
      m_session.ask("window", Value::dictionaryFromPairs({{"editor", host.viewController(editor)}}));
  window.command = numbered(told["action"], told["actionName"]);
  window.state = numbered(told["state"], told["stateName"]);
  window.meeting = seenByWatchers(told["key"].text());
  if (const auto operation = told["hostAction"].integerValue(); operation != 0) {
    window.hostAction = operationName(operation);
  }
  return window;
}

std::string WatchSession::barNow(OutlookHost::EditorId editor) {
  const OutlookHost& host = m_session.host();
  if (host.barControl(editor, "onClickAddVornMeeting:").isShown) return "add";
  return host.barControl(editor, "onClickCancelVornMeeting:").isShown ? "meeting" : "hidden";
}

WatchRequest WatchSession::requestNow(const Pending& pending) const {
  WatchRequest request{pending.name, pending.since, {}};
  for (const StartedTimer& timer : pending.timers) {
    if (!timer.isRunning() && !timer.isOver(m_loop.now())) continue;
    request.timers.push_back({timer.seconds, timer.repeats, m_loopBegan + timer.started + timer.seconds});
  }
  return request;
}

WatchStep WatchSession::stepOf(const PastStep& past) {
  const std::string content =
      past.content ? past.content->coveredAndCut(kBytesAtAGlance) : past.facts["content"].text();
  return {.at = past.at,
          .step = past.step,
          .words = seenByWatchers(wordsOfStep(past.step, past.facts)),
          .content = seenByWatchers(closedUp(content))};
}

WatchNotice WatchSession::noticeAt(std::size_t index) const {
  const auto& shown = m_session.presenter().alerts()[index];
  const auto& buttons = shown.alert.buttons;
  const bool isAnswered = shown.answer && shown.answer->button < buttons.size();
  return {.at = m_noticedAt[index],
          .message = seenByWatchers(closedUp(shown.alert.message)),
          .answer = isAnswered ? seenByWatchers(buttons[shown.answer->button]) : ""};
}

}  // namespace vornlab
