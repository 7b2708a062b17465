#include "lab/client/NotificationTransport.h"

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

constexpr auto kRequest = "VornOutlookPluginToVornVideoClient";
constexpr auto kReply = "VornVideoClientToVornOutlookPlugin";
constexpr auto kActivationParameter = "Param_ActivateVornApplicationExternally";
// What the client would act on, and is only seen to hear of here.
constexpr std::array kHeard = {"Noti_SilentActiveVornApp", "Noti_ActivateVornApplicationExternally"};

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

NotificationTransport::NotificationTransport(Service& service, Journal& journal, FaultBook faults, bool playsAgent)
    : m_journal(journal), m_desk(service, journal, std::move(faults)) {
  if (playsAgent) m_agent.emplace(journal, service.versionAnswer().content);
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
  m_bus = std::make_unique<NotificationBus>();
  epoll_event event{};
  event.events = EPOLLIN;
  ::epoll_ctl(m_waiting, EPOLL_CTL_ADD, m_bus->awaited().descriptor, &event);
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
  } catch (const NotificationError&) {
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
  } else if (Agent::isMeant(name)) {
    if (m_agent) m_agent->take(name, *m_bus);
    // Who asks over the bus and talks over another way hears it there from the client itself.
    if (name == Agent::kVersionQuestion && m_versionAsked) m_versionAsked();
  } else if (std::find(kHeard.begin(), kHeard.end(), name) != kHeard.end()) {
    nlohmann::json members = {{"name", name}};
    const auto parameter = userInfo.find(kActivationParameter);
    if (parameter != userInfo.end()) members["content"] = coveredRequest({0, parameter->second});
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

void NotificationTransport::sendDue() {
  for (; !m_outgoing.empty() && m_outgoing.front().due <= Clock::now(); m_outgoing.pop_front()) {
    // As a crash does it: nothing is tidied up.
    if (m_outgoing.front().end == Delivery::End::die) ::raise(SIGKILL);
    m_bus->send(kReply, m_outgoing.front().envelope);
  }
}

void NotificationTransport::watchBus() {
  const auto awaited = m_bus->awaited();
  epoll_event event{};
  event.events = static_cast<std::uint32_t>(awaited.events);
  ::epoll_ctl(m_waiting, EPOLL_CTL_MOD, awaited.descriptor, &event);
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
