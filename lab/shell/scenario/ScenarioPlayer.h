#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/shell/LabSession.h"
#include "lab/shell/scenario/Scenario.h"

namespace vornlab {

// The line that did not come true.
struct ScenarioFailure {
  // 0 for the world itself, or the end of the scenario.
  std::size_t line = 0;
  std::string text;
  std::string expected;
  std::string found;
};

// How a scenario went.
struct ScenarioResult {
  std::string file;
  std::string name;
  double seconds = 0;
  std::optional<ScenarioFailure> failure;
  // What had gone and come, the last at the end.
  std::vector<StageEnvelope> envelopes;
};

// Plays a scenario in a session of its own, up to the first line that does not come true. The world is the one of
// the options, or one that is removed at the end. An alert that the scenario never asks for is a failure as well.
// Throws LabError only when the person wants the program to end.
ScenarioResult play(const Scenario& scenario, LabOptions lab, const StartSession& start);

}  // namespace vornlab
