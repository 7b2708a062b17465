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
    fs::create_directories(root_ / "Documents/VornOutlookPlugin");
    fs::create_directories(root_ / "Resources");
    const fs::path contents = root_ / "SystemApplications/vornclient.app/Contents";
    fs::create_directories(contents / "MacOS");
    vorn::writePropertyList(vorn::Value::dictionaryFromPairs({{"CFBundleIdentifier", vorn::kVornusIdentify},
                                                              {"CFBundleExecutable", "vornclient"},
                                                              {"CFBundleShortVersionString", clientVersion},
                                                              {"CFBundleVersion", clientVersion}}),
                            contents / "Info.plist");
    vorn::Platform platform;
    platform.runLoop = &runLoop_;
    platform.notificationCenter = &center_;
    platform.classRuntime = &runtime_;
    platform.userDefaults = &defaults_;
    platform.workspace = &workspace_;
    platform.surroundings = &surroundings_;
    vorn::Registry::install(platform);
  }
  ~DiskWorld() {
    vorn::Registry::reset();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  DiskWorld(const DiskWorld&) = delete;
  DiskWorld& operator=(const DiskWorld&) = delete;

  std::string path(const std::string& name) const { return root_ / name; }

 private:
  static std::filesystem::path makeRoot() {
    std::string name = std::filesystem::temp_directory_path() / "bench-XXXXXX";
    return mkdtemp(name.data()) ? name : std::string();
  }
  vorn::EmbeddedSurroundings::Options options() const {
    vorn::EmbeddedSurroundings::Options options;
    options.home = root_;
    options.applications = path("SystemApplications");
    options.resources = path("Resources");
    return options;
  }

  std::filesystem::path root_ = makeRoot();
  vorn::VirtualRunLoop runLoop_;
  vorn::NotificationCenter center_;
  vorn::EmbeddedClassRuntime runtime_;
  vorn::EmbeddedUserDefaults defaults_{path("Library/Preferences"), "com.microsoft.Outlook"};
  vorn::EmbeddedWorkspace workspace_{root_, {path("SystemApplications")}};
  vorn::EmbeddedSurroundings surroundings_{options()};
};
