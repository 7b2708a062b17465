#include "lab/shell/scenario/ScenarioPlayer.h"

#include <chrono>

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"

namespace vornlab {
namespace {

std::optional<ScenarioFailure> playStep(const ScenarioStep& step, Stage& stage) {
  try {
    step.run(stage);
  } catch (const Mismatch& mismatch) {
    return ScenarioFailure{step.line, step.text, mismatch.expected, mismatch.found};
  } catch (const LabError& error) {
    if (Interruption::requested()) throw;
    return ScenarioFailure{step.line, step.text, "the line can be played", error.what()};
  }
  return std::nullopt;
}

// What is still under way at the end may bring an alert of its own.
void expectQuietEnd(Stage& stage) {
  stage.settle();
  const std::vector<std::string> alerts = stage.takeAlerts();
  if (!alerts.empty()) throw Mismatch("no alert that no line asks for", alerts.front());
}

std::optional<ScenarioFailure> playSteps(const Scenario& scenario, Stage& stage) {
  for (const ScenarioStep& step : scenario.steps) {
    if (auto failure = playStep(step, stage)) return failure;
  }
  return playStep({0, "the end", expectQuietEnd}, stage);
}

}  // namespace

ScenarioResult play(const Scenario& scenario, LabOptions lab, const StartSession& start) {
  const auto began = std::chrono::steady_clock::now();
  ScenarioResult result;
  result.file = scenario.file;
  result.name = scenario.name();
  std::optional<TemporaryFolder> folder;
  // Below it, since the folder itself is locked already.
  if (lab.world.empty()) lab.world = folder.emplace().path() / "w";
  try {
    Stage stage(scenario.setUp, lab, start);
    result.failure = playSteps(scenario, stage);
    result.envelopes = stage.envelopes();
  } catch (const LabError& error) {
    if (Interruption::requested()) throw;
    result.failure = {0, "the world", "it can be made", error.what()};
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
  result.seconds = took.count();
  return result;
}

}  // namespace vornlab
