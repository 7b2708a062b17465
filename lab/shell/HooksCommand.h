#pragma once

#include "lab/shell/CommandLine.h"
#include "lab/shell/LabSession.h"

namespace vornlab {

struct HooksOptions {
  LabOptions lab;
  ReportForm form = ReportForm::words;
};

// Prints the table of what the plug-in has hooked in the stand-in host, with the state of each row. A row without
// a method in this host is no fault: hosts differ by version, and a missing hook switches one feature off.
ExitCode hooks(const HooksOptions& options, const StartSession& start);

// The words of the command in any program, and the command "hooks" of this one.
CLI::App* addHooksWords(CLI::App& program, HooksOptions& options);
Command addHooks(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
