#pragma once

// Ports for tests: each one answers from its public fields, and records what was asked of it.

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "lab/inprocess/MemoryUserDefaults.h"
#include "platform/DistributedNotifications.h"
#include "platform/Surroundings.h"
#include "platform/Trace.h"
#include "platform/Workspace.h"

namespace vorn {

using vornlab::MemoryUserDefaults;

class FakeWorkspace final : public Workspace {
 public:
  bool isRunning(std::string_view bundleIdentifier) override;
  std::string absolutePathForAppBundle(std::string_view bundleIdentifier) override;
  bool isFilePackage(std::string_view path) override;
  std::string executablePath(std::string_view bundlePath) override;
  Value propertyListAtPath(std::string_view path) override;
  bool launch(std::string_view executablePath) override;
  bool openFolder(std::string_view path) override;
  bool openWebPage(std::string_view address) override;

  std::set<std::string, std::less<>> running;
  // Bundle identifier to path.
  std::map<std::string, std::string, std::less<>> installed;
  std::set<std::string, std::less<>> filePackages;
  // Bundle path to program path.
  std::map<std::string, std::string, std::less<>> executables;
  // Asked first; a path that is not here is read from the disk.
  std::map<std::string, Value, std::less<>> propertyLists;
  bool launchSucceeds = true;
  std::vector<std::string> launched;
  std::vector<std::string> openedFolders;
  std::vector<std::string> openedPages;
};

class TestSurroundings final : public Surroundings {
 public:
  // Makes an empty home folder, which goes with this object.
  TestSurroundings();
  ~TestSurroundings() override;
  TestSurroundings(const TestSurroundings&) = delete;
  TestSurroundings& operator=(const TestSurroundings&) = delete;

  std::string homeDirectory() override { return m_home; }
  std::string documentsDirectory() override { return m_home + "/Documents"; }
  std::string applicationsDirectory() override { return m_home + "/SystemApplications"; }
  std::string userApplicationsDirectory() override { return m_home + "/Applications"; }
  std::optional<std::string> resource(std::string_view name, std::string_view type) override;
  std::string resourcePath(std::string_view name, std::string_view type) override;
  Version systemVersion() override { return version; }
  std::vector<std::string> preferredLanguages() override { return languages; }
  double currentTime() override { return time; }
  std::uint32_t random32() override { return m_random(); }

  // By "name.type"; asked before the folder.
  std::map<std::string, std::string, std::less<>> resources;
  // A folder with further resources; "" for none.
  std::string resourceFolder;
  Version version{10, 15, 7};
  std::vector<std::string> languages{"en-US"};
  double time = 1'700'000'000;

 private:
  std::string m_home;
  std::mt19937 m_random{20260101};
};

class RecordingNotifications final : public DistributedNotifications {
 public:
  struct Posted {
    std::string name;
    Value userInfo;
  };

  // Only records: what a process posts is for the others.
  void post(std::string_view name, const Value& userInfo) override;
  std::unique_ptr<Subscription> observe(std::string_view name, Handler handler) override;

  // Hands a post of another process to the observers.
  void deliver(std::string_view name, const Value& userInfo);
  std::size_t observers(std::string_view name) const;

  std::vector<Posted> posted;

 private:
  class Observation;
  std::shared_ptr<std::vector<Observation*>> m_observations = std::make_shared<std::vector<Observation*>>();
};

class RecordingTrace final : public Trace {
 public:
  struct Step {
    std::string step;
    Value facts;
  };

  void note(std::string_view step, const Value& facts) override { steps.push_back({std::string(step), facts}); }
  // What the last step of that name told; absent when there was none.
  Value lastOf(std::string_view step) const {
    const auto last = std::find_if(steps.rbegin(), steps.rend(), [&](const Step& s) { return s.step == step; });
    return last == steps.rend() ? Value() : last->facts;
  }

  std::vector<Step> steps;
};

}  // namespace vorn
