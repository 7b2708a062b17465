#include "lab/shell/LoadedPlugin.h"

#include <dlfcn.h>

#include <string>

#include "lab/shell/LabError.h"

namespace vornlab {
namespace {

template <typename Function>
Function entryPoint(void* module, const char* name) {
  return reinterpret_cast<Function>(dlsym(module, name));
}

}  // namespace

LoadedPlugin::LoadedPlugin(const std::filesystem::path& bundle, const vorn::Platform& platform) {
  const auto path = bundle / "Contents/MacOS/vOutlookPlugin";
  // The module stays mapped after the end: objects of its classes may outlive the unloading for a moment.
  m_module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (m_module == nullptr) throw LabError(std::string("the plug-in cannot be loaded: ") + dlerror());
  const auto load = entryPoint<int (*)(const vorn::Platform*)>(m_module, "vOutlookPluginLoad");
  m_unload = entryPoint<void (*)()>(m_module, "vOutlookPluginUnload");
  m_answer = entryPoint<int (*)(const char*, const vorn::Value*, vorn::Value*)>(m_module, "vOutlookPluginAnswer");
  const bool isComplete = load != nullptr && m_unload != nullptr && m_answer != nullptr;
  const bool loaded = isComplete && load(&platform) == 0;
  if (!loaded) {
    dlclose(m_module);
    throw LabError("the plug-in at " + path.string() + " refuses to load");
  }
}

LoadedPlugin::~LoadedPlugin() {
  m_unload();
  dlclose(m_module);
}

vorn::Value LoadedPlugin::answer(const std::string& question, const vorn::Value& parameters) const {
  vorn::Value answer;
  if (m_answer(question.c_str(), &parameters, &answer) != 0) {
    throw LabError("the plug-in does not answer the question \"" + question + "\"");
  }
  return answer;
}

}  // namespace vornlab
