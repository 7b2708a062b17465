#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"
#include "lab/shell/LabSession.h"

namespace vornlab {

struct MeetOptions {
  CalendarInput input;
  std::filesystem::path output;
  // The appointments to take, or all.
  std::vector<std::string> uids;
  bool all = false;
  // Takes the meetings out again, from the calendar and from the service.
  bool removes = false;
  // Nothing is to come of it: the service works on a copy of its meetings, and no calendar is written.
  bool isTrial = false;
  ReportForm form = ReportForm::words;
  // Whether what is told is for other eyes than the owner's.
  bool isCovered = false;
  // The address of the calendar's owner; "" when it does not matter who called a meeting.
  std::string me;
  LabOptions lab;
};

// Gives the chosen appointments of a calendar file their online meetings, or takes these away, and writes the
// file's new form, whole or not at all. Appointments that fail are in the new file as they were. Throws LabError
// when nothing can be done.
ExitCode meet(const MeetOptions& options, const StartSession& start);

// Where the stand-in service of the commands that make meetings keeps them, unless they are told otherwise.
std::string defaultDatabase();

// For commands that change nothing: a copy of the service's meetings in the folder, or ":memory:" when it has none
// yet. The database itself need not be one that could be written. Throws UsageError when it cannot be copied.
std::string copiedMeetings(const std::string& database, const std::filesystem::path& folder);

// The words of the command in any program, and the command "meet" of this one.
CLI::App* addMeetWords(CLI::App& program, MeetOptions& options);
Command addMeet(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
