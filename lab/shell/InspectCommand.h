#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/PluginReport.h"

namespace vornlab {

struct InspectOptions {
  std::filesystem::path input;
  // Empty for every appointment.
  std::vector<std::string> uids;
  // The address of the calendar's owner; "" when every appointment is one's own.
  std::string me;
  LabOptions lab;
  ReportForm form = ReportForm::words;
};

// Prints what the plug-in sees in each appointment of a calendar file: the stored record, the meeting's key and
// where it comes from, whether the appointment may have a meeting and why, and its plain form. Nothing is written.
// With JSON one object an appointment. Exit code 1 when a UID is not there.
ExitCode inspect(const InspectOptions& options);

}  // namespace vornlab
