// The stand-in host in the Objective-C runtime, driven from the command line.

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "lab/objc/OwnWorld.h"
#include "lab/objc/PlayAlone.h"
#include "lab/objc/standins/HeadlessSession.h"
#include "lab/shell/HooksCommand.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/InspectCommand.h"
#include "lab/shell/MeetCommand.h"
#include "lab/words/OptionChecks.h"

namespace {

namespace fs = std::filesystem;
using namespace vornlab;

struct AloneOptions {
  std::string scenario;
  fs::path result;
  LabOptions lab;
};

void addClientOptions(CLI::App& command, LabOptions& lab) {
  command.add_option("--account", lab.account, "who is signed in at the client")->check(complaintOfFile, "FILE");
  command.add_option("--timeout", lab.timeoutSeconds, "seconds that one appointment may take")
      ->check(complaintOfSeconds, "SECONDS")
      ->capture_default_str();
  addClientVersion(command, "--client-version", lab);
  command.add_option("--client-option", lab.clientArguments, "an argument for the client; may be repeated")
      ->take_all();
}

// Makes a world for the time of the work, which is the second run of this program.
template <typename Work>
ExitCode inOwnWorld(char** argv, LabOptions& lab, const Work& work) {
  lab.world = enterOwnWorld(argv);
  try {
    const ExitCode code = work();
    fs::remove_all(lab.world);
    return code;
  } catch (...) {
    fs::remove_all(lab.world);
    throw;
  }
}

ExitCode run(int argc, char** argv) {
  LabOptions lab;
  lab.programs = programFolder();
  std::vector<std::string> words(argv + 1, argv + argc);
  chooseRuntime(words, "objc", lab.programs);
  if (!words.empty() && isScenarioFile(words.front())) words.insert(words.begin(), "play");
  MeetOptions meetOptions;
  HooksOptions hooksOptions;
  InspectOptions inspectOptions;
  PlayOptions playOptions;
  AloneOptions aloneOptions;
  meetOptions.lab = hooksOptions.lab = inspectOptions.lab = playOptions.lab = aloneOptions.lab = lab;

  CLI::App program("The stand-in host in the Objective-C runtime.", "vornlab");
  program.footer(kRuntimeHelp);
  program.require_subcommand(1);
  CLI::App* meetCommand = addMeetWords(program, meetOptions);
  addClientOptions(*meetCommand, meetOptions.lab);
  const CLI::App* hooksCommand = addHooksWords(program, hooksOptions);
  const CLI::App* playCommand = addPlayWords(program, playOptions);
  addInspectWords(program, inspectOptions);
  CLI::App* aloneCommand = program.add_subcommand(kPlayAlone, "")->group("");
  aloneCommand->add_option("FILE", aloneOptions.scenario)->required();
  aloneCommand->add_option("RESULT", aloneOptions.result)->required();
  const auto end = readWords(program, words, " with --runtime objc");
  if (end) return *end;
  if (playCommand->parsed()) return playScenarios(playOptions, playInProcesses());
  const StartSession start = HeadlessSession::start;
  if (aloneCommand->parsed()) {
    return inOwnWorld(argv, aloneOptions.lab, [&] {
      return playAlone(aloneOptions.scenario, aloneOptions.result.string(), aloneOptions.lab, start);
    });
  }
  if (meetCommand->parsed()) return inOwnWorld(argv, meetOptions.lab, [&] { return meet(meetOptions, start); });
  if (hooksCommand->parsed())
    return inOwnWorld(argv, hooksOptions.lab, [&] { return hooks(hooksOptions, start); });
  return inOwnWorld(argv, inspectOptions.lab, [&] { return inspect(inspectOptions, start); });
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram("vornlab", [&] { return run(argc, argv); });
}
