#include "bundle/objc/ObjectiveCHost.h"

#import <Foundation/Foundation.h>

#include <memory>

#include "bundle/PluginLoad.h"
#include "platform/apple/ApplePlatform.h"
#include "platform/apple/LiveObjects.h"
#include "platform/apple/Ownership.h"

namespace vorn {

void loadIntoObjectiveCHost(const std::string& resources) {
  const AutoreleasePool pool;
  try {
    // Stays to the end of the process: the host's classes call us as long as they exist.
    ApplePlatform* platform = std::make_unique<ApplePlatform>(resources).release();
    loadPlugin(platform->ports());
  } catch (...) {
    unloadPlugin();
  }
}

int answerInObjectiveCHost(const char* question, const Value* parameters, Value* answer) {
  const AutoreleasePool pool;
  Value met = Value::dictionary();
  for (const auto& [key, entry] : parameters ? parameters->entries() : Value::Dictionary()) {
    const id object = reinterpret_cast<id>(entry.object().address());
    // Only objects that this system has met are alive to it.
    met.set(key, object ? Value(LiveObjects::instance().reference(object, LiveObjects::Holding::never)) : entry);
  }
  return answerQuestion(question, &met, answer);
}

}  // namespace vorn
