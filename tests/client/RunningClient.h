#pragma once

#include <sys/types.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "lab/client/Envelope.h"
#include "tests/support/TemporaryFolder.h"

namespace vornlab::test {

// The program, or another one, as a process of its own. Every wait ends after ten seconds at the latest.
class RunningClient {
 public:
  explicit RunningClient(std::vector<std::string> arguments, std::string program = VORNCLIENT_PROGRAM);
  ~RunningClient();
  RunningClient(const RunningClient&) = delete;
  RunningClient& operator=(const RunningClient&) = delete;

  // The next line of its output, or nothing when it ended or says nothing.
  std::optional<std::string> line();
  // Its exit code, or minus the signal that ended it; nothing when it does not end.
  std::optional<int> wait();
  void stop(int signal) const;
  // All that it wrote to the error stream; to be asked when it has ended.
  std::string errors();

 private:
  pid_t m_process = -1;
  int m_output = -1;
  int m_errors = -1;
  std::string m_pending;
};

// The events of a journal.
std::vector<nlohmann::json> journalOf(const std::filesystem::path& file);

// A connection that reads as the other side does: at most 8191 bytes at a time.
class Caller {
 public:
  explicit Caller(const std::string& path);
  ~Caller();
  Caller(const Caller&) = delete;
  Caller& operator=(const Caller&) = delete;

  bool isConnected() const { return m_socket >= 0; }
  void send(const std::string& text) const;
  // What one read gives; empty at the end of the stream or when nothing comes.
  std::string read() const;
  // Reads until an envelope is whole.
  std::optional<Envelope> receive();
  std::optional<Envelope> ask(const Envelope& request);

 private:
  int m_socket = -1;
};

}  // namespace vornlab::test
