#include "lab/shell/EmbeddedSession.h"

#include <utility>

#include "lab/shell/LabStart.h"
#include "lab/shell/SystemVersion.h"

namespace vornlab {
namespace {

constexpr auto kHostDomain = "com.microsoft.Outlook";
// What a call may be late on a machine that is busy with other things.
constexpr double kLateSeconds = 20;

vorn::EmbeddedSurroundings::Options inWorld(vorn::EmbeddedSurroundings::Options surroundings, const World& world,
                                            const LabOptions& options) {
  surroundings.home = world.home().string();
  surroundings.documents = world.documents().string();
  surroundings.applications = world.applications().string();
  surroundings.languages = {"en-US"};
  surroundings.systemVersion = parseSystemVersion(options.systemVersion).value_or(surroundings.systemVersion);
  return surroundings;
}

// The plug-in asks whether the host's stamps are of this moment.
HostOptions onClockOf(vorn::Surroundings& surroundings, HostOptions host) {
  host.clock = [&surroundings] { return surroundings.currentTime(); };
  return host;
}

}  // namespace

EmbeddedSession::EmbeddedSession(const LabOptions& options, const OutlookHost::Options& hostOptions,
                                 std::unique_ptr<vorn::HostRunLoop> runLoop,
                                 vorn::EmbeddedSurroundings::Options surroundings)
    : m_options(options),
      m_account(signedInAccount(options)),
      m_world(worldOptions(options, m_account.userId)),
      m_runLoop(std::move(runLoop)),
      m_userDefaults(m_world.preferences().string(), kHostDomain, m_runLoop.get()),
      m_surroundings(inWorld(std::move(surroundings), m_world, options)),
      m_host(m_runtime, *m_runLoop, m_center, onClockOf(m_surroundings, hostOptions)) {
  // Where an alert offers to start the client, the person declines.
  m_presenter.setAnswer(vorn::Presenter::Answer::alternateButton);
}

vorn::Platform EmbeddedSession::commonPlatform() {
  vorn::Platform platform;
  platform.runLoop = m_runLoop.get();
  platform.notificationCenter = &m_center;
  platform.classRuntime = &m_runtime;
  platform.userDefaults = &m_userDefaults;
  platform.presenter = &m_presenter;
  platform.surroundings = &m_surroundings;
  platform.trace = &m_trace;
  return platform;
}

void EmbeddedSession::saveInProfile(const std::string& key, const std::string& value) {
  m_world.saveChoice(m_account.userId, key, value);
}

void EmbeddedSession::saveInUserDefaults(const std::string& key, const std::string& value) {
  m_userDefaults.setObject(World::valueOfChoice(value), key);
  m_userDefaults.synchronize();
}

void EmbeddedSession::passTime(double seconds) {
  bool isOver = false;
  m_runLoop->performAfter(seconds, this, "passTime", [&isOver] { isOver = true; });
  waitUntil([&isOver] { return isOver; }, seconds + kLateSeconds);
  m_runLoop->cancelPrevious(this);
}

void EmbeddedSession::clearUp() {
  m_runLoop->hasten(kClearingSeconds);
  // What is put off by that comes next, and what that puts off behind it.
  passTime(0);
  passTime(0);
}

}  // namespace vornlab
