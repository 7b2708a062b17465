#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"
#include "lab/shell/LabSession.h"

namespace vornlab {

struct InspectOptions {
  CalendarInput input;
  // A body to look at alone, in HTML or plain text, instead of a calendar file; "" for none.
  std::filesystem::path body;
  // Empty for every appointment.
  std::vector<std::string> uids;
  // The address of the calendar's owner; "" when every appointment is one's own.
  std::string me;
  LabOptions lab;
  ReportForm form = ReportForm::words;
};

// Prints what the plug-in sees in each appointment of a calendar file: the meeting's key, each way of recognising
// it with what came of that, the stored record, whether the appointment may have a meeting and why, and its plain
// form. Of a body it prints what the ways make of that. Nothing is written. With JSON one object a line for each
// appointment. Exit code 1 when a UID is not there.
ExitCode inspect(const InspectOptions& options, const StartSession& start);

// The words of the command in any program, and the command "inspect" of this one.
CLI::App* addInspectWords(CLI::App& program, InspectOptions& options);
Command addInspect(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
