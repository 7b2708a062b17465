#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/shell/CommandLine.h"
#include "lab/shell/scenario/ScenarioPlayer.h"

namespace vornlab {

struct PlayOptions {
  LabOptions lab;
  std::vector<std::string> files;
  ReportForm form = ReportForm::words;
};

// Plays one scenario in a world of its own, as play() does.
using PlayScenario = std::function<ScenarioResult(const Scenario& scenario, const LabOptions& lab)>;

// Plays scenarios, in the order of the files, each in a world of its own. All files are read before the first is
// played; throws UsageError for one that cannot be read.
ExitCode playScenarios(const PlayOptions& options, const PlayScenario& playOne);

// Whether an argument names a scenario.
bool isScenarioFile(const std::string& argument);

// The words of the command in any program, and the command "play" of this one.
CLI::App* addPlayWords(CLI::App& program, PlayOptions& options);
Command addPlay(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
