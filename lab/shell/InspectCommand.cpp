#include "lab/shell/InspectCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <set>

#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"
#include "lab/shell/Words.h"

namespace vornlab {

using vorn::Value;

namespace {

std::string titleOf(const CalendarEvent& event) {
  // An identifier, though it often has the form of an address.
  const std::string uid = event.uid();
  return event.isException() ? uid + ", " + event.recurrenceId() : uid;
}

}  // namespace

ExitCode inspect(const InspectOptions& options) {
  return inspect(options, [&options](CalendarStore& calendar) -> Inspector {
    OutlookHost::Options host;
    host.userAddress = options.me;
    const auto session = std::make_shared<Session>(options.lab, calendar, host);
    return [session](const CalendarEvent& event) {
      Value parameters = Value::dictionary();
      parameters.set("event", session->host().eventOnGrid(event.index()));
      return session->ask("appointment", parameters)["groups"];
    };
  });
}

ExitCode inspect(const InspectOptions& options, const StartInspector& start) {
  CalendarStore calendar(options.input.storeOptions());
  loadCalendar(calendar, options.input);
  const Inspector inspector = start(calendar);

  const std::set<std::string> wanted(options.uids.begin(), options.uids.end());
  std::set<std::string> missing = wanted;
  for (const CalendarEvent& event : calendar.events()) {
    if (!wanted.empty() && !wanted.contains(event.uid())) continue;
    missing.erase(event.uid());
    const Value groups = inspector(event);
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

CLI::App* addInspectWords(CLI::App& program, InspectOptions& options) {
  CLI::App* command =
      program.add_subcommand("inspect", "tell what the plug-in sees in each appointment of a file");
  addCalendarInput(*command, options.input)->required();
  command->add_option("--uid", options.uids, "one appointment; may be repeated");
  command->add_option("--me", options.me, "the address of the calendar's owner");
  askWithoutClient(*command, options.lab, options.form);
  return command;
}

Command addInspect(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<InspectOptions>(lab);
  CLI::App* command = addInspectWords(program, *options);
  addLabOptions(*command, options->lab);
  return {command, [options] { return inspect(*options); }};
}

}  // namespace vornlab
