#include "lab/shell/PlayCommand.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <map>

#include "lab/shell/ProgressBar.h"
#include "lab/shell/Session.h"
#include "lab/shell/scenario/ScenarioReport.h"
#include "lab/words/OptionChecks.h"

namespace vornlab {

ExitCode playScenarios(const PlayOptions& options, const PlayScenario& playOne) {
  std::vector<Scenario> scenarios;
  std::map<std::string, std::string> files;
  for (const std::string& file : options.files) {
    scenarios.push_back(scenarioFromFile(file));
    const auto [known, isNew] = files.emplace(scenarios.back().name(), file);
    if (!isNew)
      throw UsageError(file + " has the same name as " + known->second +
                       ", and reports would not tell them apart");
  }
  const auto began = std::chrono::steady_clock::now();
  ScenarioReport report(options.form);
  ProgressBar progress(stderr, scenarios.size() > 1 ? scenarios.size() : 0);
  for (std::size_t i = 0; i < scenarios.size(); ++i) {
    progress.show(i);
    LabOptions lab = options.lab;
    lab.title = scenarios[i].name();
    const ScenarioResult result = playOne(scenarios[i], lab);
    progress.hide();
    report.tell(result);
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
  report.tellSummary(took.count());
  return report.failed() == 0 ? ExitCode::done : ExitCode::somethingFailed;
}

bool isScenarioFile(const std::string& argument) { return argument.ends_with(".vorn"); }

CLI::App* addPlayWords(CLI::App& program, PlayOptions& options) {
  CLI::App* command = program.add_subcommand("play", "play scenarios; the word itself may be left out");
  command->add_option("FILE", options.files, "scenarios, each named ....vorn; see docs/scenarios.md")
      ->required()
      ->check(complaintOfFile, "FILE");
  addJsonFlag(*command, options.form, "one JSON object a line");
  return command;
}

Command addPlay(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<PlayOptions>(lab);
  const auto playOne = [](const Scenario& scenario, const LabOptions& asked) {
    return play(scenario, asked, Session::start);
  };
  return {addPlayWords(program, *options), [options, playOne] { return playScenarios(*options, playOne); }};
}

}  // namespace vornlab
