// The stand-in host in the Objective-C runtime, driven from the command line.

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "lab/objc/ObjcLab.h"
#include "lab/shell/HooksCommand.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/InspectCommand.h"
#include "lab/shell/MeetCommand.h"
#include "lab/words/OptionChecks.h"

namespace {

namespace fs = std::filesystem;
using namespace vornlab;

ExitCode meetHere(const MeetOptions& options) {
  return meet(options, [](const MeetOptions& asked, CalendarStore& calendar) {
    return std::make_unique<ObjcLab>(asked.lab, calendar, asked.me);
  });
}

ExitCode hooksHere(const HooksOptions& options) {
  CalendarStore nothing;
  ObjcLab lab(options.lab, nothing, "");
  printHooks(lab.ask("hooks"), options.form);
  return ExitCode::done;
}

ExitCode inspectHere(const InspectOptions& options) {
  return inspect(options, [&options](CalendarStore& calendar) -> Inspector {
    const auto lab = std::make_shared<ObjcLab>(options.lab, calendar, options.me);
    return [lab](const CalendarEvent& event) { return lab->inspect(event); };
  });
}

void addClientOptions(CLI::App& command, LabOptions& lab) {
  command.add_option("--account", lab.account, "who is signed in at the client")->check(complaintOfFile, "FILE");
  command.add_option("--timeout", lab.timeoutSeconds, "seconds that one appointment may take")
      ->check(complaintOfSeconds, "SECONDS")
      ->capture_default_str();
  command.add_option("--client-version", lab.clientVersion, "the version that the client shows");
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
  MeetOptions meetOptions;
  HooksOptions hooksOptions;
  InspectOptions inspectOptions;
  meetOptions.lab = hooksOptions.lab = inspectOptions.lab = lab;

  CLI::App program("The stand-in host in the Objective-C runtime.", "vornlab-objc");
  program.footer(kRuntimeHelp);
  program.require_subcommand(1);
  CLI::App* meetCommand = addMeetWords(program, meetOptions);
  addClientOptions(*meetCommand, meetOptions.lab);
  const CLI::App* hooksCommand = addHooksWords(program, hooksOptions);
  addInspectWords(program, inspectOptions);
  const auto end = readWords(program, words, " with --runtime objc");
  if (end) return *end;
  if (meetCommand->parsed()) return inOwnWorld(argv, meetOptions.lab, [&] { return meetHere(meetOptions); });
  if (hooksCommand->parsed()) return inOwnWorld(argv, hooksOptions.lab, [&] { return hooksHere(hooksOptions); });
  return inOwnWorld(argv, inspectOptions.lab, [&] { return inspectHere(inspectOptions); });
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram("vornlab-objc", [&] { return run(argc, argv); });
}
