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

vorn::EmbeddedSurroundings::Options surroundingsOptions(const World& world, const LabOptions& options) {
  vorn::EmbeddedSurroundings::Options surroundings;
  surroundings.home = world.home().string();
  surroundings.documents = world.documents().string();
  surroundings.applications = world.applications().string();
  surroundings.resources = (options.programs / "vOutlookPlugin.bundle/Contents/Resources").string();
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
    : options_(options),
      world_(worldOptions(options)),
      notifications_(vorn::EmbeddedDistributedNotifications::connect(runLoop_)),
      userDefaults_(world_.preferences().string(), kHostDomain),
      workspace_(world_.root().string(), {world_.applications().string()}),
      surroundings_(surroundingsOptions(world_, options)),
      presenter_(runtime_),
      host_(runtime_, runLoop_, center_, hostOptions) {
  // Where an alert offers to start the client, the person declines.
  presenter_.setAnswer(vorn::Presenter::Answer::alternateButton);
  attempt(&Session::prepareClient);
  host_.defineClasses();
  host_.open(calendar);
  plugin_.emplace(options.programs / "vOutlookPlugin.bundle", platform());
  host_.openMainWindow();
  if (client_.id() != 0) attempt(&Session::waitForConnection);
}

Session::~Session() {
  host_.closeMainWindow();
  plugin_.reset();
}

vorn::Platform Session::platform() {
  vorn::Platform platform;
  platform.runLoop = &runLoop_;
  platform.notificationCenter = &center_;
  platform.classRuntime = &runtime_;
  platform.userDefaults = &userDefaults_;
  platform.workspace = &workspace_;
  platform.presenter = &presenter_;
  platform.surroundings = &surroundings_;
  platform.distributedNotifications = notifications_.get();
  platform.trace = &trace_;
  return platform;
}

bool Session::talksByNotifications() const {
  const auto version = parseSystemVersion(options_.systemVersion);
  return version && (version->major < 10 || (version->major == 10 && version->minor < 15));
}

void Session::attempt(void (Session::*step)()) {
  try {
    (this->*step)();
  } catch (const UsageError&) {
    throw;
  } catch (const LabError& error) {
    if (!options_.goesOnWithoutClient || Interruption::requested()) throw;
    clientTrouble_ = error.what();
  }
}

void Session::prepareClient() {
  if (talksByNotifications() && !notifications_) {
    throw LabError("on " + options_.systemVersion +
                   " the plug-in talks by notifications, and no D-Bus session bus answers");
  }
  journalBefore_ = vorn::readFile(world_.journal().string()).value_or("").size();
  if (!options_.withoutClient) startClient();
}

void Session::startClient() {
  const std::filesystem::path database = options_.clientDatabase;
  std::vector<std::string> arguments{"--home", world_.home(), "--db", database, "--journal", world_.journal()};
  // Beside the socket the bus carries what is said to the agent.
  const char* const transport = talksByNotifications() ? "notifications" : notifications_ ? "both" : "socket";
  arguments.insert(arguments.end(), {"--transport", transport});
  if (!options_.account.empty()) arguments.insert(arguments.end(), {"--account", options_.account});
  arguments.insert(arguments.end(), options_.clientArguments.begin(), options_.clientArguments.end());
  if (database.has_parent_path()) {
    std::error_code failed;
    std::filesystem::create_directories(database.parent_path(), failed);
    if (failed) throw LabError("cannot make the folder of " + database.string() + ": " + failed.message());
  }
  client_.start(world_.clientProgram(), arguments, world_.clientErrors(), kStartSeconds);
}

void Session::killClient() {
  kill(client_.id(), SIGKILL);
  waitUntil([this] { return !client_.isRunning(); }, kStartSeconds);
}

void Session::stopClient() { client_.stop(); }

void Session::restartClient() {
  client_.stop();
  startClient();
}

void Session::waitForConnection() {
  // A notification needs no connection: the client observes the bus since it has printed its line.
  if (talksByNotifications()) return;
  const double seconds = options_.goesOnWithoutClient ? options_.timeoutSeconds : kStartSeconds;
  if (!waitUntil([this] { return hasConnected(); }, seconds)) {
    throw LabError("the plug-in did not connect to the client");
  }
}

bool Session::hasConnected() const {
  return vorn::readFile(world_.journal().string()).value_or("").find("\"event\":\"connected\"", journalBefore_) !=
         std::string::npos;
}

vorn::Value Session::ask(const std::string& question, const vorn::Value& parameters) {
  return plugin_->answer(question, parameters);
}

void Session::saveInProfile(const std::string& key, const std::string& value) {
  world_.saveChoice(userIdOf(options_), key, value);
}

void Session::saveInUserDefaults(const std::string& key, const std::string& value) {
  userDefaults_.setObject(World::valueOfChoice(value), key);
  userDefaults_.synchronize();
}

bool Session::waitUntil(const std::function<bool()>& condition, double seconds) {
  // The loop asks after each of its tasks only, and what is waited for may happen outside it.
  const auto lookAgain =
      runLoop_.scheduledTimer(kLookAgainSeconds, vorn::RunLoop::Repeats::yes, [](vorn::RunLoop::Timer&) {});
  const bool holds = runLoop_.runUntil([&] { return Interruption::requested() || condition(); }, seconds);
  lookAgain->invalidate();
  if (Interruption::requested()) throw LabError("interrupted; nothing was written");
  return holds;
}

void Session::passTime(double seconds) {
  bool isOver = false;
  runLoop_.performAfter(seconds, this, "passTime", [&isOver] { isOver = true; });
  waitUntil([&isOver] { return isOver; }, seconds + kStartSeconds);
  runLoop_.cancelPrevious(this);
}

Session::Quiet Session::waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds) {
  const auto isAnswered = [&] { return trace_.sent() - sentBefore <= trace_.received() - receivedBefore; };
  const double deadline = runLoop_.now() + seconds;
  while (true) {
    const auto isOver = [&] { return isAnswered() || !client_.isRunning(); };
    if (!waitUntil(isOver, deadline - runLoop_.now())) return Quiet::timeout;
    if (!isAnswered()) return Quiet::clientGone;
    // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
    passTime(0);
    passTime(0);
    if (isAnswered()) return Quiet::reached;
  }
}

}  // namespace vornlab
