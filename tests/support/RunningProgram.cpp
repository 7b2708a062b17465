#include "tests/support/RunningProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

extern char** environ;

namespace vornlab::test {
namespace {

constexpr std::chrono::minutes kPatience(4);

bool waitUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

std::string contentFrom(int file, std::size_t begin) {
  std::string text;
  std::array<char, 65536> bytes;
  ssize_t count = 0;
  while ((count = ::pread(file, bytes.data(), bytes.size(), static_cast<off_t>(begin + text.size()))) > 0) {
    text.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace

RunningProgram::RunningProgram(std::string program, std::vector<std::string> arguments)
    : m_output(::memfd_create("output", MFD_CLOEXEC)), m_errors(::memfd_create("errors", MFD_CLOEXEC)) {
  std::vector<char*> words = {program.data()};
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&files, m_output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&files, m_errors, STDERR_FILENO);
  const int failure = posix_spawnp(&m_process, program.c_str(), &files, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failure != 0) m_exitCode = 127;
}

RunningProgram::~RunningProgram() {
  stop(SIGKILL);
  wait();
  ::close(m_output);
  ::close(m_errors);
}

std::optional<std::string> RunningProgram::line() {
  std::string rest;
  std::size_t end = std::string::npos;
  waitUntil([&] {
    const bool wasOver = hasEnded();
    rest = contentFrom(m_output, m_lineBegin);
    end = rest.find('\n');
    return wasOver || end != std::string::npos;
  });
  if (end == std::string::npos) return std::nullopt;
  m_lineBegin += end + 1;
  return rest.substr(0, end);
}

std::optional<int> RunningProgram::wait() {
  if (hasEnded()) return m_exitCode;
  // To look every millisecond takes a good part of what the program needs itself.
  if (const int end = static_cast<int>(::syscall(SYS_pidfd_open, m_process, 0)); end >= 0) {
    pollfd awaited{end, POLLIN, 0};
    ::poll(&awaited, 1, static_cast<int>(std::chrono::milliseconds(kPatience).count()));
    ::close(end);
  }
  waitUntil([this] { return hasEnded(); });
  return m_exitCode;
}

void RunningProgram::stop(int signal) const {
  if (!m_exitCode) ::kill(m_process, signal);
}

std::string RunningProgram::output() const { return contentFrom(m_output, 0); }

std::string RunningProgram::errors() const { return contentFrom(m_errors, 0); }

bool RunningProgram::hasEnded() {
  int status = 0;
  if (!m_exitCode && ::waitpid(m_process, &status, WNOHANG) == m_process) {
    m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  return m_exitCode.has_value();
}

}  // namespace vornlab::test
