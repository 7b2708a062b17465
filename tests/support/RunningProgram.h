#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace vornlab::test {

// A program as a process of its own, without input. Every wait ends after a minute at the latest.
class RunningProgram {
 public:
  // A name without a slash is looked for in the PATH.
  explicit RunningProgram(std::string program, std::vector<std::string> arguments = {});
  // Kills it, if it has not ended.
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  // The next line of its output, or nothing when it ended or says nothing.
  std::optional<std::string> line();
  // Its exit code, or minus the signal that ended it; nothing when it does not end.
  std::optional<int> wait();
  void stop(int signal) const;
  // All that it has written so far.
  std::string output() const;
  std::string errors() const;

 private:
  bool hasEnded();

  // Files in memory: a program that is not read from does not wait.
  int m_output;
  int m_errors;
  pid_t m_process = 0;
  std::optional<int> m_exitCode;
  std::size_t m_lineBegin = 0;
};

}  // namespace vornlab::test
