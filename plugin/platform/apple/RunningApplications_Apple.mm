#import <AppKit/AppKit.h>

#include "platform/apple/Conversions.h"
#include "platform/apple/RunningApplications.h"

namespace vorn {

bool isApplicationRunning(std::string_view bundleIdentifier) {
  return
      [[NSRunningApplication runningApplicationsWithBundleIdentifier:foundationText(bundleIdentifier)] count] > 0;
}

}  // namespace vorn
