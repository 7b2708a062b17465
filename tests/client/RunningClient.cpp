#include "RunningClient.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "lab/client/MessageScanner.h"

namespace vornlab::test {
namespace {

constexpr int kPatience = 10'000;  // milliseconds

bool isReadable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return ::poll(&waiting, 1, kPatience) > 0;
}

}  // namespace

RunningClient::RunningClient(std::vector<std::string> arguments, std::string program) {
  std::array<int, 2> output{};
  std::array<int, 2> errors{};
  if (::pipe2(output.data(), O_CLOEXEC) != 0 || ::pipe2(errors.data(), O_CLOEXEC) != 0) return;
  std::vector<char*> words = {program.data()};
  for (auto& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  m_process = ::fork();
  if (m_process == 0) {
    ::dup2(output[1], STDOUT_FILENO);
    ::dup2(errors[1], STDERR_FILENO);
    ::execv(program.c_str(), words.data());
    ::_exit(127);
  }
  ::close(output[1]);
  ::close(errors[1]);
  m_output = output[0];
  m_errors = errors[0];
}

RunningClient::~RunningClient() {
  if (m_process > 0) {
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
  }
  ::close(m_output);
  ::close(m_errors);
}

std::optional<std::string> RunningClient::line() {
  for (;;) {
    const auto end = m_pending.find('\n');
    if (end != std::string::npos) {
      std::string first = m_pending.substr(0, end);
      m_pending.erase(0, end + 1);
      return first;
    }
    std::array<char, 512> buffer{};
    const ssize_t count = isReadable(m_output) ? ::read(m_output, buffer.data(), buffer.size()) : 0;
    if (count <= 0) return std::nullopt;
    m_pending.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

std::optional<int> RunningClient::wait() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
  int status = 0;
  while (::waitpid(m_process, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > end) return std::nullopt;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  m_process = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void RunningClient::stop(int signal) const {
  if (m_process > 0) ::kill(m_process, signal);
}

std::string RunningClient::errors() {
  std::string text;
  std::array<char, 512> buffer{};
  for (ssize_t count = 0; (count = ::read(m_errors, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

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
