#pragma once

#include "lab/shell/CommandLine.h"

namespace vornlab {

struct DoctorOptions {
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Tells what the plug-in finds: the client, the way to it, the machine and its own files. Done when a meeting
// could be made now; otherwise something failed, and the last line says what.
ExitCode doctor(const DoctorOptions& options);

// The command "doctor".
Command addDoctor(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
