#include "lab/inprocess/InProcessClient.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vornlab {

InProcessClient::InProcessClient(vorn::HostRunLoop& runLoop, Account account, Service::Options options,
                                 const std::string& journal)
    : m_runLoop(runLoop),
      m_service(std::move(account), std::move(options)),
      m_journal(journal),
      m_desk(m_service, m_journal, {}) {}

InProcessClient::~InProcessClient() { m_runLoop.cancelPrevious(this); }

void InProcessClient::end() {
  m_isRunning = false;
  ++m_life;
  m_connections.clear();
}

void InProcessClient::setFaults(const std::string& rules) {
  m_desk.setFaults(FaultBook::fromText(rules, "the faults"));
}

void InProcessClient::setIncident(std::size_t request, Incident incident) {
  m_incidents[m_requests.size() + request] = std::move(incident);
}

void InProcessClient::setSpoiling(std::uint32_t action, Spoiling spoiling) {
  m_spoilings[action] = std::move(spoiling);
}

std::vector<std::string> InProcessClient::requestNames() const {
  std::vector<std::string> names;
  for (const Envelope& request : m_requests) {
    std::string name = std::to_string(request.action);
    if (request.action == action::kMeetings) {
      name += "/" + std::to_string(Service::operationOf(request));
    }
    names.push_back(name);
  }
  return names;
}

void InProcessClient::forgetRequests() {
  m_requests.clear();
  m_incidents.clear();
}

int InProcessClient::accept(Read read) {
  if (!m_isRunning) return 0;
  const auto connection = std::make_shared<Connection>();
  connection->id = ++m_lastId;
  connection->read = std::move(read);
  m_connections[connection->id] = connection;
  m_journal.note("connected", {{"connection", connection->id}});
  return connection->id;
}

void InProcessClient::hangUp(int connection) {
  const auto found = m_connections.find(connection);
  if (found == m_connections.end()) return;
  found->second->read = nullptr;
  close(connection);
}

void InProcessClient::close(int connection) {
  if (m_connections.erase(connection) > 0) m_journal.note("closed", {{"connection", connection}});
}

void InProcessClient::take(int connection, const std::string& message) {
  const auto found = m_connections.find(connection);
  if (found == m_connections.end()) return;
  // An incident may end the connection; what is taken in by then is answered all the same.
  const std::shared_ptr<Connection> held = found->second;
  const std::optional<Envelope> request = fromText(message);
  const nlohmann::json way = {{"connection", connection}};
  if (!request) {
    m_journal.note("malformed", way);
    return;
  }
  m_requests.push_back(*request);
  const auto incident = m_incidents.find(m_requests.size());
  if (incident != m_incidents.end() && !incident->second()) return;
  for (const Desk::Answer& answer : m_desk.take(*request, message.size(), way, way)) queue(held, answer);
}

void InProcessClient::queue(const std::shared_ptr<Connection>& connection, const Desk::Answer& answer) {
  Delivery delivery = deliveryOf(answer.reply, answer.faults);
  const auto spoiling = m_spoilings.find(answer.reply.action);
  if (spoiling != m_spoilings.end()) delivery.pieces = {spoiling->second(answer.reply)};
  if (delivery.glue) {
    for (const std::string& piece : delivery.pieces) connection->glued += piece;
    return;
  }
  const double heldBackSeconds = static_cast<double>(delivery.delayMilliseconds) / 1000;
  // In their order: what is held back holds up what follows.
  connection->lastDue = std::max(connection->lastDue, m_runLoop.now() + heldBackSeconds + kAnswerSeconds);
  const auto later = [&](std::function<void()> happens) {
    m_runLoop.performAfter(connection->lastDue - m_runLoop.now(), this, "reply",
                           [this, isHeldBack = heldBackSeconds > 0, life = m_life, happens = std::move(happens)] {
                             if (!isHeldBack || life == m_life) happens();
                           });
  };
  switch (delivery.end) {
    case Delivery::End::none: break;
    case Delivery::End::close: return later([this, id = connection->id] { close(id); });
    case Delivery::End::die: return later([this] { end(); });
    case Delivery::End::restart:
      return later([this] {
        while (!m_connections.empty()) close(m_connections.begin()->first);
      });
  }
  if (delivery.pieces.empty()) return;
  delivery.pieces.front().insert(0, std::exchange(connection->glued, ""));
  for (const std::string& piece : delivery.pieces) {
    later([connection, piece] {
      if (connection->read) connection->read(piece);
    });
  }
}

}  // namespace vornlab
