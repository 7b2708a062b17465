#include "lab/shell/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace vornlab {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : m_descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {
  if (m_descriptor < 0) return;
  if (::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0) {
    m_state = State::held;
  } else if (errno == EWOULDBLOCK) {
    m_state = State::heldByAnother;
  }
}

FolderLock::~FolderLock() {
  if (m_descriptor >= 0) ::close(m_descriptor);
}

}  // namespace vornlab
