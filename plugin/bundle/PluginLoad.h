#pragma once

#include "platform/Platform.h"

namespace vorn {

// The start and the end of the plug-in in a host's process. Main thread only; nothing throws.

// Connects the rooms with each other and attaches the system to the host. The platform's ports have to live until
// unloadPlugin(). A second call without an end in between does nothing.
void loadPlugin(const Platform& platform);
// The same for a registry that holds a platform already.
void attachPlugin();
// Ends everything process-wide. The hooks stay in the host's classes; they find nothing any more and forward.
void unloadPlugin();

}  // namespace vorn
