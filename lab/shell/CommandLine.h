#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/shell/LabError.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/ReportForm.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vornlab {

// What the command lines of the laboratory's programs have in common. Options are filled when a program reads its
// words, and outlive that.

// A command as a program has it: its words, and what it does when they were chosen.
struct Command {
  const CLI::App* words = nullptr;
  std::function<ExitCode()> run;
};

// What any command of this program begins with; whoever runs the command keeps it.
template <typename Options>
std::shared_ptr<Options> optionsFrom(const LabOptions& lab) {
  auto options = std::make_shared<Options>();
  options->lab = lab;
  return options;
}

// The folder of this program, where the bundle and the client's application lie too.
std::filesystem::path programFolder();

// The options of a command that starts the client.
void addLabOptions(CLI::App& command, LabOptions& lab);

// The flag --json; `what` tells what is printed then.
void addJsonFlag(CLI::App& command, ReportForm& form, const char* what = "one JSON object");

// The option by which the client shows a version, under that name.
CLI::Option* addClientVersion(CLI::App& command, const char* name, LabOptions& lab);

// The option --me, with the address of the calendar's owner.
void addOwner(CLI::App& command, std::string& address, const char* what = "the address of the calendar's owner");

// For a command that only asks and needs no client; the user's choices stay as they are.
void askWithoutClient(CLI::App& command, LabOptions& lab, ReportForm& form);
// The same with a client, which is given little time.
void askClient(CLI::App& command, LabOptions& lab, ReportForm& form);

// What a program of the laboratory is: it can be interrupted, says on standard error under its name why it cannot
// go on, and gives the exit code.
int runProgram(const char* name, const std::function<ExitCode()>& run);

// Reads the words of a command line. Answers the exit code when there is nothing more to do, because help or the
// version was asked for; that has been told. Throws UsageError when the words make no sense; for a first word that
// is no command it tells which there are, `where` they are looked for.
std::optional<ExitCode> readWords(CLI::App& program, std::vector<std::string> words,
                                  const std::string& where = "");

}  // namespace vornlab
