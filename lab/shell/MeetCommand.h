#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "lab/shell/LabError.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetReport.h"

namespace vornlab {

struct MeetOptions {
  std::filesystem::path input;
  std::filesystem::path output;
  // The appointments to take, or all.
  std::vector<std::string> uids;
  bool all = false;
  MeetReport::Form form = MeetReport::Form::table;
  // The address of the calendar's owner; "" when it does not matter who called a meeting.
  std::string me;
  LabOptions lab;
};

// Gives the chosen appointments of a calendar file their online meetings and writes the file's new form, whole or
// not at all. Appointments that fail are in the new file as they were. Throws LabError when nothing can be done.
ExitCode meet(const MeetOptions& options);

}  // namespace vornlab
