#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "lab/client/Journal.h"

namespace vornlab {

// The processes that run exactly this program, whoever has started them; zombies are none.
std::vector<pid_t> processesOf(const std::filesystem::path& program);

// Starts the client for the agent. What it has started ends with it, so that nothing of a laboratory is left
// behind. One thread only.
class ClientLauncher {
 public:
  // The journal must outlive the launcher.
  ClientLauncher(Journal& journal, std::filesystem::path program, std::vector<std::string> arguments);
  ~ClientLauncher();
  ClientLauncher(const ClientLauncher&) = delete;
  ClientLauncher& operator=(const ClientLauncher&) = delete;

  // Starts the program unless a process runs it. Its output comes to descriptor().
  void launch();
  // Readable when the program has said that it listens, or has ended without saying so; -1 when neither is
  // awaited.
  int descriptor() const { return m_output; }
  // Notes in the journal which of the two it was: "launched", or "launch failed".
  void takeOutput();

 private:
  void endOutput();

  Journal& m_journal;
  std::filesystem::path m_program;
  std::vector<std::string> m_arguments;
  pid_t m_process = 0;
  int m_output = -1;
};

}  // namespace vornlab
