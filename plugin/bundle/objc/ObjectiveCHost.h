#pragma once

#include <string>

#include "util/Value.h"

namespace vorn {

// Starts the plug-in in the process of an Objective-C host. The folder is the one with the bundle's resources.
// Main thread only, once; nothing is raised: what cannot start is taken back.
void loadIntoObjectiveCHost(const std::string& resources);

// Answers a question as answerQuestion() does. Objects in the parameters are the host's own, by their addresses,
// and have to be alive.
int answerInObjectiveCHost(const char* question, const Value* parameters, Value* answer);

}  // namespace vorn
