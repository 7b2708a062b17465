#pragma once

#include <filesystem>

namespace vornlab {

// A folder that is removed at the end, with all that it holds. Its path is short, for a client's socket may lie in
// it.
class TemporaryFolder {
 public:
  // Throws LabError when it cannot be made.
  TemporaryFolder() : m_path(make()) {}
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }

  // A new folder of this kind that stays until somebody removes it. Throws LabError.
  static std::filesystem::path make();

 private:
  std::filesystem::path m_path;
};

}  // namespace vornlab
