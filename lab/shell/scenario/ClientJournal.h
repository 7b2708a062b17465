#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace vornlab {

// Follows the journal of the stand-in client, to know which requests have reached it and which replies to them can
// still come. Counts begin at the last begin().
class ClientJournal {
 public:
  explicit ClientJournal(std::filesystem::path path) : m_path(std::move(path)) {}

  // Begins to count anew. `isConnected`: whether a connection that stands goes on standing.
  void begin(bool isConnected);
  // Reads what has been written since.
  void read();

  // Requests that the client has dealt with to the end.
  std::size_t answered() const { return m_answered; }
  // Replies that will arrive, and those of which nobody knows, because they were spoilt on the way.
  std::size_t sureReplies() const { return m_sureReplies; }
  std::size_t doubtfulReplies() const { return m_doubtfulReplies; }
  int connections() const { return m_connections; }
  // What the agent has done since the first reading: "launched", "launch failed", or "about" with a version.
  const std::vector<std::string>& agentActs() const { return m_agentActs; }

 private:
  void take(const std::string& line);

  std::filesystem::path m_path;
  std::size_t m_position = 0;
  std::size_t m_answered = 0;
  std::size_t m_sureReplies = 0;
  std::size_t m_doubtfulReplies = 0;
  int m_connections = 0;
  std::vector<std::string> m_agentActs;
};

}  // namespace vornlab
