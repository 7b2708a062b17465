#pragma once

#import <AppKit/AppKit.h>

#include <string>

namespace vornlab {

enum class WhatToSave { save, dontSave, cancel };

// Asks, and waits for the answer, before something unsaved closes. Without a place to save it to, that answer is
// not offered.
WhatToSave askWhatToSave(NSString* message, bool canBeSaved = true);
// Tells of something that has not been done, and waits until it was read.
void tellTrouble(NSString* message, const std::string& reason);

}  // namespace vornlab
