#pragma once

#include <sys/types.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "lab/shell/watch/WatchSocket.h"

namespace vornlab {

// A laboratory that is started to be watched from its first step on. What it prints is kept until it has ended. It
// ends with this object.
class WatchedProgram {
 public:
  // Throws LabError when it cannot be started.
  WatchedProgram(const std::filesystem::path& program, const std::vector<std::string>& words);
  ~WatchedProgram();
  WatchedProgram(const WatchedProgram&) = delete;
  WatchedProgram& operator=(const WatchedProgram&) = delete;

  pid_t id() const { return m_id; }
  // The connection to it; can be taken once.
  WatchDescriptor takeConnection() { return std::move(m_connection); }
  // Waits for the end, which is demanded when the person wants this program to end. Gives the exit code, or 1 for
  // a program that was killed.
  int waitForEnd();
  // Copies what it has printed.
  void printOutput(std::FILE* stream) const;

 private:
  bool hasEnded();

  pid_t m_id = 0;
  int m_status = 0;
  WatchDescriptor m_connection;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_output;
};

}  // namespace vornlab
