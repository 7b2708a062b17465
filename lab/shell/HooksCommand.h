#pragma once

#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/PluginReport.h"

namespace vornlab {

struct HooksOptions {
  LabOptions lab;
  ReportForm form = ReportForm::words;
};

// Prints what the plug-in answers to the question for its hooks.
void printHooks(const vorn::Value& told, ReportForm form);

// Prints the table of what the plug-in has hooked in the stand-in host, with the state of each row. A row without
// a method in this host is no fault: hosts differ by version, and a missing hook switches one feature off.
ExitCode hooks(const HooksOptions& options);

}  // namespace vornlab
