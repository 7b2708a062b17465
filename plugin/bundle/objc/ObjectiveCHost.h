#pragma once

#include <string>

namespace vorn {

// Starts the plug-in in the process of an Objective-C host. The folder is the one with the bundle's resources.
// Main thread only, once; nothing is raised: what cannot start is taken back.
void loadIntoObjectiveCHost(const std::string& resources);

}  // namespace vorn
