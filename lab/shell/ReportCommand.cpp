#include "lab/shell/ReportCommand.h"

#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "lab/shell/CalendarOutput.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/Output.h"
#include "lab/shell/ReportSections.h"
#include "lab/shell/TemporaryFolder.h"
#include "lab/shell/TextColumns.h"
#include "lab/words/OptionChecks.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

using nlohmann::ordered_json;

// Nobody else on the machine has any business with it either.
constexpr mode_t kNotForOthers = 0077;
constexpr auto kForOwner = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;

std::optional<CalendarEvent> eventOfPanel(CalendarStore& calendar, const ReportOptions& options) {
  if (options.uid.empty()) {
    const std::vector<CalendarEvent> events = calendar.events();
    return events.size() == 1 ? std::optional(events.front()) : std::nullopt;
  }
  if (auto event = calendar.find(options.uid)) return event;
  throw UsageError(missingInWords(options.input.file, options.uid));
}

std::string inWords(const std::vector<ReportSection>& sections) {
  std::string text = "A report of the plug-in's laboratory. Passcodes, join tokens and addresses are covered.\n";
  for (const ReportSection& section : sections) {
    text += "\n== " + section.name + ": " + section.holds + "\n\n";
    for (const std::string& line : section.lines) text += onTerminal(line) + "\n";
  }
  return text;
}

std::string asJson(const std::vector<ReportSection>& sections) {
  ordered_json report = ordered_json::object();
  for (const ReportSection& section : sections) report[section.name] = section.json;
  return jsonOnTerminal(report.dump(-1, ' ', false, ordered_json::error_handler_t::replace)) + "\n";
}

// Whoever hands it on has to know what it says of them.
void tellWhatItHolds(const std::vector<ReportSection>& sections, const ReportOptions& options) {
  if (options.form == ReportForm::json) {
    ordered_json holds = ordered_json::object();
    for (const ReportSection& section : sections) holds[section.name] = section.holds;
    return sayJsonLine({{"report", options.output.string()}, {"holds", holds}});
  }
  say("The report holds, with passcodes, join tokens and addresses covered:");
  for (const ReportSection& section : sections) {
    sayAsIs("  " + filledToColumns(section.name, 13) + section.holds + " (" +
            std::to_string(section.lines.size()) + (section.lines.size() == 1 ? " line)" : " lines)"));
  }
  say("Names, subjects, times, telephone numbers, numbers of meetings and paths can be read in it.");
  say("It goes to " + options.output.string());
}

}  // namespace

ExitCode report(const ReportOptions& options) {
  umask(kNotForOthers);
  CalendarOutput output(options.output, {options.input.file, options.lab.account, options.lab.clientDatabase});
  CalendarStore calendar(options.input.storeOptions());
  std::optional<CalendarEvent> event;
  if (!options.input.file.empty()) {
    loadCalendar(calendar, options.input);
    event = eventOfPanel(calendar, options);
  } else if (!options.uid.empty()) {
    throw UsageError("--uid needs the calendar file of the appointment");
  }
  LabOptions lab = options.lab;
  if (event && lab.clientDatabase.empty()) lab.clientDatabase = defaultDatabase();
  const TemporaryFolder folder;
  lab.clientDatabase = copiedMeetings(lab.clientDatabase, folder.path());
  const std::string earlier =
      lab.world.empty() ? "" : vorn::readFile((lab.world / "journal").string()).value_or("");
  OutlookHost::Options host;
  host.userAddress = options.me;
  Session session(lab, calendar, host);
  const std::filesystem::path bundle = lab.bundle.empty() ? lab.programs / "vOutlookPlugin.bundle" : lab.bundle;
  ReportSections asked(session, bundle, earlier);
  const std::vector<ReportSection> sections = asked.all(calendar, event, lab.timeoutSeconds);
  tellWhatItHolds(sections, options);
  output.write(options.form == ReportForm::json ? asJson(sections) : inWords(sections), "");
  // One that was there has kept its mode.
  if (std::filesystem::is_regular_file(options.output)) std::filesystem::permissions(options.output, kForOwner);
  return ExitCode::done;
}

Command addReport(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<ReportOptions>(lab);
  options->lab.goesOnWithoutClient = true;
  options->lab.clientDatabase.clear();
  CLI::App* command = program.add_subcommand(
      "report", "write one file, with secrets covered, for somebody who helps; says first what it holds");
  addCalendarInput(*command, options->input, "a calendar file, whose appointments are told as inspect does");
  command->add_option("--uid", options->uid, "the appointment whose panel is told; else a new one's")
      ->check(complaintOfNothing, "UID");
  addOwner(*command, options->me);
  command->add_option("--out", options->output, "where the report goes")
      ->check(complaintOfNothing, "FILE")
      ->capture_default_str();
  command
      ->add_option("--client-db", options->lab.clientDatabase,
                   "where the stand-in service keeps its meetings, when it is not where meet keeps them")
      ->check(complaintOfMeetings, "FILE");
  askClient(*command, options->lab, options->form);
  return {command, [options] { return report(*options); }};
}

}  // namespace vornlab
