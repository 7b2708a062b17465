#include "lab/objc/PlayAlone.h"

#include <filesystem>

#include "lab/objc/OwnWorld.h"
#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"
#include "lab/shell/scenario/ResultFile.h"

namespace vornlab {

PlayScenario playInProcesses(const std::vector<std::string>& further) {
  return [further](const Scenario& scenario, const LabOptions& /*lab*/) {
    const TemporaryFolder folder;
    const std::filesystem::path result = folder.path() / "result";
    std::vector<std::string> words{kPlayAlone, scenario.file, result.string()};
    words.insert(words.end(), further.begin(), further.end());
    const std::string end = runInWorld(folder.path() / "w", words);
    if (auto played = readResult(result)) return *played;
    ScenarioResult broken;
    broken.file = scenario.file;
    broken.name = scenario.name();
    broken.failure = {0, "the host", "it plays the scenario to its end", end.empty() ? "it told no result" : end};
    return broken;
  };
}

ExitCode playAlone(const std::string& scenario, const std::string& result, const LabOptions& lab,
                   const StartSession& start) {
  if (!writeResult(result, play(scenarioFromFile(scenario), lab, start)))
    throw LabError("its result cannot be written");
  return ExitCode::done;
}

}  // namespace vornlab
