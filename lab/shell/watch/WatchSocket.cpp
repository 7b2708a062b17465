#include "lab/shell/watch/WatchSocket.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <utility>

#include "util/HighDescriptor.h"

namespace vornlab {
namespace {

constexpr int kMostWaiting = 16;

std::optional<sockaddr_un> addressOf(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string& name = path.native();
  if (name.size() >= sizeof(address.sun_path)) return std::nullopt;
  name.copy(address.sun_path, name.size());
  return address;
}

WatchDescriptor newSocket() {
  return WatchDescriptor(vorn::highDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)));
}

}  // namespace

WatchDescriptor& WatchDescriptor::operator=(WatchDescriptor&& other) noexcept {
  if (this == &other) return *this;
  reset();
  m_number = other.release();
  return *this;
}

int WatchDescriptor::release() { return std::exchange(m_number, -1); }

void WatchDescriptor::reset() {
  if (m_number >= 0) close(release());
}

WatchDescriptor listenForWatchers(const std::filesystem::path& path) {
  const auto address = addressOf(path);
  WatchDescriptor made = newSocket();
  if (!address || !made) return {};
  // Left behind by a process of the same number that is no more.
  unlink(path.c_str());
  const bool isDone = bind(made.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0 &&
                      listen(made.number(), kMostWaiting) == 0;
  return isDone ? std::move(made) : WatchDescriptor();
}

WatchConnection connectToLaboratory(const std::filesystem::path& path) {
  const auto address = addressOf(path);
  WatchDescriptor made = newSocket();
  if (!address || !made) return {};
  if (connect(made.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0) {
    return {std::move(made), false};
  }
  return {{}, errno == ECONNREFUSED || errno == ENOENT};
}

}  // namespace vornlab
