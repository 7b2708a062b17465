#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "lab/shell/AccountCommand.h"
#include "lab/shell/AskingCommands.h"
#include "lab/shell/BodyCommand.h"
#include "lab/shell/DemoCommand.h"
#include "lab/shell/DoctorCommand.h"
#include "lab/shell/HostRuntime.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/PlayCommand.h"
#include "lab/shell/Session.h"

namespace {

namespace fs = std::filesystem;
using vornlab::AccountCommandOptions;
using vornlab::BodyOptions;
using vornlab::DemoOptions;
using vornlab::DoctorOptions;
using vornlab::ExitCode;
using vornlab::HooksOptions;
using vornlab::InspectOptions;
using vornlab::LabOptions;
using vornlab::MeetOptions;
using vornlab::PlayOptions;

// The folder of this program, where the bundle and the client's application lie too.
fs::path ownFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

// The stand-in service has to know tomorrow the meetings that it made today.
std::string defaultDatabase() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state != '\0') return fs::path(state) / "vornlab/meetings.db";
  const char* home = std::getenv("HOME");
  return home == nullptr ? "" : (fs::path(home) / ".local/state/vornlab/meetings.db").string();
}

// "" for three numbers with dots between, or what is wrong.
std::string isVersion(const std::string& text) {
  return vornlab::parseSystemVersion(text) ? std::string() : "\"" + text + "\" is no version such as 10.15.0";
}

void addLabOptions(CLI::App& command, LabOptions& lab) {
  command.add_option("--account", lab.account, "who is signed in at the client; see docs/laboratory.md")
      ->check(CLI::ExistingFile);
  command
      .add_option("--timeout", lab.timeoutSeconds,
                  "seconds that one appointment, or the client's profile, may take")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command
      .add_option("--os", lab.systemVersion,
                  "the system's version that the plug-in finds; before 10.15.0 it talks by notifications")
      ->check(isVersion, "VERSION")
      ->capture_default_str();
  const auto trying = "For trying what goes wrong";
  command.add_option("--world", lab.world, "a folder for the world, which stays at the end")->group(trying);
  command.add_flag("--without-client", lab.withoutClient, "a machine without a client")->group(trying);
  command.add_option("--client-version", lab.clientVersion, "the version that the client shows")->group(trying);
  command.add_option("--client-option", lab.clientArguments, "an argument for the client; may be repeated")
      ->group(trying)
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
      "--json", [&options] { options.form = vornlab::ReportForm::json; }, "one JSON object a line");
  options.lab.clientDatabase = defaultDatabase();
  command->add_option("--client-db", options.lab.clientDatabase, "where the stand-in service keeps its meetings")
      ->capture_default_str();
  command->add_option("--me", options.me, "the address of the calendar's owner: what others organize is skipped");
  addLabOptions(*command, options.lab);
  return command;
}

CLI::App* addDemo(CLI::App& program, DemoOptions& options) {
  CLI::App* command = program.add_subcommand("demo", "show one appointment become an online meeting");
  options.calendar = options.lab.programs / "demo.ics";
  options.output = options.lab.programs / "demo-online.ics";
  command->add_option("--out", options.output, "where the changed calendar goes")->capture_default_str();
  command->add_flag("--keep", options.lab.keepWorld, "leave the world's folder behind");
  command->add_flag_callback(
      "--full", [&options] { options.envelopes = vornlab::RoadPrinter::Envelopes::whole; },
      "print envelopes as far as the plug-in shows them");
  addLabOptions(*command, options.lab);
  return command;
}

// A command that only asks leaves the user's choices as they are.
void askOnly(CLI::App& command, LabOptions& lab, vornlab::ReportForm& form) {
  constexpr double kProfileSeconds = 10;
  lab.panelIsOff = false;
  lab.timeoutSeconds = kProfileSeconds;
  command.add_flag_callback(
      "--json", [&form] { form = vornlab::ReportForm::json; }, "one JSON object");
  addLabOptions(command, lab);
}

CLI::App* addDoctor(CLI::App& program, DoctorOptions& options) {
  CLI::App* command =
      program.add_subcommand("doctor", "tell what the plug-in finds, and whether a meeting could be made");
  options.lab.goesOnWithoutClient = true;
  askOnly(*command, options.lab, options.form);
  return command;
}

CLI::App* addAccountCommand(CLI::App& account, const char* name, const char* what,
                            AccountCommandOptions& options) {
  CLI::App* command = account.add_subcommand(name, what);
  askOnly(*command, options.lab, options.form);
  return command;
}

CLI::App* addPlay(CLI::App& program, PlayOptions& options) {
  CLI::App* command = program.add_subcommand("play", "play scenarios; the word itself may be left out");
  command->add_option("FILE", options.files, "scenarios, each named ....vorn; see docs/scenarios.md")
      ->required()
      ->check(CLI::ExistingFile);
  command->add_flag_callback(
      "--json", [&options] { options.form = vornlab::ReportForm::json; }, "one JSON object a line");
  return command;
}

// One command below another for each operation, so that none takes an option that it has no use for.
CLI::App* addBodyOperation(CLI::App& bodies, const char* name, const char* what, BodyOptions& options) {
  CLI::App* command = bodies.add_subcommand(name, what);
  command->add_option("BODY", options.body, "the body as HTML")->required()->check(CLI::ExistingFile);
  command->add_option("--out", options.output, "where the result goes, instead of the standard output");
  command->add_flag_callback(
      "--json", [&options] { options.form = vornlab::ReportForm::json; }, "one JSON object");
  command->callback([&options, name] { options.operation = name; });
  return command;
}

void addInvitation(CLI::App& command, BodyOptions& options) {
  command.add_option("--invitation", options.invitation, "the invitation's text, HTML unless --plain is given")
      ->required()
      ->check(CLI::ExistingFile);
  command.add_flag("--plain", options.invitationIsPlain, "the invitation is plain text");
  command.add_flag("--top", options.atTop, "above the user's own text");
}

CLI::App* addBody(CLI::App& program, BodyOptions& options) {
  CLI::App* command = program.add_subcommand("body", "apply one operation to the body of an appointment");
  command->require_subcommand(1);
  options.lab.withoutClient = true;
  addInvitation(*addBodyOperation(*command, "insert", "add an invitation between bookmarks", options), options);
  CLI::App* update = addBodyOperation(*command, "update", "bring an invitation in as the body calls for", options);
  addInvitation(*update, options);
  update->add_flag("--existing-meeting", options.existingMeeting,
                   "the meeting was made before; without bookmarks the invitation replaces the body");
  addBodyOperation(*command, "remove", "take the invitation out", options);
  addBodyOperation(*command, "text", "tell what a reader sees", options);
  return command;
}

int run(int argc, char** argv) {
  LabOptions lab;
  lab.programs = ownFolder();
  MeetOptions meetOptions;
  meetOptions.lab = lab;
  DemoOptions demoOptions;
  demoOptions.lab = lab;
  DoctorOptions doctorOptions;
  doctorOptions.lab = lab;
  HooksOptions hooksOptions;
  hooksOptions.lab = lab;
  PlayOptions playOptions;
  playOptions.lab = lab;
  InspectOptions inspectOptions;
  inspectOptions.lab = lab;
  BodyOptions bodyOptions;
  bodyOptions.lab = lab;
  AccountCommandOptions showOptions;
  showOptions.lab = lab;
  AccountCommandOptions defaultsOptions = showOptions;

  CLI::App program("The laboratory of the plug-in: a stand-in host and a stand-in client, driven from here.",
                   "vornlab");
  program.require_subcommand(1);
  const CLI::App* meet = addMeet(program, meetOptions);
  const CLI::App* demo = addDemo(program, demoOptions);
  const CLI::App* doctor = addDoctor(program, doctorOptions);
  CLI::App* hooks = addHooks(program, hooksOptions);
  addLabOptions(*hooks, hooksOptions.lab);
  const CLI::App* play = addPlay(program, playOptions);
  CLI::App* inspect = addInspect(program, inspectOptions);
  addLabOptions(*inspect, inspectOptions.lab);
  const CLI::App* body = addBody(program, bodyOptions);
  CLI::App* account = program.add_subcommand("account", "tell what the plug-in understands of an account");
  account->require_subcommand(1);
  const CLI::App* show = addAccountCommand(*account, "show", "the profile, in groups", showOptions);
  const CLI::App* defaults = addAccountCommand(
      *account, "defaults", "the settings of a new meeting, and who decided them", defaultsOptions);

  program.footer(vornlab::kRuntimeHelp);

  std::vector<std::string> arguments(argv + 1, argv + argc);
  vornlab::chooseRuntime(arguments, "embedded", lab.programs);
  if (!arguments.empty() && vornlab::isScenarioFile(arguments.front())) {
    arguments.insert(arguments.begin(), "play");
  }
  if (!arguments.empty() && !arguments.front().starts_with('-') &&
      !vornlab::hasCommand(program, arguments.front())) {
    std::fprintf(stderr, "vornlab: there is no command \"%s\"; vornlab --help lists them\n",
                 arguments.front().c_str());
    return static_cast<int>(ExitCode::badUsage);
  }
  try {
    // The parser takes its words from the end.
    std::reverse(arguments.begin(), arguments.end());
    program.parse(arguments);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::badUsage);
  }
  if (meet->parsed()) return static_cast<int>(vornlab::meet(meetOptions));
  if (demo->parsed()) return static_cast<int>(vornlab::demo(demoOptions));
  if (doctor->parsed()) return static_cast<int>(vornlab::doctor(doctorOptions));
  if (play->parsed()) return static_cast<int>(vornlab::playScenarios(playOptions));
  if (hooks->parsed()) return static_cast<int>(vornlab::hooks(hooksOptions));
  if (inspect->parsed()) return static_cast<int>(vornlab::inspect(inspectOptions));
  if (body->parsed()) return static_cast<int>(vornlab::changeBody(bodyOptions));
  if (show->parsed()) return static_cast<int>(vornlab::accountShow(showOptions));
  if (defaults->parsed()) return static_cast<int>(vornlab::accountDefaults(defaultsOptions));
  return static_cast<int>(ExitCode::badUsage);
}

}  // namespace

int main(int argc, char** argv) {
  vornlab::Interruption::install();
  try {
    return run(argc, argv);
  } catch (const vornlab::UsageError& error) {
    std::fprintf(stderr, "vornlab: %s\n", error.what());
    return static_cast<int>(ExitCode::badUsage);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vornlab: %s\n", error.what());
    return static_cast<int>(ExitCode::somethingFailed);
  }
}
