#include "lab/shell/TemporaryFolder.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include "lab/shell/LabError.h"

namespace vornlab {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kOwnedName = "vornlab-run-";
// One that has just been made is not locked yet.
constexpr std::time_t kYoungSeconds = 60;

fs::path makeNamed(std::string_view beginning) {
  std::string name = (TemporaryFolder::place() / beginning).string() + "XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    const std::string reason = std::strerror(errno);
    throw LabError("cannot make the folder " + name + " with TMPDIR=" + TemporaryFolder::place().string() + ": " +
                   reason);
  }
  return fs::canonical(name);
}

void clearAbandoned() {
  std::error_code failed;
  for (fs::directory_iterator entry(TemporaryFolder::place(), failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const fs::path& folder = entry->path();
    struct stat facts {};
    if (!folder.filename().string().starts_with(kOwnedName) || ::lstat(folder.c_str(), &facts) != 0) continue;
    if (facts.st_uid != ::getuid() || std::time(nullptr) - facts.st_mtime < kYoungSeconds) continue;
    const FolderLock lock(folder);
    if (lock.state() != FolderLock::State::held) continue;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  clearAbandoned();
  m_path = makeNamed(kOwnedName);
  m_lock.emplace(m_path);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

fs::path TemporaryFolder::place() {
  const char* named = std::getenv("TMPDIR");
  return named != nullptr && *named != '\0' ? named : "/tmp";
}

fs::path TemporaryFolder::make() { return makeNamed("vornlab-"); }

}  // namespace vornlab
