#pragma once

#include <string>

#include "lab/shell/CommandLine.h"

namespace vornlab {

struct AccountCommandOptions {
  // What the plug-in is asked: "account" for its profile as it understands it, "defaults" for the settings that a
  // new meeting would get, each with who decided it.
  std::string question;
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Prints the plug-in's answer. Throws LabError when the client gives no profile.
ExitCode tellAccount(const AccountCommandOptions& options);

// The command "account".
Command addAccount(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
