#pragma once

#include <stdexcept>

namespace vornlab {

// Why a command of the laboratory cannot go on, as a sentence for the person who started it.
class LabError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The same when what the person gave is at fault: an option, or a file that cannot be read or written.
class UsageError : public LabError {
 public:
  using LabError::LabError;
};

// The person wants the program to end.
class Interrupted : public LabError {
 public:
  using LabError::LabError;
};

// The exit codes of every command; the last one is what shells give to a program that is interrupted.
enum class ExitCode { done = 0, somethingFailed = 1, badUsage = 2, interrupted = 130 };

}  // namespace vornlab
