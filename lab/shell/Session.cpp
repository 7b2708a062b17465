#include "lab/shell/Session.h"

#include <csignal>

#include "lab/client/ClientLauncher.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "lab/shell/SystemVersion.h"
#include "platform/embedded/AsioRunLoop.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

constexpr double kLookAgainSeconds = 0.005;

std::filesystem::path bundleOf(const LabOptions& options) {
  return options.bundle.empty() ? options.programs / "vOutlookPlugin.bundle" : options.bundle;
}

vorn::EmbeddedSurroundings::Options resourcesOf(const LabOptions& options) {
  vorn::EmbeddedSurroundings::Options surroundings;
  surroundings.resources = (bundleOf(options) / "Contents/Resources").string();
  return surroundings;
}

}  // namespace

Session::Session(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions)
    : EmbeddedSession(options, hostOptions, std::make_unique<vorn::AsioRunLoop>(), resourcesOf(options)),
      m_notifications(vorn::EmbeddedDistributedNotifications::connect(runLoop())),
      m_workspace(world().root().string(), {world().applications().string()}) {
  if (options.watchPost) m_watch.emplace(*options.watchPost, *this, runLoop(), options.title);
  attempt(&Session::prepareClient);
  host().defineClasses();
  host().open(calendar);
  vorn::Platform platform = commonPlatform();
  platform.workspace = &m_workspace;
  platform.distributedNotifications = m_notifications.get();
  if (m_watch) m_watch->standBetween(platform);
  m_plugin.emplace(bundleOf(options), platform);
  host().openMainWindow();
  if (m_client.id() != 0) attempt(&Session::waitForConnection);
}

Session::~Session() {
  if (m_watch) m_watch->end();
  host().closeMainWindow();
  m_plugin.reset();
}

bool Session::talksByNotifications() const {
  const auto version = parseSystemVersion(options().systemVersion);
  return version && (version->major < 10 || (version->major == 10 && version->minor < 15));
}

void Session::attempt(void (Session::*step)()) {
  try {
    (this->*step)();
  } catch (const UsageError&) {
    throw;
  } catch (const LabError& error) {
    if (!options().goesOnWithoutClient || Interruption::requested()) throw;
    m_clientTrouble = error.what();
  }
}

void Session::prepareClient() {
  if (talksByNotifications() && !m_notifications) {
    throw LabError("on " + options().systemVersion +
                   " the plug-in talks by notifications, and no D-Bus session bus answers");
  }
  m_journalBefore = vorn::readFile(world().journal().string()).value_or("").size();
  if (options().takesFaults) setFaults("");
  if (options().withoutClient) return;
  startClient();
  if (!options().withAgent) return;
  if (!m_notifications) throw LabError("the agent is reached over a D-Bus session bus, and none answers");
  startAgent(m_agent, options(), world(), transport());
}

// Beside the socket the bus carries what is said to the agent.
std::string Session::transport() const {
  if (talksByNotifications()) return "notifications";
  return m_notifications ? "both" : "socket";
}

void Session::startClient() { vornlab::startClient(m_client, options(), world(), transport()); }

bool Session::clientIsRunning() {
  return m_client.isRunning() || (options().withAgent && !processesOf(world().clientProgram()).empty());
}

void Session::endLaunchedClient(int signal) {
  if (!options().withAgent) return;
  for (const pid_t process : processesOf(world().clientProgram())) kill(process, signal);
  waitUntil([this] { return !clientIsRunning(); }, kStartSeconds);
}

void Session::killClient() {
  if (m_client.isRunning()) {
    kill(m_client.id(), SIGKILL);
    waitUntil([this] { return !m_client.isRunning(); }, kStartSeconds);
  }
  endLaunchedClient(SIGKILL);
}

void Session::stopClient() {
  m_client.stop();
  endLaunchedClient(SIGTERM);
}

void Session::restartClient() {
  stopClient();
  startClient();
}

void Session::setFaults(const std::string& rules) {
  if (!options().takesFaults) throw LabError("the client was started without faults");
  // The client counts its replies anew when the file has changed, and the same rules said again are meant anew.
  const std::string heading = "# said " + std::to_string(++m_faultsSaid) + " times\n";
  if (!vorn::replaceFile(world().faults().string(), heading + rules)) {
    throw LabError("cannot write " + world().faults().string());
  }
}

MeetingStore& Session::meetings() {
  if (options().clientDatabase == ":memory:") throw LabError("the meetings are in the client's memory");
  return m_meetings.emplace(options().clientDatabase);
}

void Session::waitForConnection() {
  // A notification needs no connection: the client observes the bus since it has printed its line.
  if (talksByNotifications()) return;
  const double seconds = options().goesOnWithoutClient ? options().timeoutSeconds : kStartSeconds;
  if (!waitUntil([this] { return hasConnected(); }, seconds)) {
    throw LabError("the plug-in did not connect to the client");
  }
}

bool Session::hasConnected() const {
  return vorn::readFile(world().journal().string())
             .value_or("")
             .find("\"event\":\"connected\"", m_journalBefore) != std::string::npos;
}

vorn::Value Session::ask(const std::string& question, const vorn::Value& parameters) {
  return m_plugin->answer(question, parameters);
}

bool Session::waitUntil(const std::function<bool()>& condition, double seconds) {
  // The loop asks after each of its tasks only, and what is waited for may happen outside it.
  const auto lookAgain =
      runLoop().scheduledTimer(kLookAgainSeconds, vorn::RunLoop::Repeats::yes, [](vorn::RunLoop::Timer&) {});
  const bool holds = runLoop().runUntil([&] { return Interruption::requested() || condition(); }, seconds);
  lookAgain->invalidate();
  if (Interruption::requested()) throw Interrupted("interrupted");
  return holds;
}

}  // namespace vornlab
