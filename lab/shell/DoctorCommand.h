#pragma once

#include "lab/shell/LabError.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/PluginReport.h"

namespace vornlab {

struct DoctorOptions {
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Tells what the plug-in finds: the client, the way to it, the machine and its own files. Done when a meeting
// could be made now; otherwise something failed, and the last line says what.
ExitCode doctor(const DoctorOptions& options);

}  // namespace vornlab
