#include "lab/shell/CommandLine.h"

#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sstream>

#include "lab/shell/Interruption.h"
#include "lab/shell/Output.h"
#include "lab/shell/SystemVersion.h"
#include "lab/shell/World.h"
#include "lab/words/OptionChecks.h"
#include "lab/words/ParserWords.h"
#include "util/Text.h"

namespace vornlab {
namespace {

// What is wrong with a version of three numbers with dots between; "" when nothing is.
std::string complaintOfVersion(const std::string& text) {
  return parseSystemVersion(text) ? std::string() : "\"" + text + "\" is no version such as 10.15.0";
}

// Whatever a calendar may have behind "mailto:" is one, be it only a name.
std::string complaintOfAddress(const std::string& text) {
  constexpr std::string_view kScheme = "mailto:";
  const bool isOne =
      !text.empty() && !vorn::asciiLower(text.substr(0, kScheme.size())).starts_with(kScheme) &&
      std::none_of(text.begin(), text.end(), [](unsigned char c) { return c <= ' ' || c == '<' || c == '>'; });
  return isOne ? "" : "\"" + text + "\" is no address; that has no blanks, no \"<\" or \">\", and no \"mailto:\"";
}

std::string complaintOfWorld(const std::string& folder) {
  if (std::string complaint = complaintOfNothing(folder); !complaint.empty()) return complaint;
  return World::mayStandIn(folder) ? "" : folder + " is somebody's folder; name a new one";
}

bool hasCommand(const CLI::App& program, const std::string& name) {
  const auto commands = program.get_subcommands(nullptr);
  return std::any_of(commands.begin(), commands.end(),
                     [&](const CLI::App* command) { return command->get_name() == name; });
}

}  // namespace

std::filesystem::path programFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path(); }

void addLabOptions(CLI::App& command, LabOptions& lab) {
  command.add_option("--account", lab.account, "who is signed in at the client; see docs/laboratory.md")
      ->check(complaintOfFile, "FILE");
  command
      .add_option("--timeout", lab.timeoutSeconds,
                  "seconds that one appointment, or the client's profile, may take")
      ->check(complaintOfSeconds, "SECONDS")
      ->capture_default_str();
  command
      .add_option("--os", lab.systemVersion,
                  "the system's version that the plug-in finds; before 10.15.0 it talks by notifications")
      ->check(complaintOfVersion, "VERSION")
      ->capture_default_str();
  const auto trying = "For trying what goes wrong";
  command.add_option("--world", lab.world, "a folder for the world, which stays at the end")
      ->check(complaintOfWorld, "FOLDER")
      ->group(trying);
  command.add_flag("--without-client", lab.withoutClient, "a machine without a client")->group(trying);
  addClientVersion(command, "--client-version", lab)->group(trying);
  command.add_option("--client-option", lab.clientArguments, "an argument for the client; may be repeated")
      ->group(trying)
      ->take_all();
}

void addJsonFlag(CLI::App& command, ReportForm& form, const char* what) {
  command.add_flag_callback(
      "--json", [&form] { form = ReportForm::json; }, what);
}

CLI::Option* addClientVersion(CLI::App& command, const char* name, LabOptions& lab) {
  return command.add_option(name, lab.clientVersion, "the version that the client shows")
      ->check(complaintOfNothing, "VERSION");
}

void addOwner(CLI::App& command, std::string& address, const char* what) {
  command.add_option("--me", address, what)->check(complaintOfAddress, "ADDRESS");
}

void askWithoutClient(CLI::App& command, LabOptions& lab, ReportForm& form) {
  lab.withoutClient = true;
  lab.panelIsOff = false;
  addJsonFlag(command, form);
  command
      .add_option_function<std::string>(
          "--bundle", [&lab](const std::string& path) { lab.bundle = std::filesystem::absolute(path); },
          "the plug-in's bundle, when it is not the one that was built with this program")
      ->check(complaintOfFolder, "FOLDER");
}

void askClient(CLI::App& command, LabOptions& lab, ReportForm& form) {
  constexpr double kProfileSeconds = 10;
  lab.panelIsOff = false;
  lab.timeoutSeconds = kProfileSeconds;
  addJsonFlag(command, form);
  addLabOptions(command, lab);
}

namespace {

// A file that is opened later would otherwise take the place of a closed output, and get what is printed.
void fillClosedOutputs() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) < 0) ::open("/dev/null", O_RDONLY);
  }
}

int runToItsEnd(const char* name, const std::function<ExitCode()>& run) {
  Interruption::install();
  const auto tell = [name](const std::exception& error) { complain(error.what(), name); };
  try {
    return static_cast<int>(run());
  } catch (const Interrupted& error) {
    tell(error);
    return static_cast<int>(ExitCode::interrupted);
  } catch (const UsageError& error) {
    tell(error);
    return static_cast<int>(ExitCode::badUsage);
  } catch (const std::exception& error) {
    tell(error);
    return static_cast<int>(ExitCode::somethingFailed);
  }
}

}  // namespace

int runProgram(const char* name, const std::function<ExitCode()>& run) {
  fillClosedOutputs();
  const int code = runToItsEnd(name, run);
  flushOutput();
  const int error = outputError();
  // Also of what was printed without being asked for its fate.
  const bool isLost = error != 0 || std::ferror(stdout) != 0;
  // Whoever has closed a pipe does not want to read on.
  if (isLost && error != EPIPE && code != static_cast<int>(ExitCode::interrupted)) {
    const std::string reason = error == 0 ? "" : std::string(": ") + std::strerror(error);
    complain("standard output could not be written" + reason, name);
  }
  return !isLost || code != 0 ? code : static_cast<int>(ExitCode::somethingFailed);
}

std::optional<ExitCode> readWords(CLI::App& program, std::vector<std::string> words, const std::string& where) {
  program.set_version_flag("--version", program.get_name() + " " + VORNLAB_VERSION, "the version of this program");
  const bool hasCommands = !program.get_subcommands(nullptr).empty();
  if (hasCommands && !words.empty() && !words.front().starts_with('-') && !hasCommand(program, words.front())) {
    throw UsageError("there is no command \"" + words.front() + "\"" + where + "; there are " +
                     namesOfCommands(program));
  }
  try {
    // The parser takes its words from the end.
    std::reverse(words.begin(), words.end());
    program.parse(words);
  } catch (const CLI::ParseError& error) {
    // Help and the version.
    if (error.get_exit_code() == 0) {
      std::ostringstream told;
      program.exit(error, told, told);
      sayLines(told.str());
      return ExitCode::done;
    }
    throw UsageError(inOwnWords(program, error));
  }
  return std::nullopt;
}

}  // namespace vornlab
