// The three symbols that a host of the embedded world finds in the bundle's module after it has loaded it by path.

#include "bundle/PluginLoad.h"

// 0 when the plug-in stands.
extern "C" [[gnu::visibility("default")]] int vOutlookPluginLoad(const vorn::Platform* platform) {
  if (!platform || !isComplete(*platform)) return 1;
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

extern "C" [[gnu::visibility("default")]] int vOutlookPluginAnswer(const char* question,
                                                                   const vorn::Value* parameters,
                                                                   vorn::Value* answer) {
  return vorn::answerQuestion(question, parameters, answer);
}
