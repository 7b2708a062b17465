#include "util/ParsedFiles.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "util/AtomicFile.h"

namespace vorn {

namespace {

// A window asks for a handful of small files; memory must not grow with those that come and go.
constexpr std::size_t kMostFiles = 8;
constexpr std::size_t kLargestKept = 1 << 18;

// When the file was written last, and when anything of it was changed.
struct Stamps {
  timespec written;
  timespec changed;
};

// The names of these members differ between the systems.
Stamps stampsOf(const struct stat& facts) {
#ifdef __APPLE__
  return {facts.st_mtimespec, facts.st_ctimespec};
#else
  return {facts.st_mtim, facts.st_ctim};
#endif
}

bool areOne(const timespec& a, const timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

bool isUnchanged(const struct stat& now, const struct stat& before) {
  const Stamps stamps = stampsOf(now);
  const Stamps former = stampsOf(before);
  return now.st_ino == before.st_ino && now.st_dev == before.st_dev && now.st_size == before.st_size &&
         areOne(stamps.written, former.written) && areOne(stamps.changed, former.changed);
}

// Two writings within one tick of the file system's clock look like one. Only when the tick of the last is over
// for certain will the next one show; some file systems count whole seconds, or two of them.
bool isSettled(const struct stat& facts) {
  using namespace std::chrono;
  const timespec change = stampsOf(facts).changed;
  const auto changed = seconds(change.tv_sec) + nanoseconds(change.tv_nsec);
  const nanoseconds tick = change.tv_nsec == 0 ? nanoseconds(seconds(3)) : nanoseconds(milliseconds(100));
  return system_clock::now().time_since_epoch() - changed > tick;
}

}  // namespace

Value ParsedFiles::read(const std::string& path) {
  const auto known =
      std::find_if(m_known.begin(), m_known.end(), [&](const Parsed& each) { return each.path == path; });
  struct stat facts {};
  const bool isThere = ::stat(path.c_str(), &facts) == 0;
  if (!isThere || facts.st_size > static_cast<off_t>(kLargestKept)) {
    if (known != m_known.end()) m_known.erase(known);
    const std::optional<std::string> content = isThere ? readFile(path) : std::nullopt;
    return content ? m_parse(*content) : Value();
  }
  if (known == m_known.end()) {
    m_known.emplace_front().path = path;
    if (m_known.size() > kMostFiles) m_known.pop_back();
  } else {
    m_known.splice(m_known.begin(), m_known, known);
    if (known->isSettled && isUnchanged(facts, known->facts)) return known->value;
  }
  return readAgain(m_known.front(), facts);
}

Value ParsedFiles::readAgain(Parsed& file, const struct stat& facts) {
  // Whatever goes wrong below, nothing is known of the file then.
  file.isSettled = false;
  std::optional<std::string> content = readFile(file.path);
  if (!content) {
    m_known.pop_front();
    return {};
  }
  if (file.value.isAbsent() || file.content != *content) {
    file.value = m_parse(*content);
    file.content = std::move(*content);
  }
  file.facts = facts;
  file.isSettled = isSettled(facts);
  return file.value;
}

}  // namespace vorn
