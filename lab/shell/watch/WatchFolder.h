#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vornlab {

// A laboratory that runs and can be watched.
struct WatchEntry {
  std::int64_t process = 0;
  // The words of its command line, covered.
  std::string command;
  // The folder of its present world.
  std::filesystem::path world;
};

// Where the laboratories of one user are found: a folder that nobody else can enter, with a socket and a small
// file of JSON for each that runs. It lies in the user's runtime folder, or where there is none in the folder for
// temporary files.
class WatchFolder {
 public:
  // Makes the folder when it is missing. Throws LabError when it cannot be made, or belongs to somebody else, or
  // others could enter it.
  WatchFolder();

  std::filesystem::path socketOf(std::int64_t process) const;

  // Writes the entry of a process, or takes everything of the process away. A failure is nothing that a laboratory
  // has to hear of: it is then not found.
  void put(const WatchEntry& entry) const;
  void remove(std::int64_t process) const;

  // The laboratories that run, by the numbers of their processes. What is left of one that was killed is taken
  // away.
  std::vector<WatchEntry> entries() const;

 private:
  std::filesystem::path fileOf(std::int64_t process) const;
  std::optional<WatchEntry> read(const std::filesystem::path& file) const;

  std::filesystem::path m_path;
};

}  // namespace vornlab
