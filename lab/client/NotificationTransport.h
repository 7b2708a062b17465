#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "lab/client/Desk.h"
#include "lab/client/Faults.h"
#include "lab/client/Journal.h"
#include "lab/client/Service.h"

namespace vornlab {

// A bus that cannot be joined. The message says why.
class NotificationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The service over distributed notifications, without a thread of its own: what the client and the agent observe
// and post.
//
// On the wire a notification is the signal "Posted" of the interface us.vorn.DistributedNotifications on the D-Bus
// session bus, sent from the object /us/vorn/DistributedNotifications with the signature "sba{ss}": the name,
// whether there is a dictionary, and the dictionary, empty where there is none.
//
// A notification comes whole or not at all, so faults that spoil a stream of bytes (split, glue, truncate,
// not-utf8) leave a reply as it is, and those that end a connection (close, restart) keep it back.
class NotificationTransport {
 public:
  // The service and the journal must outlive the transport.
  NotificationTransport(Service& service, Journal& journal, FaultBook faults);
  ~NotificationTransport();
  NotificationTransport(const NotificationTransport&) = delete;
  NotificationTransport& operator=(const NotificationTransport&) = delete;

  // Joins the session bus of the environment. Throws NotificationError.
  void connect();

  // Readable when serve() has something to do.
  int descriptor() const { return m_waiting; }
  // Takes what has come in and sends what is due. When the bus has gone, nothing comes and goes any more.
  void serve();

  // Is handed each answer to the question for the version, for others who have asked and do not observe it here.
  void onVersionAnswer(std::function<void(const Envelope&)> handler) { m_versionAnswered = std::move(handler); }

 private:
  using Clock = std::chrono::steady_clock;
  using Texts = std::map<std::string, std::string>;
  class Bus;

  struct Outgoing {
    Envelope envelope;
    Clock::time_point due;
    Delivery::End end = Delivery::End::none;
  };

  void take(const std::string& name, const Texts& userInfo);
  void takeRequest(const Texts& userInfo);
  void queue(const Envelope& reply, const std::vector<Fault>& faults);
  void answerVersion();
  void send(const char* name, const Envelope& envelope);
  void sendDue();
  void watchBus();
  void setTimer();

  Service& m_service;
  Journal& m_journal;
  Desk m_desk;
  std::function<void(const Envelope&)> m_versionAnswered;
  int m_timer = -1;
  int m_waiting = -1;  // an epoll of the bus and the timer
  std::unique_ptr<Bus> m_bus;
  std::deque<Outgoing> m_outgoing;
};

}  // namespace vornlab
