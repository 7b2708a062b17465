#include "lab/shell/InspectCommand.h"

#include <algorithm>
#include <cstdio>

#include "lab/outlook/CalendarStore.h"
#include "lab/shell/LabError.h"
#include "lab/shell/Session.h"

namespace vornlab {

using vorn::Value;

namespace {

std::string problemText(const std::filesystem::path& file, const IcsProblem& problem) {
  const std::string line = problem.line == 0 ? "" : ":" + std::to_string(problem.line);
  return file.string() + line + ": " + problem.message;
}

std::string titleOf(const CalendarEvent& event) {
  // An identifier, though it often has the form of an address.
  const std::string uid = event.uid();
  return event.isException() ? uid + ", " + event.recurrenceId() : uid;
}

}  // namespace

ExitCode inspect(const InspectOptions& options) {
  CalendarStore calendar;
  IcsProblem problem;
  if (!calendar.load(options.input.string(), problem)) throw UsageError(problemText(options.input, problem));
  OutlookHost::Options host;
  host.userAddress = options.me;
  Session session(options.lab, calendar, host);

  std::vector<std::string> missing = options.uids;
  for (const CalendarEvent& event : calendar.events()) {
    const auto wanted = std::find(options.uids.begin(), options.uids.end(), event.uid());
    if (!options.uids.empty() && wanted == options.uids.end()) continue;
    std::erase(missing, event.uid());
    Value parameters = Value::dictionary();
    const vorn::HostObject seen = session.host().eventOnGrid(event.index());
    parameters.set("event", seen);
    const Value groups = session.ask("appointment", parameters)["groups"];
    if (options.form == ReportForm::json) {
      printGroupsAsJson(
          groups, Value::dictionaryFromPairs({{"uid", event.uid()}, {"recurrenceId", event.recurrenceId()}}));
    } else {
      std::printf("%s\n\n", titleOf(event).c_str());
      printGroups(groups);
    }
  }
  for (const std::string& uid : missing)
    std::fprintf(stderr, "vornlab: there is no appointment %s\n", uid.c_str());
  return missing.empty() ? ExitCode::done : ExitCode::somethingFailed;
}

}  // namespace vornlab
