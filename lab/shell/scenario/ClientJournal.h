#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace vornlab {

// Follows the journal of the stand-in client, to know which requests have reached it and which replies to them can
// still come. Counts begin at the last begin().
class ClientJournal {
 public:
  explicit ClientJournal(std::filesystem::path path) : path_(std::move(path)) {}

  // Begins to count anew. `isConnected`: whether a connection that stands goes on standing.
  void begin(bool isConnected);
  // Reads what has been written since.
  void read();

  // Requests that the client has dealt with to the end.
  std::size_t answered() const { return answered_; }
  // Replies that will arrive, and those of which nobody knows, because they were spoilt on the way.
  std::size_t sureReplies() const { return sureReplies_; }
  std::size_t doubtfulReplies() const { return doubtfulReplies_; }
  int connections() const { return connections_; }

 private:
  void take(const std::string& line);

  std::filesystem::path path_;
  std::size_t position_ = 0;
  std::size_t answered_ = 0;
  std::size_t sureReplies_ = 0;
  std::size_t doubtfulReplies_ = 0;
  int connections_ = 0;
};

}  // namespace vornlab
