#include "channel/transport/SocketDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include "channel/transport/vnIPCConstants.h"
#include "util/HighDescriptor.h"
#include "util/tdm.h"
#include "util/vnSafeHelper.h"

namespace vorn {

namespace {

constexpr int kListenerFullPauseMs = 20;
constexpr std::size_t kMostUnsent = 4 << 20;

// Where a descriptor cannot be told to raise no signal, each write can.
#ifdef MSG_NOSIGNAL
constexpr int kNoSignal = MSG_NOSIGNAL;
#else
constexpr int kNoSignal = 0;
#endif

bool isWait(int failure) { return failure == EAGAIN || failure == EWOULDBLOCK; }

}  // namespace

std::shared_ptr<SocketDescriptor> SocketDescriptor::make() {
  const int number = highDescriptor(::socket(AF_UNIX, SOCK_STREAM, 0));
  if (number < 0) return nullptr;
  auto made = std::make_shared<SocketDescriptor>(number);
  ::fcntl(number, F_SETFL, ::fcntl(number, F_GETFL) | O_NONBLOCK);
#ifdef F_SETNOSIGPIPE
  // Writing to a peer that is gone must not end the host. The descriptor is told so: the socket itself has no
  // option set.
  ::fcntl(number, F_SETNOSIGPIPE, 1);
#endif
  return made;
}

SocketDescriptor::~SocketDescriptor() { ::close(m_number); }

bool SocketDescriptor::connectTo(const std::string& path) {
  sockaddr_un address;
  if (tdm::memset_s(&address, sizeof address, 0, sizeof address) != 0) return false;
  address.sun_family = AF_UNIX;
  const std::size_t length = vnSafeHelper::vn_strnlen_s(path.c_str(), kIPCLongestPathInBytes);
  const std::size_t count = std::min(length, sizeof address.sun_path);
  if (count == 0 || vnSafeHelper::vn_memcpy_s(address.sun_path, count, path.data(), count) != 0) return false;
  const auto addressLength = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + count);

  const auto tryOnce = [&] {
    const std::lock_guard lock(m_connecting);
    return ::connect(m_number, reinterpret_cast<const sockaddr*>(&address), addressLength) == 0 ? 0 : errno;
  };
  while (const int failure = tryOnce()) {
    if (!isWait(failure) && failure != EINTR) return false;
    // No call waits for room in a local listener's queue and can still be woken by shutdown().
    ::poll(nullptr, 0, kListenerFullPauseMs);
    if (m_isShutDown) return false;
  }
  // A shutdown before the connection may have had no effect on it.
  return !m_isShutDown;
}

std::size_t SocketDescriptor::read(char* buffer, std::size_t size) {
  while (!m_isShutDown) {
    const ssize_t count = ::read(m_number, buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno == EINTR) continue;
    if (!isWait(errno)) return 0;
    pollfd readable{m_number, POLLIN, 0};
    ::poll(&readable, 1, -1);
  }
  return 0;
}

bool SocketDescriptor::write(std::string_view bytes) {
  // The peer may have accepted before connect() has returned here; its first message must not come too early.
  { const std::lock_guard lock(m_connecting); }
  flush();
  if (unsent() + bytes.size() > kMostUnsent) return false;
  if (unsent() == 0) bytes.remove_prefix(sendSome(bytes));
  m_unsent += bytes;
  return true;
}

void SocketDescriptor::flush() { m_unsent.erase(0, sendSome(m_unsent)); }

std::size_t SocketDescriptor::sendSome(std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::send(m_number, bytes.data() + done, bytes.size() - done, kNoSignal);
    if (count >= 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      return isWait(errno) ? done : bytes.size();
    }
  }
  return done;
}

void SocketDescriptor::shutDown() {
  m_isShutDown = true;
  ::shutdown(m_number, SHUT_RDWR);
}

}  // namespace vorn
