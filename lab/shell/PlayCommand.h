#pragma once

#include <string>
#include <vector>

#include "lab/shell/LabError.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/scenario/ScenarioReport.h"

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

}  // namespace vornlab
