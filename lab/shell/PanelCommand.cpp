#include "lab/shell/PanelCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <optional>

#include "lab/shell/MeetCommand.h"
#include "lab/shell/Output.h"
#include "lab/shell/Session.h"
#include "lab/shell/TemporaryFolder.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/Words.h"
#include "lab/shell/panel/PanelPrinter.h"
#include "lab/shell/panel/PanelTrial.h"
#include "lab/words/OptionChecks.h"

namespace vornlab {
namespace {

using nlohmann::ordered_json;

constexpr const char* kContinue = "buttonContinue";

// What stands on the line was covered where it was known which control it belongs to: "[x]" behind "Passcode:"
// hides nothing.
void print(const std::string& line) { sayAsIs(line); }

CalendarEvent chosenEvent(CalendarStore& calendar, const PanelOptions& options) {
  if (options.uid.empty()) {
    const std::vector<CalendarEvent> events = calendar.events();
    if (events.size() == 1) return events.front();
    if (events.empty()) throw UsageError(options.input.file.string() + ": the calendar has no appointment");
    throw UsageError("the file has " + std::to_string(events.size()) +
                     " appointments; choose one with --uid; meet FILE --dry-run --all --json lists them");
  }
  if (const auto event = calendar.find(options.uid)) return *event;
  throw UsageError(missingInWords(options.input.file, options.uid));
}

// What Continue would do now.
struct Ending {
  bool canContinue = false;
  std::string reason;
};

Ending endingOf(const PanelWindow& panel) {
  const vorn::Control* button = panel.controls().find(kContinue);
  return button ? Ending{button->enabled, button->reason} : Ending{};
}

void printWords(const PanelWindow& panel, ReportForm form) {
  for (const NamedControl& each : namedControls(panel.layout(), panel.controls())) {
    if (form == ReportForm::json) {
      sayJsonLine({{"words", each.words}, {"key", each.key}, {"takes", each.verbs}});
    } else {
      print(filledToColumns(each.words, 34) + filledToColumns(each.verbs, 10) + each.key);
    }
  }
}

void printTrial(const Trial& trial) {
  for (const TriedAct& act : trial.acts) {
    print(act.words + ": " + act.result + (act.reason.empty() ? "" : " (" + act.reason + ")"));
  }
  for (const ControlChange& change : trial.changes) {
    print("  " + change.words + ": " + change.before + " -> " + change.after);
  }
  if (trial.changes.empty()) print("  nothing changes in the panel");
}

void printOutcome(const Ending& ending, const std::vector<WrittenSetting>& written) {
  print("");
  print(ending.canContinue ? "Continue can be used." : "Continue cannot be used: " + ending.reason + ".");
  print(written.empty() ? "A commit would write nothing else than before."
                        : "A commit would write, which it did not before:");
  for (const WrittenSetting& setting : written) {
    print("  " + setting.words + " (" + setting.key + "): " + setting.before + " -> " + setting.after);
  }
}

ordered_json jsonOf(const Trial& trial) {
  ordered_json json = {{"acts", ordered_json::array()}, {"changes", ordered_json::array()}};
  for (const TriedAct& act : trial.acts) {
    json["acts"].push_back({{"act", act.words}, {"key", act.key}, {"result", act.result}, {"reason", act.reason}});
  }
  for (const ControlChange& change : trial.changes) {
    json["changes"].push_back(
        {{"key", change.key}, {"words", change.words}, {"before", change.before}, {"after", change.after}});
  }
  return json;
}

ordered_json jsonOf(const std::vector<WrittenSetting>& written) {
  ordered_json json = ordered_json::array();
  for (const WrittenSetting& setting : written) {
    json.push_back(
        {{"key", setting.key}, {"words", setting.words}, {"before", setting.before}, {"after", setting.after}});
  }
  return json;
}

class PanelRun {
 public:
  explicit PanelRun(const PanelOptions& options) : m_options(options) {}

  ExitCode run() {
    std::vector<std::vector<PanelAct>> tries;
    for (const std::string& text : m_options.tries) tries.push_back(readTry(text));
    CalendarStore calendar(m_options.input.storeOptions());
    std::optional<CalendarEvent> event;
    if (!m_options.input.file.empty()) {
      loadCalendar(calendar, m_options.input);
      event = chosenEvent(calendar, m_options);
    } else if (!m_options.uid.empty()) {
      throw UsageError("--uid needs the calendar file of the appointment");
    }
    LabOptions lab = m_options.lab;
    if (event && lab.clientDatabase.empty()) lab.clientDatabase = defaultDatabase();
    const TemporaryFolder folder;
    lab.clientDatabase = copiedMeetings(lab.clientDatabase, folder.path());
    Session session(lab, calendar, {});
    PanelWindow panel(session, session.presenter().panels(), event, lab.timeoutSeconds);
    if (m_options.words) {
      printWords(panel, m_options.form);
      return ExitCode::done;
    }
    return tries.empty() ? show(panel) : tryAll(panel, tries);
  }

 private:
  ExitCode show(const PanelWindow& panel) const {
    if (m_options.form == ReportForm::json) {
      sayJsonLine(panelJson(panel));
    } else {
      for (const std::string& line :
           panelInWords(panel.title(), panel.layout(), panel.controls(), m_options.all)) {
        print(line);
      }
    }
    return ExitCode::done;
  }

  ExitCode tryAll(PanelWindow& panel, const std::vector<std::vector<PanelAct>>& tries) const {
    const PanelWindow::Settings before = panel.settings();
    ordered_json json = ordered_json::array();
    bool isDone = true;
    for (const std::vector<PanelAct>& acts : tries) {
      const Trial trial = tryInPanel(panel, acts);
      isDone = isDone && trial.isDone();
      if (m_options.form == ReportForm::json) {
        json.push_back(jsonOf(trial));
      } else {
        printTrial(trial);
      }
    }
    const std::vector<WrittenSetting> written = differences(before, panel.settings());
    if (m_options.form == ReportForm::json) {
      ordered_json document = panelJson(panel);
      document["tries"] = std::move(json);
      document["written"] = jsonOf(written);
      sayJsonLine(document);
    } else {
      printOutcome(endingOf(panel), written);
    }
    return isDone ? ExitCode::done : ExitCode::somethingFailed;
  }

  ordered_json panelJson(const PanelWindow& panel) const {
    ordered_json json = panelAsJson(panel.title(), panel.layout(), panel.controls());
    const Ending ending = endingOf(panel);
    json["continue"] = {{"enabled", ending.canContinue}, {"reason", ending.reason}};
    return json;
  }

  const PanelOptions& m_options;
};

}  // namespace

ExitCode showPanel(const PanelOptions& options) { return PanelRun(options).run(); }

Command addPanel(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<PanelOptions>(lab);
  options->lab.clientDatabase.clear();
  CLI::App* command =
      program.add_subcommand("panel", "print the settings panel of an appointment, or try something in it");
  addCalendarInput(*command, options->input, "the appointment's calendar file; without it a new appointment");
  command->add_option("--uid", options->uid, "which appointment of the file")->check(complaintOfNothing, "UID");
  command
      ->add_option("--try", options->tries,
                   "what to do, such as \"waiting room off, passcode on\"; may be repeated; nothing is committed")
      ->take_all();
  command->add_flag("--words", options->words, "list the words of the options, and what each takes");
  command->add_flag("--all", options->all, "tell what is hidden, too, and why");
  addClientVersion(*command, "--client", options->lab);
  command
      ->add_option("--client-db", options->lab.clientDatabase,
                   "where the stand-in service keeps its meetings, when it is not where meet keeps them")
      ->check(complaintOfMeetings, "FILE");
  askClient(*command, options->lab, options->form);
  return {command, [options] { return showPanel(*options); }};
}

}  // namespace vornlab
