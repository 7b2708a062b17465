#pragma once

#include <string>
#include <vector>

#include "lab/shell/PlayCommand.h"

namespace vornlab {

// A process has one host of the Objective-C runtime, so each scenario has a process: the same program, with these
// words that nobody types, then the scenario, the file for its result, and what else is given.
inline constexpr const char* kPlayAlone = "play-alone";

// Plays each scenario in a process of its own.
PlayScenario playInProcesses(const std::vector<std::string>& further = {});
// Plays a scenario in the world of this process and writes down how it went. Throws LabError.
ExitCode playAlone(const std::string& scenario, const std::string& result, const LabOptions& lab,
                   const StartSession& start);

}  // namespace vornlab
