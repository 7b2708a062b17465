#pragma once

#include <filesystem>

#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"
#include "lab/shell/RoadPrinter.h"

namespace vornlab {

struct DemoOptions {
  // The calendar, and the appointment that is taken: the first when none is named.
  CalendarInput input;
  std::string uid;
  // Where the changed calendar goes; "" for nowhere.
  std::filesystem::path output;
  RoadPrinter::Envelopes envelopes = RoadPrinter::Envelopes::cut;
  LabOptions lab;
};

// Shows one appointment become an online meeting, step by step, with nothing secret on the screen. Throws LabError
// when it cannot begin.
ExitCode demo(const DemoOptions& options);

// The command "demo".
Command addDemo(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
