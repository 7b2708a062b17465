#include "lab/client/NotificationTransport.h"

#include <sdbus-c++/sdbus-c++.h>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <utility>

namespace vornlab {
namespace {

using std::chrono::microseconds;

constexpr auto kPath = "/us/vorn/DistributedNotifications";
constexpr auto kInterface = "us.vorn.DistributedNotifications";
constexpr auto kSignal = "Posted";
constexpr auto kMatchRule = "type='signal',interface='us.vorn.DistributedNotifications',member='Posted'";

constexpr auto kRequest = "VornOutlookPluginToVornVideoClient";
constexpr auto kReply = "VornVideoClientToVornOutlookPlugin";
constexpr auto kVersionQuestion = "VornOutlookPlugin.GetClientVersion";
constexpr auto kVersionAnswer = "vOutlookPluginAgentToVOutlookPlugin";
constexpr auto kActivationParameter = "Param_ActivateVornApplicationExternally";
// What the client and the agent would act on, and are only seen to hear of here.
constexpr std::array kHeard = {"VornOutlookPlugin.LaunchClient", "VornOutlookPlugin.OpenAboutDialog",
                               "Noti_SilentActiveVornApp", "Noti_ActivateVornApplicationExternally"};

std::optional<Envelope> envelopeOf(const std::map<std::string, std::string>& texts) {
  const auto action = texts.find("actionId");
  const auto content = texts.find("content");
  if (action == texts.end() || content == texts.end()) return std::nullopt;
  Envelope envelope{0, content->second};
  const char* const digits = action->second.data();
  if (std::from_chars(digits, digits + action->second.size(), envelope.action).ec != std::errc{}) {
    return std::nullopt;
  }
  return envelope;
}

bool spoilsAStream(const Fault& fault) {
  switch (fault.kind) {
    case FaultKind::split:
    case FaultKind::splitEvery:
    case FaultKind::glue:
    case FaultKind::truncate:
    case FaultKind::notUtf8: return true;
    default: return false;
  }
}

}  // namespace

// One connection to the bus. Every operation throws sdbus::Error when the bus has gone.
class NotificationTransport::Bus {
 public:
  struct Notification {
    std::string name;
    bool hasUserInfo = false;
    Texts userInfo;
  };

  Bus()
      : m_connection(sdbus::createSessionBusConnection()),
        m_sender(sdbus::createObject(*m_connection, kPath)),
        m_match(m_connection->addMatch(kMatchRule, [this](sdbus::Message& message) { receive(message); })) {}

  // The next one that has come in, or nothing for now.
  std::optional<Notification> next() {
    while (!m_arrived && m_connection->processPendingRequest()) {
    }
    return std::exchange(m_arrived, std::nullopt);
  }

  void send(const std::string& name, const Texts& userInfo) {
    m_sender->emitSignal(kSignal).onInterface(kInterface).withArguments(name, true, userInfo);
  }

  // What to wait for, as poll() has it, and where.
  sdbus::IConnection::PollData awaited() const { return m_connection->getEventLoopPollData(); }

 private:
  void receive(sdbus::Message& message) {
    try {
      Notification notification;
      message >> notification.name >> notification.hasUserInfo >> notification.userInfo;
      m_arrived = std::move(notification);
    } catch (const sdbus::Error&) {
      // A signal with other arguments.
    }
  }

  std::optional<Notification> m_arrived;
  std::unique_ptr<sdbus::IConnection> m_connection;
  std::unique_ptr<sdbus::IObject> m_sender;
  sdbus::Slot m_match;
};

NotificationTransport::NotificationTransport(Service& service, Journal& journal, FaultBook faults)
    : m_service(service), m_journal(journal), m_desk(service, journal, std::move(faults)) {
  m_timer = ::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
  m_waiting = ::epoll_create1(EPOLL_CLOEXEC);
  epoll_event event{};
  event.events = EPOLLIN;
  if (m_timer < 0 || m_waiting < 0 || ::epoll_ctl(m_waiting, EPOLL_CTL_ADD, m_timer, &event) != 0) {
    throw NotificationError(std::string("no timer: ") + std::strerror(errno));
  }
}

NotificationTransport::~NotificationTransport() {
  m_bus.reset();
  ::close(m_waiting);
  ::close(m_timer);
}

void NotificationTransport::connect() {
  try {
    m_bus = std::make_unique<Bus>();
    epoll_event event{};
    event.events = EPOLLIN;
    ::epoll_ctl(m_waiting, EPOLL_CTL_ADD, m_bus->awaited().fd, &event);
  } catch (const sdbus::Error& error) {
    throw NotificationError("no session bus can be joined: " + error.getMessage());
  }
  m_journal.note("joined", nlohmann::json::object());
  // Joining may have taken in some already.
  serve();
}

void NotificationTransport::serve() {
  if (!m_bus) return;
  try {
    sendDue();
    while (const auto notification = m_bus->next()) {
      take(notification->name, notification->userInfo);
      sendDue();
    }
    watchBus();
  } catch (const sdbus::Error&) {
    m_journal.note("left", nlohmann::json::object());
    // With it goes its place in the epoll.
    m_bus.reset();
    m_outgoing.clear();
  }
  setTimer();
}

void NotificationTransport::take(const std::string& name, const Texts& userInfo) {
  if (name == kRequest) {
    takeRequest(userInfo);
  } else if (name == kVersionQuestion) {
    m_journal.note("notification", {{"name", name}});
    answerVersion();
  } else if (std::find(kHeard.begin(), kHeard.end(), name) != kHeard.end()) {
    nlohmann::json members = {{"name", name}};
    const auto parameter = userInfo.find(kActivationParameter);
    if (parameter != userInfo.end()) members["content"] = maskedRequest({0, parameter->second});
    m_journal.note("notification", std::move(members));
  }
}

void NotificationTransport::takeRequest(const Texts& userInfo) {
  const auto request = envelopeOf(userInfo);
  if (!request) {
    m_journal.note("malformed", {{"name", kRequest}});
    return;
  }
  for (const Desk::Answer& answer :
       m_desk.take(*request, request->content.size(), {{"name", kRequest}}, {{"name", kReply}})) {
    queue(answer.reply, answer.faults);
  }
}

void NotificationTransport::queue(const Envelope& reply, const std::vector<Fault>& faults) {
  std::vector<Fault> ours;
  std::remove_copy_if(faults.begin(), faults.end(), std::back_inserter(ours), spoilsAStream);
  const Delivery delivery = deliveryOf(reply, ours);
  const auto due = Clock::now() + std::chrono::milliseconds(delivery.delayMilliseconds);
  if (delivery.end == Delivery::End::die) m_outgoing.push_back({{}, due, delivery.end});
  // Nothing has cut the text, so each piece is an envelope.
  for (const auto& piece : delivery.pieces) {
    if (const auto envelope = fromText(piece)) m_outgoing.push_back({*envelope, due});
  }
}

void NotificationTransport::answerVersion() {
  const Envelope answer = m_service.versionAnswer();
  m_journal.note("reply", {{"name", kVersionAnswer},
                           {"action", answer.action},
                           {"bytes", answer.content.size()},
                           {"micros", 0},
                           {"content", answer.content}});
  // The agent is another program: a reply of the client's that is held back does not hold this up.
  send(kVersionAnswer, answer);
  if (m_versionAnswered) m_versionAnswered(answer);
}

void NotificationTransport::send(const char* name, const Envelope& envelope) {
  m_bus->send(name, {{"actionId", std::to_string(envelope.action)}, {"content", envelope.content}});
}

void NotificationTransport::sendDue() {
  for (; !m_outgoing.empty() && m_outgoing.front().due <= Clock::now(); m_outgoing.pop_front()) {
    // As a crash does it: nothing is tidied up.
    if (m_outgoing.front().end == Delivery::End::die) ::raise(SIGKILL);
    send(kReply, m_outgoing.front().envelope);
  }
}

// What does not fit into the bus at once goes out when it can be written again.
void NotificationTransport::watchBus() {
  const auto awaited = m_bus->awaited();
  epoll_event event{};
  event.events = static_cast<std::uint32_t>(awaited.events);
  ::epoll_ctl(m_waiting, EPOLL_CTL_MOD, awaited.fd, &event);
}

void NotificationTransport::setTimer() {
  itimerspec next{};
  if (!m_outgoing.empty()) {
    const auto left = std::max<Clock::duration>(m_outgoing.front().due - Clock::now(), microseconds(1));
    const auto whole = std::chrono::duration_cast<std::chrono::seconds>(left);
    next.it_value.tv_sec = static_cast<time_t>(whole.count());
    next.it_value.tv_nsec = static_cast<long>(std::chrono::nanoseconds(left - whole).count());
  }
  ::timerfd_settime(m_timer, 0, &next, nullptr);
}

}  // namespace vornlab
