#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/client/Agent.h"
#include "lab/client/Desk.h"
#include "lab/client/Faults.h"
#include "lab/client/Journal.h"
#include "lab/client/NotificationBus.h"
#include "lab/client/Service.h"

namespace vornlab {

// The service over distributed notifications, without a thread of its own: what the client observes and posts, and
// the agent as well where that is no program of its own.
//
// A notification comes whole or not at all, so faults that spoil a stream of bytes (split, glue, truncate,
// not-utf8) leave a reply as it is, and those that end a connection (close, restart) keep it back.
class NotificationTransport {
 public:
  // The service and the journal must outlive the transport.
  NotificationTransport(Service& service, Journal& journal, FaultBook faults, bool playsAgent);
  ~NotificationTransport();
  NotificationTransport(const NotificationTransport&) = delete;
  NotificationTransport& operator=(const NotificationTransport&) = delete;

  // Joins the session bus of the environment. Throws NotificationError.
  void connect();

  // Readable when serve() has something to do.
  int descriptor() const { return m_waiting; }
  // Takes what has come in and sends what is due. When the bus has gone, nothing comes and goes any more.
  void serve();

  // Is called for each question for the version, for others who have asked and do not observe the answer here.
  void onVersionQuestion(std::function<void()> handler) { m_versionAsked = std::move(handler); }

 private:
  using Clock = std::chrono::steady_clock;
  using Texts = NotificationBus::Texts;

  struct Outgoing {
    Envelope envelope;
    Clock::time_point due;
    Delivery::End end = Delivery::End::none;
  };

  void take(const std::string& name, const Texts& userInfo);
  void takeRequest(const Texts& userInfo);
  void queue(const Envelope& reply, const std::vector<Fault>& faults);
  void sendDue();
  void watchBus();
  void setTimer();

  Journal& m_journal;
  Desk m_desk;
  std::optional<Agent> m_agent;
  std::function<void()> m_versionAsked;
  int m_timer = -1;
  int m_waiting = -1;  // an epoll of the bus and the timer
  std::unique_ptr<NotificationBus> m_bus;
  std::deque<Outgoing> m_outgoing;
};

}  // namespace vornlab
