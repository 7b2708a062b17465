#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorn {

// What a process can do by itself where its toolkit has no workspace, or one that does not know the answer. On
// macOS, where a toolkit always has one, these find nothing.

// True when the system lists a process that runs the application with the bundle identifier, out of one of the
// folders. One that lies elsewhere may be of another home on the same machine, and is nobody whom we could reach.
bool isRunByAProcess(std::string_view bundleIdentifier, const std::vector<std::string>& applicationFolders);
// Starts the program as a child, without waiting for it; false when it could not be started.
bool startAsChild(std::string_view executablePath);
// Shows a folder that exists with the desktop's own opener, without waiting; false when it could not be shown.
bool showByDesktop(std::string_view path);

}  // namespace vorn
