#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "lab/shell/scenario/ScenarioSetUp.h"
#include "lab/shell/scenario/ScenarioWords.h"

namespace vornlab {

// One line that is played, with the place where it stands.
struct ScenarioStep {
  std::size_t line = 0;
  std::string text;
  StageStep run;
};

// A scenario that has been read: the world that it begins in, and what happens there.
struct Scenario {
  std::string file;
  ScenarioSetUp setUp;
  std::vector<ScenarioStep> steps;

  // The file's name without its folder and ending.
  std::string name() const { return std::filesystem::path(file).stem().string(); }
};

// Both throw ScenarioError for a line that cannot be read; the whole text is read before anything is played.
Scenario scenarioFromText(std::string_view text, const std::string& file);
// Throws UsageError also when the file cannot be read.
Scenario scenarioFromFile(const std::string& file);

}  // namespace vornlab
