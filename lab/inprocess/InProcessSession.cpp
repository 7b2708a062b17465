#include "lab/inprocess/InProcessSession.h"

#include <fstream>

#include "bundle/PluginLoad.h"
#include "lab/inprocess/InProcessSocket.h"
#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"
#include "platform/Registry.h"
#include "util/PropertyList.h"

namespace vornlab {

namespace {

namespace fs = std::filesystem;

constexpr const char* kClientIdentifier = "us.vorn.xos";

// An application that is there to be found, and that nobody starts.
const fs::path& programs() {
  static const TemporaryFolder folder;
  static const bool isMade = [] {
    const fs::path contents = folder.path() / "vornclient.app/Contents";
    fs::create_directories(contents / "MacOS");
    std::ofstream(contents / "MacOS/vornclient") << "no program";
    return vorn::writePropertyList(
        vorn::Value::dictionaryFromPairs({{"CFBundleIdentifier", kClientIdentifier},
                                          {"CFBundleExecutable", "vornclient"},
                                          {"CFBundleShortVersionString", VORNCLIENT_VERSION},
                                          {"CFBundleVersion", VORNCLIENT_VERSION}}),
        (contents / "Info.plist").string());
  }();
  static_cast<void>(isMade);
  return folder.path();
}

LabOptions withPrograms(LabOptions options) {
  options.programs = programs();
  return options;
}

Service::Options serviceOptions(const LabOptions& options) {
  Service::Options service;
  if (!options.clientVersion.empty()) service.version = options.clientVersion;
  service.seed = 20261121;
  return service;
}

}  // namespace

// The clock of the surroundings is the loop's.
struct InProcessSession::Ground {
  Ground() {
    constexpr double kBegin = 1'795'000'000;
    surroundings.resources = VORN_RESOURCES;
    surroundings.clock = [&loop = *runLoop] { return kBegin + loop.now(); };
    surroundings.seed = 20261121;
  }

  std::unique_ptr<vorn::VirtualRunLoop> runLoop = std::make_unique<vorn::VirtualRunLoop>();
  vorn::EmbeddedSurroundings::Options surroundings;
};

class InProcessSession::Applications final : public vorn::Workspace {
 public:
  Applications(const World& world, const InProcessClient& client)
      : m_onDisk(world.root().string(), {world.applications().string()}), m_client(client) {}

  bool isRunning(std::string_view bundleIdentifier) override {
    return bundleIdentifier == kClientIdentifier && m_client.isRunning();
  }
  std::string absolutePathForAppBundle(std::string_view bundleIdentifier) override {
    return m_onDisk.absolutePathForAppBundle(bundleIdentifier);
  }
  bool isFilePackage(std::string_view path) override { return m_onDisk.isFilePackage(path); }
  std::string executablePath(std::string_view bundlePath) override { return m_onDisk.executablePath(bundlePath); }
  vorn::Value propertyListAtPath(std::string_view path) override { return m_onDisk.propertyListAtPath(path); }
  bool launch(std::string_view) override { return true; }
  bool openFolder(std::string_view) override { return true; }
  bool openWebPage(std::string_view) override { return true; }

 private:
  vorn::EmbeddedWorkspace m_onDisk;
  const InProcessClient& m_client;
};

InProcessSession::InProcessSession(const LabOptions& options, CalendarStore& calendar,
                                   const OutlookHost::Options& hostOptions)
    : InProcessSession(withPrograms(options), calendar, hostOptions, Ground()) {}

InProcessSession::InProcessSession(const LabOptions& options, CalendarStore& calendar,
                                   const OutlookHost::Options& hostOptions, Ground ground)
    : EmbeddedSession(options, hostOptions, std::move(ground.runLoop), std::move(ground.surroundings)),
      m_client(runLoop(), account(), serviceOptions(options), world().journal().string()),
      m_workspace(std::make_unique<Applications>(world(), m_client)) {
  if (!options.withoutClient) m_client.start();
  host().defineClasses();
  host().open(calendar);
  vorn::Platform platform = commonPlatform();
  platform.workspace = m_workspace.get();
  platform.userDefaults = &m_userDefaults;
  vorn::Registry::install(platform);
  vorn::Registry::install<vorn::vSocketClientImpl>(std::make_unique<InProcessSocket>(m_client));
  vorn::attachPlugin();
  host().openMainWindow();
}

InProcessSession::~InProcessSession() {
  host().closeMainWindow();
  vorn::unloadPlugin();
}

vorn::Value InProcessSession::ask(const std::string& question, const vorn::Value& parameters) {
  vorn::Value answer;
  if (vorn::answerQuestion(question.c_str(), &parameters, &answer) != 0) {
    throw LabError("the plug-in does not answer the question \"" + question + "\"");
  }
  return answer;
}

void InProcessSession::restartClient() {
  m_client.end();
  m_client.start();
}

void InProcessSession::saveInUserDefaults(const std::string& key, const std::string& value) {
  m_userDefaults.setObject(World::valueOfChoice(value), key);
}

bool InProcessSession::waitUntil(const std::function<bool()>& condition, double seconds) {
  return runLoop().runUntil(condition, seconds);
}

}  // namespace vornlab
