#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "lab/client/Desk.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

// The stand-in client in this process, on the run loop's clock: the service, the faults and the journal of the
// program, with connections of function calls in the place of its socket.
class InProcessClient {
 public:
  // Takes the bytes of one piece that has arrived.
  using Read = std::function<void(const std::string& bytes)>;
  // Answers whether the request still reaches the client.
  using Incident = std::function<bool()>;
  // What arrives in the place of a reply.
  using Spoiling = std::function<std::string(const Envelope& reply)>;

  // What a reply takes on its way.
  static constexpr double kAnswerSeconds = 0.05;

  InProcessClient(vorn::HostRunLoop& runLoop, Account account, Service::Options options,
                  const std::string& journal);
  ~InProcessClient();
  InProcessClient(const InProcessClient&) = delete;
  InProcessClient& operator=(const InProcessClient&) = delete;

  Service& service() { return m_service; }
  bool isRunning() const { return m_isRunning; }
  void start() { m_isRunning = true; }
  // What has gone out by then arrives all the same.
  void end();
  // In the language of the program's faults. Throws FaultError.
  void setFaults(const std::string& rules);
  // Happens when the n-th request from now, counted from 1, is on its way.
  void setIncident(std::size_t request, Incident incident);

  // For every reply to this action from now on.
  void setSpoiling(std::uint32_t action, Spoiling spoiling);

  // The requests so far, in order.
  const std::vector<Envelope>& requests() const { return m_requests; }
  // "6", "9", "3/1": the action, and the inner operation of a meeting request.
  std::vector<std::string> requestNames() const;
  void forgetRequests();

  // -- The other end of a connection

  // A connection's number, or 0 when nobody listens.
  int accept(Read read);
  void hangUp(int connection);
  void take(int connection, const std::string& message);

 private:
  struct Connection {
    int id = 0;
    Read read;
    std::string glued;
    double lastDue = 0;
  };

  void queue(const std::shared_ptr<Connection>& connection, const Desk::Answer& answer);
  void close(int connection);

  vorn::HostRunLoop& m_runLoop;
  Service m_service;
  Journal m_journal;
  Desk m_desk;
  bool m_isRunning = false;
  // Counts the lives of the client: what one life holds back goes with it.
  int m_life = 0;
  int m_lastId = 0;
  std::map<int, std::shared_ptr<Connection>> m_connections;
  std::vector<Envelope> m_requests;
  std::map<std::size_t, Incident> m_incidents;
  std::map<std::uint32_t, Spoiling> m_spoilings;
};

}  // namespace vornlab
