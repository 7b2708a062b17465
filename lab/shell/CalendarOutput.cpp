#include "lab/shell/CalendarOutput.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "lab/shell/LabError.h"
#include "lab/shell/Output.h"
#include "lab/shell/TemporaryFolder.h"
#include "secrets/SecretMask.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;

std::string because(int error) { return std::string(": ") + std::strerror(error); }

std::optional<struct stat> factsOf(const fs::path& path) {
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0) return std::nullopt;
  return facts;
}

fs::path folderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

bool areOne(const fs::path& one, const fs::path& other) {
  std::error_code failed;
  if (fs::equivalent(one, other, failed)) return true;
  // Neither needs to be there yet.
  return !other.empty() &&
         fs::weakly_canonical(fs::absolute(one), failed) == fs::weakly_canonical(fs::absolute(other), failed) &&
         !failed;
}

constexpr mode_t kAccessBits = 0777;

int writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

// Under a name that nobody has: "plan-" and six characters of the system's before ".ics", for example. For its
// owner alone, unless it may take the mode of the file with the facts.
std::optional<fs::path> writeNewFile(const fs::path& file, std::string_view text,
                                     const std::optional<struct stat>& facts) {
  const std::string ending = file.extension();
  std::string path = (file.parent_path() / file.stem()).lexically_normal().string() + "-XXXXXX" + ending;
  const int descriptor = ::mkstemps(path.data(), static_cast<int>(ending.size()));
  if (descriptor < 0) return std::nullopt;
  if (facts && S_ISREG(facts->st_mode)) ::fchmod(descriptor, facts->st_mode & kAccessBits);
  const bool isWritten = writeAll(descriptor, text) == 0 && ::fsync(descriptor) == 0;
  if (::close(descriptor) == 0 && isWritten) return path;
  ::unlink(path.c_str());
  return std::nullopt;
}

}  // namespace

CalendarOutput::CalendarOutput(fs::path output, const std::vector<fs::path>& otherFiles)
    : m_path(std::move(output)) {
  if (m_path == "-") {
    flushOutput();
    m_descriptor = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (m_descriptor < 0) throw UsageError("standard output is closed");
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    return;
  }
  m_before = factsOf(m_path);
  // A name that is too long, or a link to itself: nothing could be made there either.
  if (!m_before && (errno != ENOENT || m_path.empty())) {
    throw UsageError("cannot write into " + m_path.string() + because(errno));
  }
  for (const fs::path& other : otherFiles) {
    if (areOne(m_path, other)) throw UsageError(m_path.string() + " is needed for something else in this run");
  }
  if (m_before && S_ISDIR(m_before->st_mode)) throw UsageError(m_path.string() + " is a folder");
  if (m_before && !S_ISREG(m_before->st_mode)) {
    m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (m_descriptor < 0) throw UsageError("cannot write into " + m_path.string() + because(errno));
    return;
  }
  // The mode is asked, too: one who may do everything is meant by it as well.
  if (m_before && ((m_before->st_mode & kAnyWriter) == 0 || ::access(m_path.c_str(), W_OK) != 0)) {
    throw UsageError(m_path.string() + " may only be read");
  }
  std::error_code unknown;
  m_folder = folderOf(fs::is_symlink(m_path, unknown) ? vorn::behindLinks(m_path.string()) : m_path.string());
  if (::access(m_folder.c_str(), W_OK) != 0) {
    throw UsageError("cannot write into the folder " + m_folder.string() + because(errno));
  }
}

CalendarOutput::~CalendarOutput() {
  if (m_descriptor >= 0) ::close(m_descriptor);
}

void CalendarOutput::expectRoom(std::size_t bytes) const {
  if (!isPlainFile()) return;
  std::string name = (m_folder / ".vornlab-XXXXXX").string();
  const int descriptor = ::mkstemp(name.data());
  if (descriptor < 0) throw LabError("cannot write into the folder " + m_folder.string() + because(errno));
  const std::string piece(std::min<std::size_t>(bytes, 1 << 20), '\0');
  int error = 0;
  for (std::size_t left = bytes; left > 0 && error == 0;) {
    const std::size_t count = std::min(left, piece.size());
    error = writeAll(descriptor, std::string_view(piece).substr(0, count));
    left -= count;
  }
  if (error == 0 && ::fsync(descriptor) != 0) error = errno;
  ::close(descriptor);
  ::unlink(name.c_str());
  if (error != 0) throw LabError("there is no room for " + m_path.string() + because(error));
}

bool CalendarOutput::isAsBefore() const {
  const std::optional<struct stat> now = factsOf(m_path);
  if (!now || !m_before) return !now && !m_before;
  return now->st_ino == m_before->st_ino && now->st_dev == m_before->st_dev && now->st_size == m_before->st_size &&
         now->st_mtim.tv_sec == m_before->st_mtim.tv_sec && now->st_mtim.tv_nsec == m_before->st_mtim.tv_nsec;
}

void CalendarOutput::requireAsBefore() const {
  const fs::path folder = folderOf(m_path);
  std::error_code failed;
  if (!fs::is_directory(folder, failed)) {
    throw LabError(m_path.string() + " was not written; its folder " + folder.string() + " is gone");
  }
  if (!isAsBefore()) throw LabError(m_path.string() + " has been changed meanwhile, and was not overwritten");
}

void CalendarOutput::write(std::string_view text, const fs::path& model) {
  if (!isPlainFile()) {
    const int error = writeAll(m_descriptor, text);
    const std::string place = m_path == "-" ? "standard output" : m_path.string();
    if (error != 0) throw LabError("cannot write into " + place + because(error));
    return;
  }
  requireAsBefore();
  errno = 0;
  if (!vorn::replaceFile(m_path.string(), text, model.string())) {
    throw LabError("cannot write " + m_path.string() + (errno == 0 ? "" : because(errno)));
  }
}

std::optional<fs::path> CalendarOutput::writeElsewhere(std::string_view text, const fs::path& model) const {
  struct Place {
    fs::path folder;
    std::optional<struct stat> facts;
  };
  std::vector<Place> places;
  std::vector<fs::path> names{"vornlab.ics"};
  if (isPlainFile()) {
    places.push_back({folderOf(m_path), m_before ? m_before : factsOf(model)});
    names.insert(names.begin(), m_path.filename());
  }
  // Where others have files, too, any mode could be too open.
  places.push_back({TemporaryFolder::place(), {}});
  // A path that looks like an address would be covered where it is told, and the person could not find the file.
  for (const bool mayBeCovered : {false, true}) {
    for (const Place& place : places) {
      for (const fs::path& name : names) {
        const std::string file = (place.folder / name).string();
        if (!mayBeCovered && vorn::SecretMask::covered(file) != file) continue;
        if (auto path = writeNewFile(file, text, place.facts)) return path;
      }
    }
  }
  return std::nullopt;
}

}  // namespace vornlab
