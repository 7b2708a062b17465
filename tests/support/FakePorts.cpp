#include "tests/support/FakePorts.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {

namespace {

template <typename Map>
typename Map::mapped_type valueIn(const Map& map, std::string_view key) {
  const auto found = map.find(key);
  return found == map.end() ? typename Map::mapped_type{} : found->second;
}

}  // namespace

bool FakeWorkspace::isRunning(std::string_view bundleIdentifier) {
  return running.find(bundleIdentifier) != running.end();
}

std::string FakeWorkspace::absolutePathForAppBundle(std::string_view bundleIdentifier) {
  return valueIn(installed, bundleIdentifier);
}

bool FakeWorkspace::isFilePackage(std::string_view path) {
  std::error_code failed;
  return filePackages.find(path) != filePackages.end() && std::filesystem::is_directory(path, failed);
}

std::string FakeWorkspace::executablePath(std::string_view bundlePath) { return valueIn(executables, bundlePath); }

Value FakeWorkspace::propertyListAtPath(std::string_view path) {
  const Value set = valueIn(propertyLists, path);
  return set.isAbsent() ? readPropertyList(std::string(path)) : set;
}

bool FakeWorkspace::launch(std::string_view executablePath) {
  const auto isProgram = [&](const auto& bundle) { return bundle.second == executablePath; };
  if (std::none_of(executables.begin(), executables.end(), isProgram)) return false;
  launched.emplace_back(executablePath);
  return launchSucceeds;
}

bool FakeWorkspace::openFolder(std::string_view path) {
  if (!std::filesystem::is_directory(path)) return false;
  openedFolders.emplace_back(path);
  return true;
}

bool FakeWorkspace::openWebPage(std::string_view address) {
  if (!isWebAddress(address)) return false;
  openedPages.emplace_back(address);
  return true;
}

TestSurroundings::TestSurroundings() {
  std::string path = std::filesystem::temp_directory_path() / "vorn-test-XXXXXX";
  // Without a folder every test that writes would fail for a reason that is hard to see.
  if (!::mkdtemp(path.data())) std::abort();
  m_home = path;
  for (const auto& folder : {documentsDirectory(), applicationsDirectory(), userApplicationsDirectory()}) {
    std::filesystem::create_directories(folder);
  }
}

TestSurroundings::~TestSurroundings() {
  std::error_code ignored;
  std::filesystem::remove_all(m_home, ignored);
}

std::optional<std::string> TestSurroundings::resource(std::string_view name, std::string_view type) {
  const std::string file = std::string(name) + "." + std::string(type);
  const auto found = resources.find(file);
  if (found != resources.end()) return found->second;
  return resourceFolder.empty() ? std::nullopt : readFile(resourcePath(name, type));
}

std::string TestSurroundings::resourcePath(std::string_view name, std::string_view type) {
  return resourceFolder + "/" + std::string(name) + "." + std::string(type);
}

class RecordingNotifications::Observation final : public Subscription {
 public:
  Observation(std::shared_ptr<std::vector<Observation*>> all, std::string_view name, Handler handler)
      : m_name(name), m_handler(std::move(handler)), m_all(std::move(all)) {
    m_all->push_back(this);
  }
  ~Observation() override { std::erase(*m_all, this); }

  const std::string& name() const { return m_name; }
  const Handler& handler() const { return m_handler; }

 private:
  std::string m_name;
  Handler m_handler;
  std::shared_ptr<std::vector<Observation*>> m_all;
};

void RecordingNotifications::post(std::string_view name, const Value& userInfo) {
  posted.push_back({std::string(name), userInfo});
}

std::unique_ptr<DistributedNotifications::Subscription> RecordingNotifications::observe(std::string_view name,
                                                                                        Handler handler) {
  return std::make_unique<Observation>(m_observations, name, std::move(handler));
}

void RecordingNotifications::deliver(std::string_view name, const Value& userInfo) {
  const std::vector<Observation*> due = *m_observations;
  for (Observation* observation : due) {
    const bool stillThere =
        std::find(m_observations->begin(), m_observations->end(), observation) != m_observations->end();
    if (!stillThere || observation->name() != name) continue;
    const Handler handler = observation->handler();
    handler(userInfo);
  }
}

std::size_t RecordingNotifications::observers(std::string_view name) const {
  return static_cast<std::size_t>(std::count_if(m_observations->begin(), m_observations->end(),
                                                [name](Observation* each) { return each->name() == name; }));
}

}  // namespace vorn
