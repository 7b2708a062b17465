#include <CLI/CLI.hpp>
#include <array>
#include <string>

#include "lab/shell/AccountCommand.h"
#include "lab/shell/BodyCommand.h"
#include "lab/shell/DemoCommand.h"
#include "lab/shell/DoctorCommand.h"
#include "lab/shell/HooksCommand.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/InspectCommand.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/PlayCommand.h"

namespace {

using namespace vornlab;

// In the order in which help lists them.
constexpr std::array kCommands = {addMeet, addDemo, addDoctor, addHooks, addPlay, addInspect, addBody, addAccount};

ExitCode run(int argc, char** argv) {
  LabOptions lab;
  lab.programs = programFolder();
  CLI::App program("The laboratory of the plug-in: a stand-in host and a stand-in client, driven from here.",
                   "vornlab");
  program.require_subcommand(1);
  std::vector<Command> commands;
  for (const auto& add : kCommands) commands.push_back(add(program, lab));
  // Behind the commands, which would each take it over.
  program.footer(kRuntimeHelp);

  std::vector<std::string> words(argv + 1, argv + argc);
  chooseRuntime(words, "embedded", lab.programs);
  if (!words.empty() && isScenarioFile(words.front())) words.insert(words.begin(), "play");
  if (const auto end = readWords(program, words, "; vornlab --help lists them")) return *end;
  for (const Command& command : commands) {
    if (command.words->parsed()) return command.run();
  }
  return ExitCode::badUsage;
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram("vornlab", [&] { return run(argc, argv); });
}
