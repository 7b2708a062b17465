// The stand-in host in the Objective-C runtime, driven from the command line.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "lab/objc/ObjcLab.h"
#include "lab/shell/AskingCommands.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/MeetCommand.h"

namespace {

namespace fs = std::filesystem;
using namespace vornlab;

ExitCode meetHere(const MeetOptions& options) {
  return meet(options, [&options](CalendarStore& calendar) {
    return std::make_unique<ObjcLab>(options.lab, calendar, options.me);
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
  command.add_option("--client-db", lab.clientDatabase, "where the stand-in service keeps its meetings")
      ->capture_default_str();
  command.add_option("--account", lab.account, "who is signed in at the client")->check(CLI::ExistingFile);
  command.add_option("--timeout", lab.timeoutSeconds, "seconds that one appointment may take")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command.add_option("--client-version", lab.clientVersion, "the version that the client shows");
  command.add_option("--client-option", lab.clientArguments, "an argument for the client; may be repeated")
      ->take_all();
}

CLI::App* addMeet(CLI::App& program, MeetOptions& options) {
  CLI::App* command = program.add_subcommand("meet", "give the appointments of a calendar file their meetings");
  command->add_option("IN", options.input, "the calendar file")->required();
  command->add_option("--out", options.output, "where the changed calendar goes; may be IN itself")->required();
  auto* which = command->add_option_group("which appointments");
  which->add_option("--uid", options.uids, "one appointment; may be repeated");
  which->add_flag("--all", options.all, "every appointment");
  which->require_option(1);
  command->add_flag_callback(
      "--json", [&options] { options.form = ReportForm::json; }, "one JSON object a line");
  command->add_option("--me", options.me, "the address of the calendar's owner: what others organize is skipped");
  addClientOptions(*command, options.lab);
  return command;
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
  lab.programs = fs::read_symlink("/proc/self/exe").parent_path();
  std::vector<std::string> words(argv + 1, argv + argc);
  chooseRuntime(words, "objc", lab.programs);
  MeetOptions meetOptions;
  HooksOptions hooksOptions;
  InspectOptions inspectOptions;
  meetOptions.lab = hooksOptions.lab = inspectOptions.lab = lab;

  CLI::App program("The stand-in host in the Objective-C runtime.", "vornlab-objc");
  program.footer(kRuntimeHelp);
  program.require_subcommand(1);
  const CLI::App* meetCommand = addMeet(program, meetOptions);
  const CLI::App* hooksCommand = addHooks(program, hooksOptions);
  addInspect(program, inspectOptions);
  if (!words.empty() && !words.front().starts_with('-') && !hasCommand(program, words.front())) {
    throw UsageError("there is no command \"" + words.front() +
                     "\" with --runtime objc; hooks, inspect and meet are");
  }
  try {
    // The parser takes its words from the end.
    std::reverse(words.begin(), words.end());
    program.parse(words);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? ExitCode::done : ExitCode::badUsage;
  }
  if (meetCommand->parsed()) return inOwnWorld(argv, meetOptions.lab, [&] { return meetHere(meetOptions); });
  if (hooksCommand->parsed()) return inOwnWorld(argv, hooksOptions.lab, [&] { return hooksHere(hooksOptions); });
  return inOwnWorld(argv, inspectOptions.lab, [&] { return inspectHere(inspectOptions); });
}

}  // namespace

int main(int argc, char** argv) {
  Interruption::install();
  try {
    return static_cast<int>(run(argc, argv));
  } catch (const UsageError& error) {
    std::fprintf(stderr, "vornlab-objc: %s\n", error.what());
    return static_cast<int>(ExitCode::badUsage);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vornlab-objc: %s\n", error.what());
    return static_cast<int>(ExitCode::somethingFailed);
  }
}
