#include "lab/shell/watch/WatchPost.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "lab/shell/LabError.h"
#include "lab/shell/Words.h"
#include "secrets/SecretMask.h"
#include "util/HighDescriptor.h"

namespace vornlab {
namespace {

// A command line may name hundreds of files.
constexpr std::size_t kCommandBytes = 200;
constexpr std::size_t kMostWatchers = 16;
// What is held for a watcher beyond what the system holds.
constexpr std::size_t kMostUnsent = 1 << 20;

}  // namespace

WatchPost::WatchPost(const std::string& command)
    : m_laboratory{0, getpid(), shortened(vorn::SecretMask::covered(command), kCommandBytes)} {
  adoptWatcher();
}

WatchPost::~WatchPost() {
  tell(WatchEnd{now()});
  if (m_listening) m_folder->remove(m_laboratory.process);
}

double WatchPost::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_began).count();
}

void WatchPost::adoptWatcher() {
  const char* text = std::getenv(kWatcherVariable);
  if (text == nullptr) return;
  int number = -1;
  std::from_chars(text, text + std::strlen(text), number);
  unsetenv(kWatcherVariable);
  struct stat found {};
  if (number > STDERR_FILENO && fstat(number, &found) == 0 && S_ISSOCK(found.st_mode)) {
    m_newcomers.push_back({WatchDescriptor(vorn::highDescriptor(number)), ""});
  }
}

void WatchPost::announce(const std::filesystem::path& world) {
  if (!m_listening) {
    try {
      if (!m_folder) m_folder.emplace();
    } catch (const LabError&) {
      return;
    }
    m_listening = listenForWatchers(m_folder->socketOf(m_laboratory.process));
  }
  if (m_listening) m_folder->put({m_laboratory.process, m_laboratory.command, world});
}

void WatchPost::takeNewcomers() {
  while (m_listening) {
    WatchDescriptor came(
        vorn::highDescriptor(accept4(m_listening.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)));
    if (!came) return;
    if (m_newcomers.size() + m_watchers.size() < kMostWatchers) m_newcomers.push_back({std::move(came), ""});
  }
}

void WatchPost::serve(const std::function<std::vector<WatchEvent>()>& greeting) {
  std::erase_if(m_watchers, [](Watcher& watcher) { return !send(watcher, ""); });
  takeNewcomers();
  if (m_newcomers.empty()) return;
  std::string lines = watchLine(m_laboratory);
  for (const WatchEvent& event : greeting()) lines += watchLine(event);
  for (Watcher& newcomer : std::exchange(m_newcomers, {})) {
    if (send(newcomer, lines)) m_watchers.push_back(std::move(newcomer));
  }
}

void WatchPost::tell(const WatchEvent& event) {
  if (!isWatched()) return;
  const std::string line = watchLine(event);
  std::erase_if(m_watchers, [&line](Watcher& watcher) { return !send(watcher, line); });
}

bool WatchPost::send(Watcher& watcher, const std::string& lines) {
  watcher.unsent += lines;
  std::size_t sent = 0;
  while (sent < watcher.unsent.size()) {
    const ssize_t count = ::send(watcher.socket.number(), watcher.unsent.data() + sent,
                                 watcher.unsent.size() - sent, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK) return false;
    if (count <= 0) break;
    sent += static_cast<std::size_t>(count);
  }
  watcher.unsent.erase(0, sent);
  return watcher.unsent.size() <= kMostUnsent;
}

}  // namespace vornlab
