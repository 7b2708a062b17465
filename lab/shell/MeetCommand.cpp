#include "lab/shell/MeetCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "lab/client/MeetingStore.h"
#include "lab/shell/CalendarOutput.h"
#include "lab/shell/MeetReport.h"
#include "lab/shell/MeetingRoad.h"
#include "lab/shell/ProgressBar.h"
#include "lab/shell/Session.h"
#include "lab/shell/TemporaryFolder.h"
#include "lab/shell/Words.h"
#include "lab/words/OptionChecks.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;

// Bytes by which an appointment grows at most, as a rule.
constexpr std::size_t kRoomForInvitation = 16'384;

// Why an appointment gets no meeting of its own, or keeps the one it has, or "".
std::string reasonToSkip(const CalendarEvent& event, const MeetOptions& options) {
  if (event.isException()) return "a changed occurrence follows its series";
  if (!options.removes && event.isCancelled()) return "the appointment is cancelled";
  if (event.isOfSomebodyElse(options.me)) return "somebody else organizes it";
  return "";
}

class MeetRun {
 public:
  MeetRun(const MeetOptions& options, const StartSession& start)
      : m_options(options),
        m_start(start),
        m_output(options.isTrial ? nullptr
                                 : std::make_unique<CalendarOutput>(
                                       options.output,
                                       std::vector<fs::path>{options.lab.account, options.lab.clientDatabase})),
        m_report(options.form, options.isTrial, options.isCovered),
        m_calendar(options.input.storeOptions()) {}

  ExitCode run() {
    loadCalendar(m_calendar, m_options.input);
    std::vector<CalendarEvent> chosen = chooseEvents();
    const auto began = std::chrono::steady_clock::now();
    std::size_t sent = 0;
    std::size_t received = 0;
    if (!chosen.empty()) {
      if (m_output) m_output->expectRoom(m_calendar.text().size() + chosen.size() * kRoomForInvitation);
      HostOptions host;
      host.userAddress = m_options.me;
      const std::unique_ptr<LabSession> session = m_start(m_options.lab, m_calendar, host);
      MeetingRoad road(*session, m_options.lab.timeoutSeconds);
      takeAll(chosen, road);
      sent = session->trace().sent();
      received = session->trace().received();
    }
    const std::string trouble = m_output ? writeCalendar() : "";
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    m_report.tellSummary(sent, received, took.count());
    if (!trouble.empty()) throw LabError(trouble);
    return m_report.count(Outcome::failed) == 0 ? ExitCode::done : ExitCode::somethingFailed;
  }

 private:
  std::vector<CalendarEvent> chooseEvents() {
    std::vector<CalendarEvent> events = m_calendar.events();
    if (m_options.all) return events;
    for (const std::string& uid : m_options.uids) {
      if (m_calendar.find(uid) || !m_calendar.exceptionsOf(uid).empty()) continue;
      MeetResult unknown;
      unknown.uid = uid;
      unknown.reason = "the calendar has no appointment with the UID " + uid;
      m_report.tell(unknown);
    }
    std::erase_if(events, [this](const CalendarEvent& event) {
      return std::find(m_options.uids.begin(), m_options.uids.end(), event.uid()) == m_options.uids.end();
    });
    return events;
  }

  // What stops half-way has made meetings already, and their appointments have to know them.
  void takeAll(const std::vector<CalendarEvent>& events, MeetingRoad& road) {
    try {
      takeEach(events, road);
    } catch (const Interrupted& error) {
      throw Interrupted(error.what() + keepWhatIsDone());
    } catch (const LabError& error) {
      throw LabError(error.what() + keepWhatIsDone());
    }
  }

  std::string keepWhatIsDone() {
    if (!m_output || !m_calendar.isChanged()) return "; nothing was written";
    const std::string trouble = writeCalendar();
    if (!trouble.empty()) return "; " + trouble;
    return "; " + m_output->path().string() + " has the meetings made so far, and the rest as it was";
  }

  // Answers why the calendar is not where it was to go, and where it is instead; "" when it is there. What the
  // service has done already is known to nobody without it.
  std::string writeCalendar() {
    const std::string text = m_calendar.text();
    try {
      m_output->write(text, m_options.input.file);
      return "";
    } catch (const LabError& error) {
      if (!m_calendar.isChanged()) return error.what();
      const auto path = m_output->writeElsewhere(text, m_options.input.file);
      return std::string(error.what()) + "; " + calendarInWords() +
             (path ? " is in " + path->string() : " could be written nowhere else");
    }
  }

  std::string calendarInWords() const {
    const auto counted = [](std::size_t count, const std::string& what) {
      return std::to_string(count) + " " + what + (count == 1 ? " meeting" : " meetings");
    };
    const std::size_t added = m_report.count(Outcome::added);
    const std::size_t removed = m_report.count(Outcome::removed);
    if (added > 0) return "the calendar with its " + counted(added, "new");
    if (removed > 0) return "the calendar without its " + counted(removed, "former");
    return "the changed calendar";
  }

  void takeEach(const std::vector<CalendarEvent>& events, MeetingRoad& road) {
    ProgressBar progress(stderr, m_options.all ? events.size() : 0);
    for (std::size_t i = 0; i < events.size(); ++i) {
      progress.show(i);
      MeetResult result;
      if (const std::string reason = reasonToSkip(events[i], m_options); reason.empty()) {
        result = road.take(events[i], m_options.removes ? MeetingRoad::Aim::remove : MeetingRoad::Aim::add);
        tellDoubts(events[i], result);
      } else {
        result = describe(events[i]);
        result.outcome = Outcome::skipped;
        result.reason = reason;
      }
      progress.hide();
      m_report.tell(result);
    }
  }

  void tellDoubts(const CalendarEvent& event, MeetResult& result) {
    if (const auto refusal = m_calendar.takeRefusal()) {
      result.outcome = Outcome::failed;
      result.reason = faultInWords(m_options.input.file, *refusal);
    } else if (result.reason.empty()) {
      result.reason = event.doubtOfTimes().message;
    }
  }

  const MeetOptions& m_options;
  const StartSession& m_start;
  // Before the calendar, which is read when it has been looked at; null for a trial.
  std::unique_ptr<CalendarOutput> m_output;
  MeetReport m_report;
  CalendarStore m_calendar;
};

void requireDatabase(const std::string& database) {
  if (database.empty()) {
    throw UsageError("HOME is not set: --client-db FILE says where the service keeps its meetings");
  }
  if (const std::string complaint = complaintOfDatabase(database); !complaint.empty()) throw UsageError(complaint);
}

}  // namespace

std::string copiedMeetings(const std::string& database, const fs::path& folder) {
  std::error_code unknown;
  if (fs::status(database, unknown).type() == fs::file_type::not_found) return ":memory:";
  if (const std::string complaint = complaintOfFile(database); !complaint.empty()) throw UsageError(complaint);
  const std::string copy = (folder / "trial.db").string();
  try {
    MeetingStore::copy(database, copy);
  } catch (const StoreError& error) {
    throw UsageError(database + " cannot be copied to " + copy + " for the trial: " + error.what());
  }
  return copy;
}

ExitCode meet(const MeetOptions& options, const StartSession& start) {
  if (!options.isTrial && options.output.empty()) {
    throw UsageError("--out is missing: it says where the changed calendar goes; --dry-run goes without");
  }
  MeetOptions chosen = options;
  std::string& database = chosen.lab.clientDatabase;
  if (database.empty()) database = defaultDatabase();
  if (!options.isTrial) {
    requireDatabase(database);
    return MeetRun(chosen, start).run();
  }
  const TemporaryFolder folder;
  database = copiedMeetings(database, folder.path());
  return MeetRun(chosen, start).run();
}

// The stand-in service has to know tomorrow the meetings that it made today.
std::string defaultDatabase() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state != '\0') return fs::path(state) / "vornlab/meetings.db";
  const char* home = std::getenv("HOME");
  return home == nullptr || *home == '\0' ? "" : (fs::path(home) / ".local/state/vornlab/meetings.db").string();
}

CLI::App* addMeetWords(CLI::App& program, MeetOptions& options) {
  CLI::App* command = program.add_subcommand(
      "meet", "give the appointments of a calendar file their meetings, and tell their join URLs");
  addCalendarInput(*command, options.input)->required();
  auto* out = command->add_option("--out", options.output, "where the changed calendar goes; may be IN itself")
                  ->check(complaintOfNothing, "FILE");
  auto* which = command->add_option_group("which appointments");
  which->add_option("--uid", options.uids, "one appointment; may be repeated")->check(complaintOfNothing, "UID");
  which->add_flag("--all", options.all, "every appointment");
  which->require_option(1);
  command->add_flag("--remove", options.removes, "take the meetings out again, from the calendar and the service");
  command
      ->add_flag("--dry-run", options.isTrial,
                 "only say what would be done: the service works on a copy, and no calendar is written")
      ->excludes(out);
  addJsonFlag(*command, options.form, "one JSON object a line");
  command->add_flag("--covered", options.isCovered,
                    "cover passcodes, join tokens and addresses in what is told, for passing it on");
  command->add_option("--client-db", options.lab.clientDatabase, "where the stand-in service keeps its meetings")
      ->check(complaintOfNothing, "FILE")
      ->capture_default_str();
  addOwner(*command, options.me, "the address of the calendar's owner: what others organize is skipped");
  return command;
}

Command addMeet(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<MeetOptions>(lab);
  options->lab.clientDatabase = defaultDatabase();
  CLI::App* command = addMeetWords(program, *options);
  addLabOptions(*command, options->lab);
  return {command, [options] { return meet(*options, Session::start); }};
}

}  // namespace vornlab
