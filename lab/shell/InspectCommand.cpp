#include "lab/shell/InspectCommand.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

#include "lab/host/BodyHtml.h"
#include "lab/shell/Output.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"
#include "lab/words/OptionChecks.h"
#include "util/AtomicFile.h"

namespace vornlab {

using vorn::Value;

namespace {

std::string titleOf(const CalendarEvent& event) {
  const std::string uid = event.isException() ? event.uid() + ", " + event.recurrenceId() : event.uid();
  const std::string subject = event.summary().value_or("");
  return subject.empty() ? uid : uid + "  " + subject;
}

void print(const Value& groups, ReportForm form, const std::string& title, nlohmann::ordered_json first) {
  if (form == ReportForm::json) return printGroupsAsJson(groups, std::move(first));
  say(title);
  say("");
  printGroups(groups);
}

// An appointment that has nothing but the body of a file.
CalendarEvent addBody(CalendarStore& calendar, const std::filesystem::path& file) {
  const auto content = vorn::readFile(file.string());
  if (!content) throw UsageError(file.string() + " cannot be read");
  const std::string text = isOfSingleBytes(*content) ? fromSingleBytes(*content) : wellFormed(*content);
  CalendarEvent event = calendar.add("body", 0, 0, "");
  const std::size_t tag = text.find('<');
  const bool isHtml = tag != std::string::npos && text.find('>', tag) != std::string::npos;
  if (isHtml) {
    storeBody(event, text, true);
  } else {
    event.setDescription(text, {});
  }
  return event;
}

// What the plug-in sees in the appointment, in groups.
Value inspected(LabSession& session, const CalendarEvent& event) {
  Value parameters = Value::dictionary();
  parameters.set("event", session.host().eventOnGrid(event.index()));
  return session.ask("appointment", parameters)["groups"];
}

ExitCode inspectBody(const InspectOptions& options, const StartSession& start) {
  CalendarStore calendar;
  const CalendarEvent event = addBody(calendar, options.body);
  Value::Array groups;
  const Value told = inspected(*start(options.lab, calendar, {}), event);
  for (const Value& group : told.items()) {
    // The rest is of an appointment that nobody has written.
    if (group["name"].text() == "meeting" || group["name"].text() == "recognition") groups.push_back(group);
  }
  print(groups, options.form, options.body.string(), {{"body", options.body.string()}});
  return ExitCode::done;
}

}  // namespace

ExitCode inspect(const InspectOptions& options, const StartSession& start) {
  if (options.body.empty() == options.input.file.empty()) {
    throw UsageError("inspect takes a calendar file, or --body FILE");
  }
  if (!options.body.empty()) return inspectBody(options, start);
  CalendarStore calendar(options.input.storeOptions());
  loadCalendar(calendar, options.input);
  const std::vector<CalendarEvent> events = calendar.events();
  if (events.empty()) complain(options.input.file.string() + ": the calendar has no appointment", "vornlab");
  HostOptions host;
  host.userAddress = options.me;
  const std::unique_ptr<LabSession> session = start(options.lab, calendar, host);

  const std::set<std::string> wanted(options.uids.begin(), options.uids.end());
  std::set<std::string> missing = wanted;
  for (const CalendarEvent& event : events) {
    if (!wanted.empty() && !wanted.contains(event.uid())) continue;
    missing.erase(event.uid());
    print(inspected(*session, event), options.form, titleOf(event),
          {{"uid", event.uid()}, {"recurrenceId", event.recurrenceId()}});
  }
  for (const std::string& uid : missing) complain(missingInWords(options.input.file, uid), "vornlab");
  return missing.empty() ? ExitCode::done : ExitCode::somethingFailed;
}

CLI::App* addInspectWords(CLI::App& program, InspectOptions& options) {
  CLI::App* command =
      program.add_subcommand("inspect", "tell what the plug-in sees in each appointment of a file");
  addCalendarInput(*command, options.input);
  command->add_option("--body", options.body, "look at a body alone, in HTML or plain text")
      ->check(complaintOfFile, "FILE");
  command->add_option("--uid", options.uids, "one appointment; may be repeated")->check(complaintOfNothing, "UID");
  addOwner(*command, options.me);
  askWithoutClient(*command, options.lab, options.form);
  return command;
}

Command addInspect(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<InspectOptions>(lab);
  CLI::App* command = addInspectWords(program, *options);
  addLabOptions(*command, options->lab);
  return {command, [options] { return inspect(*options, Session::start); }};
}

}  // namespace vornlab
