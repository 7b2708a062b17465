#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <string>

#include "lab/shell/HooksCommand.h"
#include "lab/shell/InspectCommand.h"

namespace vornlab {

// The command lines of the commands that only ask, as the programs of both stand-in hosts have them. They need no
// client. The options are filled when the program parses its words, and outlive it.

inline void askWithoutClient(CLI::App& command, LabOptions& lab, ReportForm& form) {
  lab.withoutClient = true;
  lab.panelIsOff = false;
  command.add_flag_callback(
      "--json", [&form] { form = ReportForm::json; }, "one JSON object");
  command
      .add_option_function<std::string>(
          "--bundle", [&lab](const std::string& path) { lab.bundle = std::filesystem::absolute(path); },
          "the plug-in's bundle, when it is not the one that was built with this program")
      ->check(CLI::ExistingDirectory);
}

inline CLI::App* addHooks(CLI::App& program, HooksOptions& options) {
  CLI::App* command = program.add_subcommand("hooks", "tell what is hooked in the stand-in host, row by row");
  askWithoutClient(*command, options.lab, options.form);
  return command;
}

inline CLI::App* addInspect(CLI::App& program, InspectOptions& options) {
  CLI::App* command =
      program.add_subcommand("inspect", "tell what the plug-in sees in each appointment of a file");
  command->add_option("IN", options.input, "the calendar file")->required();
  command->add_option("--uid", options.uids, "one appointment; may be repeated");
  command->add_option("--me", options.me, "the address of the calendar's owner");
  askWithoutClient(*command, options.lab, options.form);
  return command;
}

// Whether the program has a command of this name.
inline bool hasCommand(const CLI::App& program, const std::string& name) {
  const auto commands = program.get_subcommands(nullptr);
  return std::any_of(commands.begin(), commands.end(),
                     [&](const CLI::App* command) { return command->get_name() == name; });
}

}  // namespace vornlab
