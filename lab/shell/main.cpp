#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "lab/shell/AccountCommand.h"
#include "lab/shell/BodyCommand.h"
#include "lab/shell/DemoCommand.h"
#include "lab/shell/DoctorCommand.h"
#include "lab/shell/HooksCommand.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/InspectCommand.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/PanelCommand.h"
#include "lab/shell/PlayCommand.h"
#include "lab/shell/ReportCommand.h"
#include "lab/shell/Words.h"
#include "lab/shell/watch/WatchCommand.h"
#include "lab/shell/watch/WatchPost.h"

namespace {

using namespace vornlab;

// In the order in which help lists them.
constexpr std::array kCommands = {addMeet,    addDemo, addDoctor,  addHooks, addPlay,  addWatch,
                                  addInspect, addBody, addAccount, addPanel, addReport};

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

ExitCode run(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  LabOptions lab;
  lab.programs = programFolder();
  chooseRuntime(words, "embedded", lab.programs);
  if (!words.empty() && isScenarioFile(words.front())) words.insert(words.begin(), "play");
  lab.watchPost = std::make_shared<WatchPost>(onOneLine(joined(words)));
  CLI::App program("The laboratory of the plug-in: a stand-in host and a stand-in client, driven from here.",
                   "vornlab");
  program.require_subcommand(1);
  std::vector<Command> commands;
  for (const auto& add : kCommands) commands.push_back(add(program, lab));
  // Behind the commands, which would each take it over.
  program.footer(kRuntimeHelp);

  if (const auto end = readWords(program, words)) return *end;
  for (const Command& command : commands) {
    if (command.words->parsed()) return command.run();
  }
  return ExitCode::badUsage;
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram("vornlab", [&] { return run(argc, argv); });
}
