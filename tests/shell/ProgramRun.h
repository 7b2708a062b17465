#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace vornlab::test {

// What a program printed and how it ended.
struct ProgramRun {
  int exitCode = -1;
  std::string output;
  std::string errors;
};

// Runs a program to its end, which must come within four minutes; a negative exit code is that of one that had to
// be killed.
ProgramRun runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments);

std::string contentOf(const std::filesystem::path& path);

}  // namespace vornlab::test
