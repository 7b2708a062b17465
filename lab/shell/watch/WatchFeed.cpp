#include "lab/shell/watch/WatchFeed.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace vornlab {
namespace {

// No laboratory tells so much at once.
constexpr std::size_t kLongestLine = 8 << 20;

}  // namespace

std::vector<std::string> WatchFeed::read() {
  std::vector<std::string> lines;
  std::array<char, 65536> bytes{};
  while (m_socket) {
    const ssize_t count = recv(m_socket.number(), bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) break;
    if (count <= 0 || m_begun.size() > kLongestLine) {
      m_socket.reset();
      break;
    }
    std::string_view rest(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
      lines.push_back(std::exchange(m_begun, {}) + std::string(rest.substr(0, end)));
      rest.remove_prefix(end + 1);
    }
    m_begun += rest;
  }
  return lines;
}

}  // namespace vornlab
