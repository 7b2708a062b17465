#pragma once

#include "platform/Platform.h"
#include "util/Value.h"

namespace vorn {

// The start and the end of the plug-in in a host's process. Main thread only; nothing throws.

// Connects the rooms with each other and attaches the system to the host. The platform's ports have to live until
// unloadPlugin(), its class runtime as long as the host's classes. A second call without an end in between does
// nothing; one after an end takes up the hooks that stand.
void loadPlugin(const Platform& platform);
// The same for a registry that holds a platform already.
void attachPlugin();
// Ends everything process-wide. The hooks stay in the host's classes; they find nothing any more and forward.
void unloadPlugin();

// Answers a question of people who support users; Diagnosis tells which there are. 0 when it was answered, 1 for
// an unknown question, for one that could not be answered, and while no plug-in stands. The parameters may be
// null.
int answerQuestion(const char* question, const Value* parameters, Value* answer);

}  // namespace vorn
