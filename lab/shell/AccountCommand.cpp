#include "lab/shell/AccountCommand.h"

#include <string>

#include "lab/outlook/CalendarStore.h"

namespace vornlab {
namespace {

ExitCode printAnswer(const AccountCommandOptions& options, const std::string& question) {
  CalendarStore nothing;
  Session session(options.lab, nothing, {});
  const std::string trouble = fetchAccount(session, options.lab.timeoutSeconds);
  if (!trouble.empty()) throw LabError("there is no profile: " + trouble);
  const vorn::Value groups = session.ask(question)["groups"];
  if (options.form == ReportForm::json) {
    printGroupsAsJson(groups, vorn::Value::dictionary());
  } else {
    printGroups(groups);
  }
  return ExitCode::done;
}

}  // namespace

ExitCode accountShow(const AccountCommandOptions& options) { return printAnswer(options, "account"); }

ExitCode accountDefaults(const AccountCommandOptions& options) { return printAnswer(options, "defaults"); }

}  // namespace vornlab
