// What runs when an Objective-C host loads the bundle.
//
// It is the bundle's whole program, for the runtime calls load as soon as it knows this class: before other
// classes of the same image are there, or its static objects are made. Those of a library that it needs are.

#import <Foundation/Foundation.h>
#include <dlfcn.h>

#include <string>

#include "bundle/objc/ObjectiveCHost.h"

@interface vnBundle : NSObject
@end

namespace {

// The program lies in Contents/MacOS.
std::string resourcesFolder() {
  Dl_info image{};
  if (dladdr(reinterpret_cast<const void*>(&resourcesFolder), &image) == 0 || !image.dli_fname) return "";
  const std::string program = image.dli_fname;
  const std::size_t end = program.rfind("/MacOS/");
  return end == std::string::npos ? "" : program.substr(0, end) + "/Resources";
}

}  // namespace

// The symbol by which tools that support users ask, as in the bundle for other hosts.
extern "C" [[gnu::visibility("default")]] int vOutlookPluginAnswer(const char* question,
                                                                   const vorn::Value* parameters,
                                                                   vorn::Value* answer) {
  return vorn::answerInObjectiveCHost(question, parameters, answer);
}

@implementation vnBundle
+ (void)load {
  vorn::loadIntoObjectiveCHost(resourcesFolder());
}
@end
