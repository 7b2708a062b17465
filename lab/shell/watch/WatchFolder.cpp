#include "lab/shell/watch/WatchFolder.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>

#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"
#include "util/AtomicFile.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;

fs::path placeForUser() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && *runtime == '/') return fs::path(runtime) / "vornlab";
  return TemporaryFolder::place() / ("vornlab-watch-" + std::to_string(getuid()));
}

bool isRunning(std::int64_t process) {
  return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH);
}

}  // namespace

WatchFolder::WatchFolder() : m_path(placeForUser()) {
  if (mkdir(m_path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
    throw LabError("cannot make the folder " + m_path.string() + ": " + std::strerror(errno));
  }
  struct stat found {};
  const bool isOurs = lstat(m_path.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == getuid() &&
                      (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  if (!isOurs) throw LabError(m_path.string() + " is not a folder that only its owner can enter");
}

fs::path WatchFolder::socketOf(std::int64_t process) const { return m_path / (std::to_string(process) + ".sock"); }

fs::path WatchFolder::fileOf(std::int64_t process) const { return m_path / (std::to_string(process) + ".json"); }

void WatchFolder::put(const WatchEntry& entry) const {
  const nlohmann::json object{
      {"process", entry.process}, {"command", entry.command}, {"world", entry.world.string()}};
  // Whole at once, so that nobody reads a half; it need not reach the disk, for which the laboratory would wait.
  const fs::path file = fileOf(entry.process);
  const fs::path unfinished = file.string() + ".new";
  std::ofstream(unfinished) << object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  std::error_code ignored;
  fs::rename(unfinished, file, ignored);
}

void WatchFolder::remove(std::int64_t process) const {
  std::error_code ignored;
  fs::remove(fileOf(process), ignored);
  fs::remove(socketOf(process), ignored);
}

std::vector<WatchEntry> WatchFolder::entries() const {
  std::vector<WatchEntry> result;
  std::error_code ignored;
  for (const fs::directory_entry& file : fs::directory_iterator(m_path, ignored)) {
    if (file.path().extension() != ".json") continue;
    const auto entry = read(file.path());
    if (!entry) continue;
    if (isRunning(entry->process)) {
      result.push_back(*entry);
    } else {
      remove(entry->process);
    }
  }
  std::sort(result.begin(), result.end(),
            [](const WatchEntry& a, const WatchEntry& b) { return a.process < b.process; });
  return result;
}

std::optional<WatchEntry> WatchFolder::read(const fs::path& file) const {
  const auto json = nlohmann::json::parse(vorn::readFile(file.string()).value_or(""), nullptr, false);
  try {
    const WatchEntry entry{json.at("process"), json.at("command"), json.at("world").get<std::string>()};
    return file == fileOf(entry.process) ? std::optional(entry) : std::nullopt;
  } catch (const nlohmann::json::exception&) {
    return std::nullopt;
  }
}

}  // namespace vornlab
