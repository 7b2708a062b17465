#include "lab/objc/ObjcSession.h"

#include <dlfcn.h>

#include <chrono>
#include <memory>

#include "lab/objc/HostClasses.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

namespace vornlab {

namespace {

namespace fs = std::filesystem;

constexpr double kTurnSeconds = 0.01;
// What the plug-in puts off, other than for a person, is done after that time.
constexpr double kSettlingSeconds = 0.2;
// What a call may be late on a machine that is busy with other things.
constexpr double kLateSeconds = 20;

// The ports of the plug-in, which shares the library that holds them with this process.
const vorn::Platform& ports() { return vorn::Registry::platform(); }

}  // namespace

ObjcSession::ObjcSession(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions)
    : m_options(options),
      m_account(signedInAccount(options)),
      m_world(worldOptions(options, m_account.userId)),
      m_calendar(calendar),
      m_system(options.systemVersion),
      m_host(calendar, hostOptions),
      m_client(options, m_world,
               [this](const std::function<bool()>& holds, double seconds) { return waitUntil(holds, seconds); }) {
  const Pool pool;
  // The plug-in knows the Applications folder of the machine, and that of the user.
  std::error_code failed;
  fs::create_directory_symlink(m_world.applications(), m_world.home() / "Applications", failed);
  if (failed) throw LabError("cannot make the user's Applications folder: " + failed.message());
  m_client.prepare(m_system.hasBus());
  loadBundle(m_options.bundle.empty() ? m_options.programs / "objc/vOutlookPlugin.bundle" : m_options.bundle);
  m_host.openMainWindow();
  m_client.waitForConnection(kStartSeconds);
}

ObjcSession::~ObjcSession() { m_host.closeMainWindow(); }

ObjcSession::InstalledTrace::InstalledTrace(vorn::Trace& trace) { install(&trace); }
ObjcSession::InstalledTrace::~InstalledTrace() { install(nullptr); }

void ObjcSession::InstalledTrace::install(vorn::Trace* trace) {
  vorn::Platform platform = ports();
  platform.trace = trace;
  vorn::Registry::install(platform);
}

HostScreen& ObjcSession::screen() {
  throw LabError("what the plug-in shows stands on the screen of this host, before the person who sits there");
}

void ObjcSession::loadBundle(const fs::path& bundle) {
  const fs::path program = bundle / "Contents/MacOS/vOutlookPlugin";
  void* module = dlopen(program.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!module) throw LabError(std::string("the plug-in cannot be loaded: ") + dlerror());
  m_answer = reinterpret_cast<decltype(m_answer)>(dlsym(module, "vOutlookPluginAnswer"));
  if (!m_answer) throw LabError("the plug-in at " + program.string() + " answers no questions");
  m_installedTrace.emplace(m_trace);
}

vorn::Value ObjcSession::ask(const std::string& question, const vorn::Value& parameters) {
  vorn::Value answer;
  if (m_answer(question.c_str(), &parameters, &answer) != 0)
    throw LabError("the plug-in does not answer the question \"" + question + "\"");
  return answer;
}

void ObjcSession::saveInProfile(const std::string& key, const std::string& value) {
  m_world.saveChoice(m_account.userId, key, value);
}

void ObjcSession::saveInUserDefaults(const std::string& key, const std::string& value) {
  ports().userDefaults->setObject(World::valueOfChoice(value), key);
  ports().userDefaults->synchronize();
}

double ObjcSession::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool ObjcSession::waitUntil(const std::function<bool()>& condition, double seconds) {
  const double end = now() + seconds;
  while (!condition()) {
    Interruption::check();
    if (now() >= end) return false;
    const Pool passing;
    // What is due may be what is waited for, and a turn goes on to wait behind it.
    [[NSRunLoop currentRunLoop] limitDateForMode:NSDefaultRunLoopMode];
    if (condition()) return true;
    turn();
  }
  return true;
}

void ObjcSession::turn() {
  NSRunLoop* loop = [NSRunLoop currentRunLoop];
  NSDate* end = [NSDate dateWithTimeIntervalSinceNow:kTurnSeconds];
  NSDate* nextCall = [loop limitDateForMode:NSDefaultRunLoopMode];
  [loop acceptInputForMode:NSDefaultRunLoopMode beforeDate:nextCall ? [nextCall earlierDate:end] : end];
}

void ObjcSession::passTime(double seconds) {
  // An interruption ends the wait, and leaves the call to come.
  const auto isOver = std::make_shared<bool>(false);
  ports().runLoop->performAfter(seconds, this, "passTime", [isOver] { *isOver = true; });
  waitUntil([&isOver] { return *isOver; }, seconds + kLateSeconds);
  ports().runLoop->cancelPrevious(this);
}

bool ObjcSession::waitForQuiet() {
  const double end = now() + m_options.timeoutSeconds;
  while (now() < end) {
    const std::size_t before = requestCount();
    passTime(kSettlingSeconds);
    if (waitForQuiet(m_trace.withoutReply(), 0, end - now()) != Quiet::reached) return false;
    if (requestCount() == before) return true;
  }
  return false;
}

}  // namespace vornlab
