#include "lab/shell/AccountCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"

namespace vornlab {

ExitCode tellAccount(const AccountCommandOptions& options) {
  CalendarStore nothing;
  Session session(options.lab, nothing, {});
  const std::string trouble = fetchAccount(session, options.lab.timeoutSeconds);
  // The client may have got the same signal.
  Interruption::check();
  if (!trouble.empty()) throw LabError("there is no profile: " + trouble);
  const vorn::Value groups = session.ask(options.question)["groups"];
  if (options.form == ReportForm::json) {
    printGroupsAsJson(groups, nlohmann::ordered_json::object());
  } else {
    printGroups(groups);
  }
  return ExitCode::done;
}

Command addAccount(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<AccountCommandOptions>(lab);
  CLI::App* account = program.add_subcommand("account", "tell what the plug-in understands of an account");
  account->require_subcommand(1);
  const auto add = [&](const char* name, const char* question, const char* what) {
    CLI::App* command = account->add_subcommand(name, what);
    askClient(*command, options->lab, options->form);
    command->callback([options, question] { options->question = question; });
  };
  add("show", "account", "the profile, in groups");
  add("defaults", "defaults", "the settings of a new meeting, and who decided them");
  return {account, [options] { return tellAccount(*options); }};
}

}  // namespace vornlab
