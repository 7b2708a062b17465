#include "lab/shell/HooksCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/Output.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"

namespace vornlab {

using vorn::Value;

ExitCode hooks(const HooksOptions& options, const StartSession& start) {
  CalendarStore nothing;
  const Value told = start(options.lab, nothing, {})->ask("hooks");
  if (options.form == ReportForm::json) {
    printGroupsAsJson(told["groups"], {{"rows", jsonOf(told["rows"])}, {"standing", jsonOf(told["standing"])}});
  } else {
    printGroups(told["groups"]);
    say(told["standing"].stringValue() + " of " + told["rows"].stringValue() + " hooks stand.");
  }
  return ExitCode::done;
}

CLI::App* addHooksWords(CLI::App& program, HooksOptions& options) {
  CLI::App* command = program.add_subcommand("hooks", "tell what is hooked in the stand-in host, row by row");
  askWithoutClient(*command, options.lab, options.form);
  return command;
}

Command addHooks(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<HooksOptions>(lab);
  CLI::App* command = addHooksWords(program, *options);
  addLabOptions(*command, options->lab);
  return {command, [options] { return hooks(*options, Session::start); }};
}

}  // namespace vornlab
