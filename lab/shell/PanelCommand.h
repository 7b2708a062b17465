#pragma once

#include <string>
#include <vector>

#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"

namespace vornlab {

struct PanelOptions {
  // "" for the panel of a new appointment.
  CalendarInput input;
  // May be left out for a file with one appointment.
  std::string uid;
  // What is hidden is told, too.
  bool all = false;
  // Lists the words of the panel's options instead.
  bool words = false;
  // Each in the language of `TryLanguage.h`.
  std::vector<std::string> tries;
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Opens the settings panel of an appointment and prints it as a person would see it, or what comes of trying
// something in it. Nothing is committed, and nothing is written. Throws LabError when no panel opens. Exit code 1
// when something that was tried could not be done, and when a UID is not there.
ExitCode showPanel(const PanelOptions& options);

// The command "panel".
Command addPanel(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
