#pragma once

#include <filesystem>
#include <string>

#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"

namespace vornlab {

struct ReportOptions {
  // "" for a report without appointments.
  CalendarInput input;
  // The appointment whose panel is told; may be left out for a file with one appointment.
  std::string uid;
  // The address of the calendar's owner; "" when every appointment is one's own.
  std::string me;
  std::filesystem::path output = "vornlab-report.txt";
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Writes one file with all that somebody who helps has to know: the versions, what doctor, hooks, account, inspect
// and panel tell, and the last envelopes and notices. Secrets are covered in all of it. Says what the file will
// hold, and writes it then. What cannot be told stands in it with the reason, so exit code 0 means that there is a
// report. Throws UsageError for a calendar file that cannot be read, and LabError when the report cannot be
// written.
ExitCode report(const ReportOptions& options);

// The command "report".
Command addReport(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
