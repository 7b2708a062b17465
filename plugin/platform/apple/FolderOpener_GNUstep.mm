// Without AppKit, the desktop's own opener.

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"
#include "platform/apple/FolderOpener.h"

namespace vorn {

bool showFolder(std::string_view path) {
  try {
    [NSTask launchedTaskWithLaunchPath:@"/usr/bin/xdg-open"
                             arguments:[NSArray arrayWithObject:foundationText(path)]];
    return true;
  } catch (...) {
    // Raised where no program is.
    return false;
  }
}

}  // namespace vorn
