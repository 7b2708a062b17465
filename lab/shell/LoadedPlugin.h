#pragma once

#include <filesystem>
#include <string>

#include "platform/Platform.h"
#include "util/Value.h"

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

  // What the plug-in answers to one of its questions for people who support users. Throws LabError for a question
  // that it does not know.
  vorn::Value answer(const std::string& question, const vorn::Value& parameters) const;

 private:
  void* m_module = nullptr;
  void (*m_unload)() = nullptr;
  int (*m_answer)(const char*, const vorn::Value*, vorn::Value*) = nullptr;
};

}  // namespace vornlab
