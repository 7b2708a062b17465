#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace vornlab {

// Follows the client's journal as it grows, and tells each envelope in a line that a person can read. Secrets are
// covered where the journal is written. Main thread only.
class JournalTail {
 public:
  explicit JournalTail(std::filesystem::path journal) : m_journal(std::move(journal)) {}

  // What has come since the last time; of a line that is half written nothing yet. Time is that of the new bytes.
  std::vector<std::string> takeLines();

 private:
  std::filesystem::path m_journal;
  std::size_t m_read = 0;
  std::string m_rest;
};

}  // namespace vornlab
