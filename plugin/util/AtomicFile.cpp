#include "util/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "util/HighDescriptor.h"

namespace vorn {

namespace {

constexpr mode_t kModeBits = 07777;
constexpr mode_t kAccessBits = 0777;
constexpr mode_t kOwnersBits = 0700;
constexpr mode_t kGroupsBits = 0070;
constexpr int kMostLinks = 40;

class Descriptor {
 public:
  explicit Descriptor(int number) : m_number(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return m_number; }
  explicit operator bool() const { return m_number >= 0; }
  bool close() {
    const int closing = std::exchange(m_number, -1);
    return closing < 0 || ::close(closing) == 0;
  }

 private:
  int m_number;
};

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// What a symbolic link says; absent for anything else.
std::optional<std::string> linkAt(const std::string& path) {
  std::array<char, PATH_MAX> target;
  const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return std::nullopt;
  return std::string(target.data(), static_cast<std::size_t>(length));
}

// The file's path with the ending behind it. A name that would be longer than any may be is cut for it, between
// two characters, since not every system takes a name that is no UTF-8.
std::string besideFile(const std::string& path, const std::string& ending) {
  const std::size_t name = path.rfind('/') + 1;
  if (path.size() - name + ending.size() <= NAME_MAX) return path + ending;
  std::size_t cut = name + NAME_MAX - ending.size();
  while (cut > name && (static_cast<unsigned char>(path[cut]) & 0xC0U) == 0x80U) --cut;
  return path.substr(0, cut) + ending;
}

bool writeAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Only an administrator may give a file away, but mostly one may give it to a group of one's own. Answers the mode
// of the one before, without what it would allow to somebody else than before: to run as the owner or the group,
// and what the group may do.
mode_t keepOwner(int descriptor, const struct stat& before) {
  struct stat made;
  if (::fstat(descriptor, &made) != 0) return before.st_mode & kOwnersBits;
  const bool isSame = made.st_uid == before.st_uid && made.st_gid == before.st_gid;
  if (isSame || ::fchown(descriptor, before.st_uid, before.st_gid) == 0) return before.st_mode & kModeBits;
  const bool keepsGroup = made.st_gid == before.st_gid || ::fchown(descriptor, made.st_uid, before.st_gid) == 0;
  return before.st_mode & (keepsGroup ? kAccessBits : kAccessBits & ~kGroupsBits);
}

bool writeNewFile(int descriptor, std::string_view content, const std::string& before, const std::string& model) {
  struct stat facts;
  std::optional<mode_t> mode;
  if (::stat(before.c_str(), &facts) == 0) {
    mode = keepOwner(descriptor, facts);
  } else if (!model.empty() && ::stat(model.c_str(), &facts) == 0) {
    mode = facts.st_mode & kModeBits;
  }
  if (mode && ::fchmod(descriptor, *mode) != 0) return false;
  return writeAll(descriptor, content) && ::fsync(descriptor) == 0;
}

// The size alone tells most of those that differ.
bool holds(const std::string& path, std::string_view content) {
  struct stat facts;
  return ::stat(path.c_str(), &facts) == 0 && static_cast<std::size_t>(facts.st_size) == content.size() &&
         readFile(path) == content;
}

void syncFolder(const std::string& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened) ::fsync(opened.number());
}

}  // namespace

std::string behindLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
  if (resolved) return resolved.get();
  std::string at = path;
  for (int links = 0; links < kMostLinks; ++links) {
    const std::optional<std::string> next = linkAt(at);
    if (!next) return at;
    at = next->front() == '/' ? *next : folderOf(at) + "/" + *next;
  }
  return {};
}

bool replaceFile(const std::string& path, std::string_view content, const std::string& model) {
  static std::atomic<unsigned> made{0};
  if (path.empty()) return false;
  if (holds(path, content)) return true;
  const std::string target = behindLinks(path);
  if (target.empty()) return false;
  std::string temporary;
  int number = -1;
  do {
    temporary = besideFile(target, ".new-" + std::to_string(::getpid()) + "-" + std::to_string(made++));
    number = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  } while (number < 0 && errno == EEXIST);
  if (number < 0) return false;
  Descriptor file(highDescriptor(number));
  const bool written = file && writeNewFile(file.number(), content, target, model);
  if (!file.close() || !written || std::rename(temporary.c_str(), target.c_str()) != 0) {
    ::unlink(temporary.c_str());
    return false;
  }
  syncFolder(folderOf(target));
  return true;
}

std::optional<std::string> readFile(const std::string& path) {
  // Without O_NONBLOCK a pipe under that name would hold the caller until somebody writes to it.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat facts;
  if (!file || ::fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
  // With room for one byte more than it should have, a file that has just those ends with the first reading.
  const auto expected = static_cast<std::size_t>(facts.st_size);
  std::string content(expected + 1, '\0');
  for (std::size_t length = 0;;) {
    const std::size_t room = content.size() - length;
    const ssize_t got = ::read(file.number(), content.data() + length, room);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    length += static_cast<std::size_t>(got);
    if (got == 0 || (length == expected && static_cast<std::size_t>(got) < room)) {
      content.resize(length);
      return content;
    }
    // It has grown meanwhile.
    if (length == content.size()) content.resize(2 * length);
  }
}

}  // namespace vorn
