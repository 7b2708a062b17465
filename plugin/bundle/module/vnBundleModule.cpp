// The three symbols that a host of the embedded world finds in the bundle's module after it has loaded it by path.

#include "bundle/Diagnosis.h"
#include "bundle/PluginLoad.h"
#include "platform/Registry.h"

// 0 when the plug-in stands.
extern "C" [[gnu::visibility("default")]] int vOutlookPluginLoad(const vorn::Platform* platform) {
  if (!platform || !platform->runLoop || !platform->classRuntime) return 1;
  try {
    vorn::loadPlugin(*platform);
    return 0;
  } catch (...) {
    // Nothing may leave through the host's boundary; what could not start is taken back.
    vorn::unloadPlugin();
    return 1;
  }
}

extern "C" [[gnu::visibility("default")]] void vOutlookPluginUnload() { vorn::unloadPlugin(); }

// Answers a question of people who support users; Diagnosis tells which there are. 0 when it was answered, 1 for
// an unknown question, for one that could not be answered, and while no plug-in stands.
extern "C" [[gnu::visibility("default")]] int vOutlookPluginAnswer(const char* question,
                                                                   const vorn::Value* parameters,
                                                                   vorn::Value* answer) {
  if (!question || !answer || !vorn::Registry::platform().runLoop) return 1;
  try {
    return vorn::Diagnosis::answer(question, parameters ? *parameters : vorn::Value(), *answer) ? 0 : 1;
  } catch (...) {
    return 1;
  }
}
