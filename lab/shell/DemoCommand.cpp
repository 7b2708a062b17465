#include "lab/shell/DemoCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/CalendarInput.h"
#include "lab/shell/CalendarOutput.h"
#include "lab/shell/MeetingRoad.h"
#include "lab/shell/Output.h"
#include "lab/shell/Session.h"
#include "lab/shell/Words.h"
#include "lab/words/OptionChecks.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

void printFact(std::string name, const std::string& value) {
  name.resize(10, ' ');
  // Without its name, which is no label of a secret and could be taken for one.
  sayAsIs("  " + name + " " + vorn::SecretMask::covered(value));
}

std::string timeText(const std::optional<CalendarTime>& time) {
  if (!time) return "-";
  const std::string text = timeInWords(time->seconds, "%Y-%m-%d %H:%M UTC");
  return time->zone == "UTC" ? text : text + ", stated in " + time->zone;
}

// The first lines of a body, so that what is new in it is seen.
void printBody(const std::string& body) {
  constexpr std::size_t kLines = 18;
  constexpr std::size_t kColumns = 90;
  if (body.empty()) return printFact("Body", "-");
  printFact("Body", std::to_string(body.size()) + " bytes");
  const std::string shown = vorn::SecretMask::covered(body);
  std::size_t begin = 0;
  for (std::size_t line = 0; line < kLines && begin < shown.size(); ++line) {
    const std::size_t end = std::min(shown.find('\n', begin), shown.size());
    sayAsIs("             | " + shortened(shown.substr(begin, end - begin), kColumns));
    begin = end + 1;
  }
  if (begin < shown.size()) sayAsIs("             | ...");
}

void printAppointment(const char* title, const CalendarEvent& event) {
  const MeetResult facts = describe(event);
  say(title);
  printFact("Subject", facts.subject);
  printFact("Starts", timeText(event.start()));
  printFact("Ends", timeText(event.end()));
  printFact("Location", facts.location.empty() ? "-" : facts.location);
  printFact("Attendees", std::to_string(event.attendees().size()));
  printFact("Meeting", facts.meetingKey.empty() ? "none" : facts.meetingKey);
  printBody(event.description().value_or(""));
  say("");
}

void printEnd(const MeetResult& result, const Session& session, const DemoOptions& options) {
  if (!options.output.empty()) say("The calendar is in " + options.output.string());
  if (options.lab.keepWorld) say("The world's folder is " + session.world().root().string());
  if (result.outcome == Outcome::failed || result.outcome == Outcome::skipped) {
    say("The appointment got no meeting: " + result.reason);
  } else if (!result.reason.empty()) {
    say("Nothing was changed: " + result.reason + ".");
  } else {
    say("The appointment is an online meeting now: number " + result.meetingKey +
        ", with a join URL in its location and an invitation in its body.");
  }
}

CalendarEvent chosenEvent(CalendarStore& calendar, const DemoOptions& options) {
  const std::string file = options.input.file.string();
  const std::vector<CalendarEvent> events = calendar.events();
  if (events.empty()) throw UsageError(file + ": the calendar has no appointment");
  if (options.uid.empty()) return events.front();
  const auto found = std::find_if(events.begin(), events.end(),
                                  [&](const CalendarEvent& each) { return each.uid() == options.uid; });
  if (found == events.end()) throw UsageError(missingInWords(options.input.file, options.uid));
  return *found;
}

}  // namespace

ExitCode demo(const DemoOptions& options) {
  std::optional<CalendarOutput> output;
  if (!options.output.empty())
    output.emplace(options.output, std::vector<std::filesystem::path>{options.lab.account});
  CalendarStore calendar(options.input.storeOptions());
  loadCalendar(calendar, options.input);
  const CalendarEvent event = chosenEvent(calendar, options);
  printAppointment("The appointment before", event);

  say("The road (seconds, step, facts)");
  const RoadPrinter printer(options.envelopes);
  Session session(options.lab, calendar, {});
  session.trace().setListener(
      [&printer](std::string_view step, const vorn::Value& facts) { printer.print(step, facts); });
  if (session.client().id() != 0) {
    printer.say("lab", "the client listens, as process " + std::to_string(session.client().id()));
  }
  printer.say("lab", "the plug-in's bundle is loaded into the host and connected");
  MeetingRoad road(session, options.lab.timeoutSeconds);
  road.setNarrator([&printer](const std::string& act) { printer.say("person", act); });
  const MeetResult result = road.take(event);
  say("");

  printAppointment("The appointment after", event);
  if (output) output->write(calendar.text(), options.input.file);
  printEnd(result, session, options);
  return result.outcome == Outcome::failed ? ExitCode::somethingFailed : ExitCode::done;
}

Command addDemo(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<DemoOptions>(lab);
  CLI::App* command = program.add_subcommand("demo", "show one appointment become an online meeting");
  addCalendarInput(*command, options->input, "a calendar file of your own, instead of the shipped one");
  command->add_option("--uid", options->uid, "the appointment that is taken, instead of the first")
      ->check(complaintOfNothing, "UID");
  command
      ->add_option("--out", options->output,
                   "where the changed calendar goes; without, that of a file of your own goes nowhere")
      ->check(complaintOfNothing, "FILE");
  command->add_flag("--keep", options->lab.keepWorld, "leave the world's folder behind");
  command->add_flag_callback(
      "--full", [options] { options->envelopes = RoadPrinter::Envelopes::whole; },
      "print envelopes as far as the plug-in shows them");
  addLabOptions(*command, options->lab);
  return {command, [options] {
            if (options->input.file.empty()) {
              options->input.file = options->lab.programs / "demo.ics";
              if (options->output.empty()) options->output = options->lab.programs / "demo-online.ics";
            }
            return demo(*options);
          }};
}

}  // namespace vornlab
