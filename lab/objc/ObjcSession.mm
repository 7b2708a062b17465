#include "lab/objc/ObjcSession.h"

#include <dlfcn.h>
#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

#include "lab/objc/HostClasses.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "lab/shell/TemporaryFolder.h"
#include "util/AtomicFile.h"

namespace vornlab {

namespace {

namespace fs = std::filesystem;

constexpr auto kWorldVariable = "VORNLAB_OBJC_WORLD";
constexpr double kTurnSeconds = 0.005;
// A request that is on its way is in the client's journal after that time.
constexpr double kSettlingSeconds = 0.2;
// The request that has no reply.
constexpr std::string_view kStartOfMeeting = "{\"action\":2,";

// The configuration takes a path only as seen from the folder that the system has for the user.
fs::path fromUsersFolder(const fs::path& path) {
  const passwd* user = getpwuid(geteuid());
  return fs::proximate(path, user ? user->pw_dir : "/");
}

}  // namespace

fs::path enterOwnWorld(char** arguments) {
  if (const char* entered = std::getenv(kWorldVariable)) return entered;
  const fs::path world = TemporaryFolder::make();
  const fs::path configuration = world / "GNUstep.conf";
  std::ofstream(configuration) << "GNUSTEP_USER_CONFIG_FILE=none\nGNUSTEP_USER_DEFAULTS_DIR="
                               << fromUsersFolder(world / "home/Library/Preferences").string() << "\n";
  setenv(kWorldVariable, world.c_str(), 1);
  setenv("GNUSTEP_CONFIG_FILE", configuration.c_str(), 1);
  setenv("HOME", (world / "home").c_str(), 1);
  execv("/proc/self/exe", arguments);
  throw LabError(std::string("cannot start in a world of its own: ") + std::strerror(errno));
}

ObjcSession::ObjcSession(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress)
    : m_options(options), m_world(worldOptions(options, signedInAccount(options).userId)), m_calendar(calendar) {
  const Pool pool;
  // The plug-in knows the Applications folder of the machine, and that of the user.
  std::error_code failed;
  fs::create_directory_symlink(m_world.applications(), m_world.home() / "Applications", failed);
  if (failed) throw LabError("cannot make the user's Applications folder: " + failed.message());
  if (!m_options.withoutClient) startClient(m_client, m_options, m_world, "socket");
  shownStore() = &calendar;
  [ECEmailAccount setUserAddress:foundationText(std::string_view(userAddress))];
  loadBundle(m_options.bundle.empty() ? m_options.programs / "objc/vOutlookPlugin.bundle" : m_options.bundle);
  ErageAppDelegate* delegate = [[ErageAppDelegate alloc] init];
  m_applicationDelegate = delegate;
  [[NSApplication sharedApplication] setDelegate:static_cast<id>(delegate)];
  ERageMainWindowController* controller = [[ERageMainWindowController alloc] init];
  [[controller window] makeKeyAndOrderFront:nil];
  m_mainWindowController = controller;
  [controller windowDidBecomeMain:[NSNotification notificationWithName:@"NSWindowDidBecomeMainNotification"
                                                                object:[controller window]]];
  [controller loadCalendarPane];
  if (m_options.withoutClient) return;
  if (!waitUntil([this] { return journalled({"\"event\":\"connected\""}) > 0; }, kStartSeconds))
    throw LabError("the plug-in did not connect to the client");
}

ObjcSession::~ObjcSession() {
  const Pool pool;
  ERageMainWindowController* controller = static_cast<ERageMainWindowController*>(m_mainWindowController);
  [controller windowWillClose:[NSNotification notificationWithName:@"NSWindowWillCloseNotification"
                                                            object:[controller window]]];
  [[NSApplication sharedApplication] setDelegate:nil];
  [controller release];
  [static_cast<ErageAppDelegate*>(m_applicationDelegate) release];
}

void ObjcSession::loadBundle(const fs::path& bundle) {
  const fs::path program = bundle / "Contents/MacOS/vOutlookPlugin";
  void* module = dlopen(program.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!module) throw LabError(std::string("the plug-in cannot be loaded: ") + dlerror());
  m_answer = reinterpret_cast<decltype(m_answer)>(dlsym(module, "vOutlookPluginAnswer"));
  if (!m_answer) throw LabError("the plug-in at " + program.string() + " answers no questions");
}

vorn::Value ObjcSession::ask(const std::string& question, const vorn::Value& parameters) {
  vorn::Value answer;
  if (m_answer(question.c_str(), &parameters, &answer) != 0)
    throw LabError("the plug-in does not answer the question \"" + question + "\"");
  return answer;
}

vorn::Value ObjcSession::inspect(const CalendarEvent& event) {
  const Pool pool;
  ECCalendarEvent* shown =
      [[[ECCalendarEvent alloc] initWithStore:&m_calendar
                                        index:static_cast<NSInteger>(event.index())] autorelease];
  vorn::Value parameters = vorn::Value::dictionary();
  parameters.set("event", vorn::HostObject(reinterpret_cast<std::uintptr_t>(shown)));
  return ask("appointment", parameters)["groups"];
}

bool ObjcSession::waitUntil(const std::function<bool()>& condition, double seconds) {
  const Pool pool;
  NSDate* end = [NSDate dateWithTimeIntervalSinceNow:seconds];
  while (!condition()) {
    if (Interruption::requested()) throw Interrupted("interrupted");
    if ([end timeIntervalSinceNow] <= 0) return false;
    const Pool passing;
    turn();
  }
  return true;
}

void ObjcSession::turn() {
  const bool hasSources = [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                                   beforeDate:[NSDate dateWithTimeIntervalSinceNow:kTurnSeconds]];
  if (!hasSources) [NSThread sleepForTimeInterval:kTurnSeconds];
}

bool ObjcSession::waitForQuiet() {
  const Pool pool;
  NSDate* end = [NSDate dateWithTimeIntervalSinceNow:m_options.timeoutSeconds];
  while ([end timeIntervalSinceNow] > 0) {
    const std::size_t before = requestCount();
    passTime(kSettlingSeconds);
    if (requestCount() == before && replyCount() + journalled({kRequest, kStartOfMeeting}) >= before) return true;
  }
  return false;
}

void ObjcSession::passTime(double seconds) {
  waitUntil([] { return false; }, seconds);
}

std::size_t ObjcSession::journalled(std::initializer_list<std::string_view> parts) const {
  std::istringstream journal(vorn::readFile(m_world.journal().string()).value_or(""));
  std::size_t count = 0;
  for (std::string line; std::getline(journal, line);) {
    count += std::all_of(parts.begin(), parts.end(),
                         [&line](std::string_view part) { return line.find(part) != std::string::npos; });
  }
  return count;
}

}  // namespace vornlab
