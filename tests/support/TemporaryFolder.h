#pragma once

#include <filesystem>
#include <string>

namespace vornlab::test {

// A folder of its own for one test, removed at the end.
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

}  // namespace vornlab::test
