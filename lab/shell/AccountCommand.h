#pragma once

#include "lab/shell/LabError.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/PluginReport.h"

namespace vornlab {

struct AccountCommandOptions {
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Prints the account's profile as the plug-in understands it. Throws LabError when the client gives none.
ExitCode accountShow(const AccountCommandOptions& options);

// Prints the settings that a new meeting would get, each with who decided it. Throws LabError when the client
// gives no profile.
ExitCode accountDefaults(const AccountCommandOptions& options);

}  // namespace vornlab
