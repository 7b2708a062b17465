#pragma once

#include <filesystem>

namespace vornlab {

// Says to other runs that a folder is in use. It lasts as long as this object, or as its process however that
// ends, and leaves nothing in the folder. Programs that are started know nothing of it.
class FolderLock {
 public:
  enum class State { held, heldByAnother, none };

  // Does not wait. None for what is no folder, or a link to one, and on a disk that has no locks.
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  State state() const { return m_state; }

 private:
  int m_descriptor;
  State m_state = State::none;
};

}  // namespace vornlab
