#pragma once

#include <filesystem>
#include <optional>

#include "lab/shell/FolderLock.h"

namespace vornlab {

// A folder that is removed at the end, with all that it holds. Its path is short, for a client's socket may lie in
// it. What a program that was killed has left of this kind is removed by the next one that makes such a folder.
class TemporaryFolder {
 public:
  // Throws LabError when it cannot be made.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }

  // A new folder that stays until somebody removes it. Throws LabError.
  static std::filesystem::path make();

  // Where such folders are made: what TMPDIR names, or /tmp where it names nothing.
  static std::filesystem::path place();

 private:
  std::filesystem::path m_path;
  std::optional<FolderLock> m_lock;
};

}  // namespace vornlab
