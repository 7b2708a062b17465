#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace vorn {

// A descriptor that a test owns.
class TestDescriptor {
 public:
  TestDescriptor() = default;
  explicit TestDescriptor(int number) : m_number(number) {}
  TestDescriptor(TestDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  TestDescriptor& operator=(TestDescriptor&& other) noexcept {
    std::swap(m_number, other.m_number);
    return *this;
  }
  ~TestDescriptor() { close(); }

  void close() {
    if (m_number >= 0) ::close(std::exchange(m_number, -1));
  }
  int number() const { return m_number; }
  explicit operator bool() const { return m_number >= 0; }

 private:
  int m_number = -1;
};

// The client's end of the socket: every wait in it is bounded.
class TestListener {
 public:
  explicit TestListener(const std::string& path, int backlog = 8)
      : m_listening(::socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy_n(path.data(), std::min(path.size(), sizeof address.sun_path), address.sun_path);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    m_isReady = ::bind(m_listening.number(), reinterpret_cast<const sockaddr*>(&address), length) == 0 &&
                ::listen(m_listening.number(), backlog) == 0;
  }

  bool isReady() const { return m_isReady; }

  static constexpr int kPatience = 120'000;  // milliseconds

  TestDescriptor accept(int milliseconds = kPatience) {
    if (!waitFor(m_listening.number(), milliseconds)) return {};
    return TestDescriptor(::accept(m_listening.number(), nullptr, nullptr));
  }

  // Reads until the size is reached, the peer closes or nothing comes.
  static std::string read(const TestDescriptor& from, std::size_t size) {
    std::string text;
    char buffer[65536];
    while (text.size() < size && waitFor(from.number(), kPatience)) {
      const ssize_t count = ::read(from.number(), buffer, sizeof buffer);
      if (count <= 0) break;
      text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
  }

  static void write(const TestDescriptor& to, std::string_view text) {
    while (!text.empty()) {
      const ssize_t count = ::send(to.number(), text.data(), text.size(), MSG_NOSIGNAL);
      if (count <= 0) return;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

 private:
  static bool waitFor(int number, int milliseconds) {
    pollfd readable{number, POLLIN, 0};
    return ::poll(&readable, 1, milliseconds) > 0;
  }

  TestDescriptor m_listening;
  bool m_isReady = false;
};

}  // namespace vorn
