#pragma once

#include <string>
#include <vector>

#include "lab/shell/CommandLine.h"

namespace vornlab {

struct PlayOptions {
  LabOptions lab;
  std::vector<std::string> files;
  ReportForm form = ReportForm::words;
};

// Plays scenarios, in the order of the files, each in a world of its own. All files are read before the first is
// played; throws UsageError for one that cannot be read.
ExitCode playScenarios(const PlayOptions& options);

// Whether an argument names a scenario.
bool isScenarioFile(const std::string& argument);

// The command "play".
Command addPlay(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
