#pragma once

#include <filesystem>

#include "platform/Platform.h"

namespace vornlab {

// The plug-in's bundle, loaded by its path as the host loads it, and unloaded with this object.
class LoadedPlugin {
 public:
  // Throws LabError when the bundle cannot be opened, has no entry points, or refuses to load. The platform and
  // its ports must outlive this object.
  LoadedPlugin(const std::filesystem::path& bundle, const vorn::Platform& platform);
  ~LoadedPlugin();
  LoadedPlugin(const LoadedPlugin&) = delete;
  LoadedPlugin& operator=(const LoadedPlugin&) = delete;

 private:
  void* module_ = nullptr;
  void (*unload_)() = nullptr;
};

}  // namespace vornlab
