#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "lab/shell/CommandLine.h"

namespace vornlab {

struct WatchOptions {
  // Which laboratory: by the folder of its world, or by its process; "" and 0 for the one that runs.
  std::filesystem::path world;
  std::int64_t process = 0;
  // The words of a laboratory to start and watch; none to watch one that runs by itself.
  std::vector<std::string> words;
  ReportForm form = ReportForm::words;
  LabOptions lab;
};

// Shows a running laboratory until it ends or the person wants to leave; waits for one to start where none runs.
// Throws UsageError when several could be meant. The exit code of a laboratory that was started here is the
// command's own.
ExitCode watch(const WatchOptions& options);

// The command "watch".
Command addWatch(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
