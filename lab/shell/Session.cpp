#include "lab/shell/Session.h"

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "platform/embedded/RealTimeRunLoop.h"

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

Session::Session(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions)
    : EmbeddedSession(options, hostOptions, std::make_unique<vorn::RealTimeRunLoop>(), resourcesOf(options)),
      m_notifications(vorn::EmbeddedDistributedNotifications::connect(runLoop())),
      m_workspace(world().root().string(), {world().applications().string()}),
      m_client(options, world(),
               [this](const std::function<bool()>& holds, double seconds) { return waitUntil(holds, seconds); }) {
  if (options.watchPost) m_watch.emplace(*options.watchPost, *this, runLoop(), options.title);
  attempt([this] { m_client.prepare(m_notifications != nullptr); });
  host().defineClasses();
  host().open(calendar);
  vorn::Platform platform = commonPlatform();
  platform.workspace = &m_workspace;
  platform.distributedNotifications = m_notifications.get();
  if (m_watch) m_watch->standBetween(platform);
  m_plugin.emplace(bundleOf(options), platform);
  host().openMainWindow();
  attempt(
      [&] { m_client.waitForConnection(options.goesOnWithoutClient ? options.timeoutSeconds : kStartSeconds); });
}

Session::~Session() {
  if (m_watch) m_watch->end();
  host().closeMainWindow();
  m_plugin.reset();
  if (m_lookAgain) m_lookAgain->invalidate();
}

void Session::attempt(const std::function<void()>& step) {
  try {
    step();
  } catch (const UsageError&) {
    throw;
  } catch (const LabError& error) {
    if (!options().goesOnWithoutClient || Interruption::requested()) throw;
    m_clientTrouble = error.what();
  }
}

vorn::Value Session::ask(const std::string& question, const vorn::Value& parameters) {
  return m_plugin->answer(question, parameters);
}

bool Session::waitUntil(const std::function<bool()>& condition, double seconds) {
  // The loop asks after each of its tasks only, and what is waited for may happen outside it. A timer for each
  // wait would cost most of what a short one takes.
  if (!m_lookAgain) {
    m_lookAgain =
        runLoop().scheduledTimer(kLookAgainSeconds, vorn::RunLoop::Repeats::yes, [](vorn::RunLoop::Timer&) {});
  }
  const bool holds = runLoop().runUntil([&] { return Interruption::requested() || condition(); }, seconds);
  Interruption::check();
  return holds;
}

}  // namespace vornlab
