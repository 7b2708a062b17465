#include "lab/shell/ClientProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>
#include <utility>

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "util/AtomicFile.h"

extern char** environ;

namespace vornlab {
namespace {

using Clock = std::chrono::steady_clock;

Clock::time_point deadlineIn(double seconds) {
  return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

struct Descriptor {
  int number = -1;
  Descriptor() = default;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number >= 0) close(number);
  }
};

struct FileActions {
  posix_spawn_file_actions_t actions;
  FileActions() { posix_spawn_file_actions_init(&actions); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  ~FileActions() { posix_spawn_file_actions_destroy(&actions); }
};

}  // namespace

ClientProcess::~ClientProcess() { stop(); }

void ClientProcess::start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                          const std::filesystem::path& errorFile, double timeoutSeconds) {
  if (m_lifeline >= 0) close(std::exchange(m_lifeline, -1));
  m_errorFile = errorFile;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw LabError(std::string("cannot make a pipe: ") + std::strerror(errno));
  Descriptor reading;
  reading.number = ends[0];
  int line[2];
  if (pipe2(line, O_CLOEXEC) != 0) throw LabError(std::string("cannot make a pipe: ") + std::strerror(errno));
  Descriptor input;
  input.number = line[0];
  m_lifeline = line[1];
  {
    Descriptor writing;
    writing.number = ends[1];
    FileActions files;
    posix_spawn_file_actions_adddup2(&files.actions, input.number, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files.actions, writing.number, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files.actions, STDERR_FILENO, errorFile.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const int failure = posix_spawn(&m_id, program.c_str(), &files.actions, nullptr, argv.data(), environ);
    if (failure != 0) {
      m_id = 0;
      throw LabError("the client " + program.string() + " cannot be started: " + std::strerror(failure));
    }
  }
  waitForLine(reading.number, timeoutSeconds);
}

void ClientProcess::waitForLine(int output, double timeoutSeconds) {
  const auto deadline = deadlineIn(timeoutSeconds);
  while (Clock::now() < deadline && !Interruption::requested()) {
    pollfd waiting{output, POLLIN, 0};
    if (poll(&waiting, 1, 50) <= 0) continue;
    char bytes[256];
    const ssize_t count = read(output, bytes, sizeof bytes);
    if (count > 0 && std::memchr(bytes, '\n', static_cast<std::size_t>(count)) != nullptr) return;
    if (count == 0) {
      stopInVain();
      throw LabError("the client ended before it listened" + lastErrors());
    }
  }
  stopInVain();
  throw LabError("the client did not say that it listens" + lastErrors());
}

void ClientProcess::stopInVain() {
  stop();
  // It may have got the same signal, and is not to blame.
  Interruption::check();
}

std::string ClientProcess::lastErrors() const {
  std::string text = vorn::readFile(m_errorFile.string()).value_or("");
  while (!text.empty() && text.back() == '\n') text.pop_back();
  constexpr std::size_t kMost = 2000;
  if (text.size() > kMost) text = "..." + text.substr(text.size() - kMost);
  return text.empty() ? text : ": " + text;
}

bool ClientProcess::hasEnded() {
  if (m_id == 0) return true;
  if (waitpid(m_id, nullptr, WNOHANG) == 0) return false;
  m_id = 0;
  return true;
}

bool ClientProcess::isRunning() { return !hasEnded(); }

void ClientProcess::stop() {
  if (m_lifeline >= 0) close(std::exchange(m_lifeline, -1));
  if (hasEnded()) return;
  kill(m_id, SIGTERM);
  const auto deadline = deadlineIn(5);
  while (!hasEnded()) {
    if (Clock::now() >= deadline) {
      kill(m_id, SIGKILL);
      waitpid(m_id, nullptr, 0);
      m_id = 0;
      return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace vornlab
