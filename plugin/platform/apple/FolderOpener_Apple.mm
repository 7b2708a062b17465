#import <AppKit/AppKit.h>

#include "platform/apple/Conversions.h"
#include "platform/apple/FolderOpener.h"

namespace vorn {

bool showFolder(std::string_view path) {
  return [[NSWorkspace sharedWorkspace] openURL:[NSURL fileURLWithPath:foundationText(path)]];
}

}  // namespace vorn
