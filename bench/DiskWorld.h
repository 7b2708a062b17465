#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "channel/discovery/vnClientConstants.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "platform/embedded/EmbeddedWorkspace.h"
#include "platform/embedded/VirtualRunLoop.h"
#include "util/PropertyList.h"

// A machine in a temporary folder, with the real ports and an installed client: questions go to the disk.
class DiskWorld {
 public:
  explicit DiskWorld(const std::string& clientVersion) {
    namespace fs = std::filesystem;
    fs::create_directories(m_root / "Documents/VornOutlookPlugin");
    fs::create_directories(m_root / "Resources");
    const fs::path contents = m_root / "SystemApplications/vornclient.app/Contents";
    fs::create_directories(contents / "MacOS");
    vorn::writePropertyList(vorn::Value::dictionaryFromPairs({{"CFBundleIdentifier", vorn::kVornusIdentify},
                                                              {"CFBundleExecutable", "vornclient"},
                                                              {"CFBundleShortVersionString", clientVersion},
                                                              {"CFBundleVersion", clientVersion}}),
                            contents / "Info.plist");
    vorn::Platform platform;
    platform.runLoop = &m_runLoop;
    platform.notificationCenter = &m_center;
    platform.classRuntime = &m_runtime;
    platform.userDefaults = &m_defaults;
    platform.workspace = &m_workspace;
    platform.surroundings = &m_surroundings;
    vorn::Registry::install(platform);
  }
  ~DiskWorld() {
    vorn::Registry::reset();
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
  }
  DiskWorld(const DiskWorld&) = delete;
  DiskWorld& operator=(const DiskWorld&) = delete;

  std::string path(const std::string& name) const { return m_root / name; }

 private:
  static std::filesystem::path makeRoot() {
    std::string name = std::filesystem::temp_directory_path() / "bench-XXXXXX";
    return mkdtemp(name.data()) ? name : std::string();
  }
  vorn::EmbeddedSurroundings::Options options() const {
    vorn::EmbeddedSurroundings::Options options;
    options.home = m_root;
    options.applications = path("SystemApplications");
    options.resources = path("Resources");
    return options;
  }

  std::filesystem::path m_root = makeRoot();
  vorn::VirtualRunLoop m_runLoop;
  vorn::NotificationCenter m_center;
  vorn::EmbeddedClassRuntime m_runtime;
  vorn::EmbeddedUserDefaults m_defaults{path("Library/Preferences"), "com.microsoft.Outlook"};
  vorn::EmbeddedWorkspace m_workspace{m_root, {path("SystemApplications")}};
  vorn::EmbeddedSurroundings m_surroundings{options()};
};
