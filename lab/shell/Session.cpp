#include "lab/shell/Session.h"

#include <csignal>
#include <cstdio>

#include "lab/client/Account.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

constexpr auto kHostDomain = "com.microsoft.Outlook";
// What a start may take on a machine that is busy with other things.
constexpr double kStartSeconds = 20;
constexpr double kLookAgainSeconds = 0.005;

std::string userIdOf(const LabOptions& options) {
  try {
    return (options.account.empty() ? Account::plain() : Account::fromFile(options.account.string())).userId;
  } catch (const AccountError& error) {
    throw UsageError(error.what());
  }
}

World::Options worldOptions(const LabOptions& options) {
  World::Options world;
  world.folder = options.world;
  world.keep = options.keepWorld;
  if (!options.withoutClient) world.client = options.programs / "vornclient.app";
  world.clientVersion = options.clientVersion;
  world.userId = userIdOf(options);
  world.panelIsOff = options.panelIsOff;
  world.mayBeTooLongForSocket = options.goesOnWithoutClient;
  return world;
}

std::filesystem::path bundleOf(const LabOptions& options) {
  return options.bundle.empty() ? options.programs / "vOutlookPlugin.bundle" : options.bundle;
}

vorn::EmbeddedSurroundings::Options surroundingsOptions(const World& world, const LabOptions& options) {
  vorn::EmbeddedSurroundings::Options surroundings;
  surroundings.home = world.home().string();
  surroundings.documents = world.documents().string();
  surroundings.applications = world.applications().string();
  surroundings.resources = (bundleOf(options) / "Contents/Resources").string();
  surroundings.languages = {"en-US"};
  surroundings.systemVersion = parseSystemVersion(options.systemVersion).value_or(surroundings.systemVersion);
  return surroundings;
}

}  // namespace

std::optional<vorn::Surroundings::Version> parseSystemVersion(const std::string& text) {
  vorn::Surroundings::Version version;
  int length = 0;
  const int read =
      std::sscanf(text.c_str(), "%4d.%4d.%4d%n", &version.major, &version.minor, &version.patch, &length);
  if (read != 3 || static_cast<std::size_t>(length) != text.size()) return std::nullopt;
  return version;
}

Session::Session(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions)
    : m_options(options),
      m_world(worldOptions(options)),
      m_notifications(vorn::EmbeddedDistributedNotifications::connect(m_runLoop)),
      m_userDefaults(m_world.preferences().string(), kHostDomain),
      m_workspace(m_world.root().string(), {m_world.applications().string()}),
      m_surroundings(surroundingsOptions(m_world, options)),
      m_presenter(m_runtime),
      m_host(m_runtime, m_runLoop, m_center, hostOptions) {
  // Where an alert offers to start the client, the person declines.
  m_presenter.setAnswer(vorn::Presenter::Answer::alternateButton);
  attempt(&Session::prepareClient);
  m_host.defineClasses();
  m_host.open(calendar);
  m_plugin.emplace(bundleOf(options), platform());
  m_host.openMainWindow();
  if (m_client.id() != 0) attempt(&Session::waitForConnection);
}

Session::~Session() {
  m_host.closeMainWindow();
  m_plugin.reset();
}

vorn::Platform Session::platform() {
  vorn::Platform platform;
  platform.runLoop = &m_runLoop;
  platform.notificationCenter = &m_center;
  platform.classRuntime = &m_runtime;
  platform.userDefaults = &m_userDefaults;
  platform.workspace = &m_workspace;
  platform.presenter = &m_presenter;
  platform.surroundings = &m_surroundings;
  platform.distributedNotifications = m_notifications.get();
  platform.trace = &m_trace;
  return platform;
}

bool Session::talksByNotifications() const {
  const auto version = parseSystemVersion(m_options.systemVersion);
  return version && (version->major < 10 || (version->major == 10 && version->minor < 15));
}

void Session::attempt(void (Session::*step)()) {
  try {
    (this->*step)();
  } catch (const UsageError&) {
    throw;
  } catch (const LabError& error) {
    if (!m_options.goesOnWithoutClient || Interruption::requested()) throw;
    m_clientTrouble = error.what();
  }
}

void Session::prepareClient() {
  if (talksByNotifications() && !m_notifications) {
    throw LabError("on " + m_options.systemVersion +
                   " the plug-in talks by notifications, and no D-Bus session bus answers");
  }
  m_journalBefore = vorn::readFile(m_world.journal().string()).value_or("").size();
  if (!m_options.withoutClient) startClient();
}

void Session::startClient() {
  const std::filesystem::path database = m_options.clientDatabase;
  std::vector<std::string> arguments{"--home", m_world.home(), "--db", database, "--journal", m_world.journal()};
  // Beside the socket the bus carries what is said to the agent.
  const char* const transport = talksByNotifications() ? "notifications" : m_notifications ? "both" : "socket";
  arguments.insert(arguments.end(), {"--transport", transport});
  if (!m_options.account.empty()) arguments.insert(arguments.end(), {"--account", m_options.account});
  arguments.insert(arguments.end(), m_options.clientArguments.begin(), m_options.clientArguments.end());
  if (database.has_parent_path()) {
    std::error_code failed;
    std::filesystem::create_directories(database.parent_path(), failed);
    if (failed) throw LabError("cannot make the folder of " + database.string() + ": " + failed.message());
  }
  m_client.start(m_world.clientProgram(), arguments, m_world.clientErrors(), kStartSeconds);
}

void Session::killClient() {
  kill(m_client.id(), SIGKILL);
  waitUntil([this] { return !m_client.isRunning(); }, kStartSeconds);
}

void Session::stopClient() { m_client.stop(); }

void Session::restartClient() {
  m_client.stop();
  startClient();
}

void Session::waitForConnection() {
  // A notification needs no connection: the client observes the bus since it has printed its line.
  if (talksByNotifications()) return;
  const double seconds = m_options.goesOnWithoutClient ? m_options.timeoutSeconds : kStartSeconds;
  if (!waitUntil([this] { return hasConnected(); }, seconds)) {
    throw LabError("the plug-in did not connect to the client");
  }
}

bool Session::hasConnected() const {
  return vorn::readFile(m_world.journal().string())
             .value_or("")
             .find("\"event\":\"connected\"", m_journalBefore) != std::string::npos;
}

vorn::Value Session::ask(const std::string& question, const vorn::Value& parameters) {
  return m_plugin->answer(question, parameters);
}

void Session::saveInProfile(const std::string& key, const std::string& value) {
  m_world.saveChoice(userIdOf(m_options), key, value);
}

void Session::saveInUserDefaults(const std::string& key, const std::string& value) {
  m_userDefaults.setObject(World::valueOfChoice(value), key);
  m_userDefaults.synchronize();
}

bool Session::waitUntil(const std::function<bool()>& condition, double seconds) {
  // The loop asks after each of its tasks only, and what is waited for may happen outside it.
  const auto lookAgain =
      m_runLoop.scheduledTimer(kLookAgainSeconds, vorn::RunLoop::Repeats::yes, [](vorn::RunLoop::Timer&) {});
  const bool holds = m_runLoop.runUntil([&] { return Interruption::requested() || condition(); }, seconds);
  lookAgain->invalidate();
  if (Interruption::requested()) throw LabError("interrupted; nothing was written");
  return holds;
}

void Session::passTime(double seconds) {
  bool isOver = false;
  m_runLoop.performAfter(seconds, this, "passTime", [&isOver] { isOver = true; });
  waitUntil([&isOver] { return isOver; }, seconds + kStartSeconds);
  m_runLoop.cancelPrevious(this);
}

Session::Quiet Session::waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds) {
  const auto isAnswered = [&] { return m_trace.sent() - sentBefore <= m_trace.received() - receivedBefore; };
  const double deadline = m_runLoop.now() + seconds;
  while (true) {
    const auto isOver = [&] { return isAnswered() || !m_client.isRunning(); };
    if (!waitUntil(isOver, deadline - m_runLoop.now())) return Quiet::timeout;
    if (!isAnswered()) return Quiet::clientGone;
    // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
    passTime(0);
    passTime(0);
    if (isAnswered()) return Quiet::reached;
  }
}

}  // namespace vornlab
