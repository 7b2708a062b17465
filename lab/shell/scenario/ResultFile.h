#pragma once

#include <filesystem>
#include <optional>

#include "lab/shell/scenario/ScenarioPlayer.h"

namespace vornlab {

// How a scenario went, on its way from the process that has played it to the one that reports it. Nothing is
// covered here: the file lies in the folder of that process, and the report covers.

// False when the file cannot be written.
bool writeResult(const std::filesystem::path& file, const ScenarioResult& result);
// Absent for a file that is not there or holds no result.
std::optional<ScenarioResult> readResult(const std::filesystem::path& file);

}  // namespace vornlab
