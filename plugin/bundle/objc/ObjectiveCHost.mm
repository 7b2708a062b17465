#include "bundle/objc/ObjectiveCHost.h"

#import <Foundation/Foundation.h>

#include <memory>

#include "bundle/PluginLoad.h"
#include "platform/apple/ApplePlatform.h"

namespace vorn {

void loadIntoObjectiveCHost(const std::string& resources) {
  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  try {
    // Stays to the end of the process: the host's classes call us as long as they exist.
    ApplePlatform* platform = std::make_unique<ApplePlatform>(resources).release();
    loadPlugin(platform->ports());
  } catch (...) {
    unloadPlugin();
  }
  [pool drain];
}

}  // namespace vorn
