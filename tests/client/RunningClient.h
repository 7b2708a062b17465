#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "lab/client/Envelope.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace vornlab::test {

// The client, or another program.
struct RunningClient : RunningProgram {
  explicit RunningClient(std::vector<std::string> arguments, const std::string& program = VORNCLIENT_PROGRAM)
      : RunningProgram(program, std::move(arguments)) {}
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
