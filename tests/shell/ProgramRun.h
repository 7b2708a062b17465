#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vornlab::test {

// What a program printed and how it ended.
struct ProgramRun {
  int exitCode = -1;
  std::string output;
  std::string errors;
};

// Runs a program to its end, which must come within a minute; -1 is the exit code of one that had to be killed.
ProgramRun runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments);

// A folder that is removed at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }
  const std::filesystem::path& path() const { return m_path; }
  // Writes a file with its folders and gives its path.
  std::filesystem::path write(const std::filesystem::path& name, const std::string& content) const;

 private:
  std::filesystem::path m_path;
};

std::string contentOf(const std::filesystem::path& path);

}  // namespace vornlab::test
