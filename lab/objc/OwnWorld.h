#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vornlab {

// A host in the Objective-C runtime lives in a world folder of its own, as home, for user defaults and for
// everything else. Foundation reads such things once, before main(), so a program has to be started in its world.
// It takes no word and no variable that is no UTF-8: such a word throws UsageError, and such a variable is left
// out.

// Starts this program anew in a world of its own. Returns the folder, in the new run; who runs there removes it at
// the end. Throws LabError when that is impossible.
std::filesystem::path enterOwnWorld(char** arguments);

// Runs this program with other words in a new world at that place, waits for its end, and answers "" when it has
// done its work, and otherwise how it ended and what it complained of last. Throws Interrupted when the person
// wants the program to end, and LabError when it cannot be started.
std::string runInWorld(const std::filesystem::path& world, const std::vector<std::string>& words);

}  // namespace vornlab
