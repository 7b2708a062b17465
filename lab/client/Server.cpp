#include "lab/client/Server.h"

#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

namespace vornlab {
namespace {

using std::chrono::microseconds;

constexpr microseconds kShortestPause{50};
constexpr microseconds kLongestPause{20'000};
// What a reader gets where the system cannot tell whether it has taken everything.
constexpr microseconds kBlindPause{2'000};
constexpr std::size_t kMostQueued = 256;

std::string reason() { return std::strerror(errno); }

// Whether somebody accepts connections there.
bool isListening(const sockaddr_un& address) {
  const int probe = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (probe < 0) return false;
  const int connected = ::connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  // A full backlog is somebody, too.
  const bool listening = connected == 0 || errno == EAGAIN;
  ::close(probe);
  return listening;
}

timespec asTimespec(microseconds time) {
  return {static_cast<time_t>(time.count() / 1'000'000), static_cast<long>(time.count() % 1'000'000 * 1000)};
}

}  // namespace

Server::Server(Service& service, Journal& journal, FaultBook faults, Options options)
    : m_service(service),
      m_journal(journal),
      m_desk(service, journal, std::move(faults)),
      m_options(std::move(options)) {}

Server::~Server() {
  for (auto& connection : m_connections) close(connection);
  closeSocket();
}

void Server::listen() {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string& path = m_options.path;
  if (path.size() >= sizeof(address.sun_path)) {
    throw ServerError("the path of the socket has " + std::to_string(path.size()) + " bytes, at most " +
                      std::to_string(sizeof(address.sun_path) - 1) + " are possible: " + path);
  }
  path.copy(address.sun_path, sizeof(address.sun_path) - 1);

  struct stat found {};
  if (::lstat(path.c_str(), &found) == 0) {
    if (!S_ISSOCK(found.st_mode)) throw ServerError(path + " exists and is no socket");
    if (isListening(address)) throw ServerError("another client listens on " + path);
    if (::unlink(path.c_str()) != 0)
      throw ServerError("the stale socket " + path + " cannot be removed: " + reason());
  }

  m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (m_socket < 0) throw ServerError("no socket: " + reason());
  // The file must not be open to others for a moment either, so its mode is not changed afterwards.
  const mode_t before = ::umask(0177);
  const int bound = ::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  const int bindError = errno;
  ::umask(before);
  errno = bindError;
  if (bound != 0) throw ServerError(path + " cannot be opened: " + reason());
  if (::lstat(path.c_str(), &found) == 0) {
    m_device = found.st_dev;
    m_inode = found.st_ino;
  }
  if (::listen(m_socket, 64) != 0) throw ServerError(path + " cannot be listened on: " + reason());
}

void Server::run(int stopDescriptor) {
  std::vector<pollfd> waiting;
  std::vector<Connection*> owners;
  for (;;) {
    waiting.clear();
    owners.clear();
    waiting.push_back({stopDescriptor, POLLIN, 0});
    waiting.push_back({m_socket, POLLIN, 0});
    std::optional<microseconds> timeout;
    const auto wakeIn = [&](microseconds time) { timeout = timeout ? std::min(*timeout, time) : time; };
    const auto now = Clock::now();
    for (auto& connection : m_connections) {
      short events = connection.outgoing.size() < kMostQueued ? POLLIN : 0;
      if (!connection.outgoing.empty()) {
        const auto& head = connection.outgoing.front();
        if (head.sent > 0) {
          events = static_cast<short>(events | POLLOUT);
        } else if (head.due > now) {
          wakeIn(std::chrono::duration_cast<microseconds>(head.due - now) + microseconds(1));
        } else {
          wakeIn(connection.pause);
        }
      }
      waiting.push_back({connection.descriptor, events, 0});
      owners.push_back(&connection);
    }

    const timespec limit = asTimespec(timeout.value_or(microseconds(0)));
    if (::ppoll(waiting.data(), waiting.size(), timeout ? &limit : nullptr, nullptr) < 0 && errno != EINTR) return;
    if (waiting[0].revents != 0) return;
    if (waiting[1].revents != 0) accept();
    for (std::size_t i = 0; i < owners.size(); ++i) {
      if ((waiting[i + 2].revents & (POLLIN | POLLHUP | POLLERR)) != 0) receive(*owners[i]);
      flush(*owners[i]);
    }
    // The new socket stands before the old connections end, so whoever sees the end can connect again at once.
    if (m_restartDue) restart();
    m_connections.remove_if([this](Connection& connection) {
      if (connection.isOver) close(connection);
      return connection.isOver;
    });
  }
}

void Server::accept() {
  for (;;) {
    const int descriptor = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (descriptor < 0) return;
    Connection& connection = m_connections.emplace_back();
    connection.descriptor = descriptor;
    connection.id = ++m_lastId;
    m_journal.note("connected", {{"connection", connection.id}});
    if (std::exchange(m_versionIsOwed, false) || m_options.announceVersion) announceVersion(connection);
  }
}

void Server::announceVersion() {
  m_versionIsOwed = m_connections.empty();
  for (auto& connection : m_connections) announceVersion(connection);
}

void Server::announceVersion(Connection& connection) {
  const Envelope answer = m_service.versionAnswer();
  m_journal.note("reply", {{"connection", connection.id},
                           {"action", answer.action},
                           {"bytes", answer.content.size()},
                           {"micros", 0},
                           {"content", answer.content}});
  queue(connection, answer, {});
  flush(connection);
}

void Server::receive(Connection& connection) {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(connection.descriptor, buffer.data(), buffer.size());
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count <= 0) {
    connection.isOver = true;
    return;
  }
  for (const auto& message : connection.scanner.feed({buffer.data(), static_cast<std::size_t>(count)})) {
    take(connection, message);
  }
  if (connection.scanner.overflowed()) {
    m_journal.note("malformed", {{"connection", connection.id}, {"reason", "a message without an end"}});
    connection.isOver = true;
  }
}

void Server::take(Connection& connection, const std::string& message) {
  const auto request = fromText(message);
  if (!request) {
    m_journal.note("malformed", {{"connection", connection.id}, {"bytes", message.size()}});
    return;
  }
  const nlohmann::json way = {{"connection", connection.id}};
  for (const Desk::Answer& answer : m_desk.take(*request, message.size(), way, way)) {
    queue(connection, answer.reply, answer.faults);
  }
}

void Server::queue(Connection& connection, const Envelope& reply, const std::vector<Fault>& faults) {
  Delivery delivery = deliveryOf(reply, faults);
  const auto due = Clock::now() + std::chrono::milliseconds(delivery.delayMilliseconds);
  if (delivery.end != Delivery::End::none) {
    connection.outgoing.push_back({{}, 0, due, delivery.end});
    return;
  }
  if (delivery.pieces.empty()) return;
  if (delivery.glue) {
    for (const auto& piece : delivery.pieces) connection.glued += piece;
    return;
  }
  delivery.pieces.front().insert(0, connection.glued);
  connection.glued.clear();
  for (auto& piece : delivery.pieces)
    connection.outgoing.push_back({std::move(piece), 0, due, Delivery::End::none});
}

void Server::flush(Connection& connection) {
  while (!connection.isOver && !connection.outgoing.empty()) {
    Outgoing& head = connection.outgoing.front();
    if (head.sent == 0) {
      if (head.due > Clock::now()) return;
      if (!isTaken(connection)) {
        connection.pause = std::clamp(connection.pause * 2, kShortestPause, kLongestPause);
        return;
      }
    }
    connection.pause = kShortestPause;
    switch (head.end) {
      case Delivery::End::none: break;
      case Delivery::End::close: connection.isOver = true; return;
      // As a crash does it: nothing is tidied up.
      case Delivery::End::die: ::raise(SIGKILL); return;
      case Delivery::End::restart:
        m_restartDue = true;
        connection.isOver = true;
        return;
    }
    const ssize_t count = ::send(connection.descriptor, head.bytes.data() + head.sent,
                                 head.bytes.size() - head.sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0) {
      if (errno != EAGAIN && errno != EINTR) connection.isOver = true;
      return;
    }
    connection.lastWrite = Clock::now();
    head.sent += static_cast<std::size_t>(count);
    if (head.sent < head.bytes.size()) return;
    connection.outgoing.pop_front();
  }
}

// Whether the reader has read all that was written.
bool Server::isTaken(Connection& connection) const {
  int queued = 0;
  if (::ioctl(connection.descriptor, SIOCOUTQ, &queued) == 0) return queued == 0;
  return Clock::now() - connection.lastWrite > kBlindPause;
}

void Server::close(Connection& connection) {
  if (connection.descriptor < 0) return;
  ::close(connection.descriptor);
  connection.descriptor = -1;
  m_journal.note("closed", {{"connection", connection.id}});
}

void Server::closeSocket() {
  if (m_socket < 0) return;
  ::close(m_socket);
  m_socket = -1;
  struct stat found {};
  const bool ours =
      ::lstat(m_options.path.c_str(), &found) == 0 && found.st_dev == m_device && found.st_ino == m_inode;
  if (ours) ::unlink(m_options.path.c_str());
}

void Server::restart() {
  m_restartDue = false;
  for (auto& connection : m_connections) connection.isOver = true;
  closeSocket();
  listen();
}

}  // namespace vornlab
