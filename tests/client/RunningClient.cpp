#include "RunningClient.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <fstream>

#include "lab/client/MessageScanner.h"

namespace vornlab::test {
namespace {

constexpr int kPatience = 120'000;  // milliseconds

bool isReadable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return ::poll(&waiting, 1, kPatience) > 0;
}

}  // namespace

std::vector<nlohmann::json> journalOf(const std::filesystem::path& file) {
  std::vector<nlohmann::json> events;
  std::ifstream journal(file);
  for (std::string line; std::getline(journal, line);) events.push_back(nlohmann::json::parse(line));
  return events;
}

Caller::Caller(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof(address.sun_path) - 1);
  m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return;
  ::close(m_socket);
  m_socket = -1;
}

Caller::~Caller() {
  if (m_socket >= 0) ::close(m_socket);
}

void Caller::send(const std::string& text) const {
  std::size_t sent = 0;
  while (sent < text.size()) {
    const ssize_t count = ::send(m_socket, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

std::string Caller::read() const {
  std::array<char, 8191> buffer{};
  const ssize_t count = isReadable(m_socket) ? ::read(m_socket, buffer.data(), buffer.size()) : 0;
  return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
}

std::optional<Envelope> Caller::receive() {
  MessageScanner scanner;
  for (;;) {
    const std::string bytes = read();
    if (bytes.empty()) return std::nullopt;
    const auto found = scanner.feed(bytes);
    if (!found.empty()) return fromText(found.front());
  }
}

std::optional<Envelope> Caller::ask(const Envelope& request) {
  send(toText(request));
  return receive();
}

}  // namespace vornlab::test
