#include "lab/shell/ClientSide.h"

#include <csignal>
#include <utility>

#include "lab/client/ClientLauncher.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "lab/shell/SystemVersion.h"
#include "util/AtomicFile.h"

namespace vornlab {

ClientSide::ClientSide(LabOptions options, const World& world, WaitUntil waitUntil)
    : m_options(std::move(options)), m_world(world), m_waitUntil(std::move(waitUntil)) {}

bool ClientSide::talksByNotifications() const {
  const auto version = parseSystemVersion(m_options.systemVersion);
  return version && (version->major < 10 || (version->major == 10 && version->minor < 15));
}

void ClientSide::prepare(bool hasBus) {
  m_hasBus = hasBus;
  if (talksByNotifications() && !hasBus) {
    throw LabError("on " + m_options.systemVersion +
                   " the plug-in talks by notifications, and no D-Bus session bus answers");
  }
  m_journalBefore = vorn::readFile(m_world.journal().string()).value_or("").size();
  if (m_options.takesFaults) setFaults("");
  if (m_options.withoutClient) return;
  start();
  if (!m_options.withAgent) return;
  if (!hasBus) throw LabError("the agent is reached over a D-Bus session bus, and none answers");
  startAgent(m_agent, m_options, m_world, transport());
}

// Beside the socket the bus carries what is said to the agent.
std::string ClientSide::transport() const {
  if (talksByNotifications()) return "notifications";
  return m_hasBus ? "both" : "socket";
}

void ClientSide::start() { startClient(m_client, m_options, m_world, transport()); }

bool ClientSide::isRunning() {
  return m_client.isRunning() || (m_options.withAgent && !processesOf(m_world.clientProgram()).empty());
}

void ClientSide::endLaunchedClient(int signal) {
  if (!m_options.withAgent) return;
  for (const pid_t process : processesOf(m_world.clientProgram())) ::kill(process, signal);
  m_waitUntil([this] { return !isRunning(); }, kStartSeconds);
}

void ClientSide::kill() {
  if (m_client.isRunning()) {
    ::kill(m_client.id(), SIGKILL);
    m_waitUntil([this] { return !m_client.isRunning(); }, kStartSeconds);
  }
  endLaunchedClient(SIGKILL);
}

void ClientSide::stop() {
  m_client.stop();
  endLaunchedClient(SIGTERM);
}

void ClientSide::restart() {
  stop();
  start();
}

void ClientSide::setFaults(const std::string& rules) {
  if (!m_options.takesFaults) throw LabError("the client was started without faults");
  // The client counts its replies anew when the file has changed, and the same rules said again are meant anew.
  const std::string heading = "# said " + std::to_string(++m_faultsSaid) + " times\n";
  if (!vorn::replaceFile(m_world.faults().string(), heading + rules)) {
    throw LabError("cannot write " + m_world.faults().string());
  }
}

MeetingStore& ClientSide::meetings() {
  if (m_options.clientDatabase == ":memory:") throw LabError("the meetings are in the client's memory");
  return m_meetings.emplace(m_options.clientDatabase);
}

void ClientSide::waitForConnection(double seconds) const {
  // A notification needs no connection: the client observes the bus since it has printed its line.
  if (talksByNotifications() || m_client.id() == 0) return;
  if (!m_waitUntil([this] { return hasConnected(); }, seconds)) {
    throw LabError("the plug-in did not connect to the client");
  }
}

bool ClientSide::hasConnected() const {
  return vorn::readFile(m_world.journal().string())
             .value_or("")
             .find("\"event\":\"connected\"", m_journalBefore) != std::string::npos;
}

}  // namespace vornlab
