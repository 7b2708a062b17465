#include "lab/shell/watch/WatchedProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>
#include <utility>

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/Output.h"
#include "lab/shell/watch/WatchPost.h"
#include "util/HighDescriptor.h"

extern char** environ;

namespace vornlab {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWatcherThere = 3;
// What a laboratory takes to stop its client and to clear its world away.
constexpr std::chrono::seconds kPatience{15};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

WatchedProgram::WatchedProgram(const std::filesystem::path& program, const std::vector<std::string>& words)
    : m_output(std::tmpfile(), &std::fclose) {
  int ends[2];
  if (!m_output || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0) {
    throw LabError(std::string("cannot prepare to watch: ") + std::strerror(errno));
  }
  fcntl(fileno(m_output.get()), F_SETFD, FD_CLOEXEC);
  m_connection = WatchDescriptor(vorn::highDescriptor(ends[0]));
  const WatchDescriptor theirs(vorn::highDescriptor(ends[1]));

  std::vector<std::string> arguments{program.string()};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) variables.emplace_back(*variable);
  variables.push_back(std::string(WatchPost::kWatcherVariable) + "=" + std::to_string(kWatcherThere));

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&files, fileno(m_output.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&files, fileno(m_output.get()), STDERR_FILENO);
  posix_spawn_file_actions_adddup2(&files, theirs.number(), kWatcherThere);
  const int failure = posix_spawn(&m_id, program.c_str(), &files, nullptr, pointersTo(arguments).data(),
                                  pointersTo(variables).data());
  posix_spawn_file_actions_destroy(&files);
  if (failure != 0) {
    m_id = 0;
    throw LabError(program.string() + " cannot be started: " + std::strerror(failure));
  }
}

WatchedProgram::~WatchedProgram() {
  if (hasEnded()) return;
  kill(m_id, SIGTERM);
  for (const auto deadline = Clock::now() + kPatience; !hasEnded();) {
    if (Clock::now() > deadline) kill(m_id, SIGKILL);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

bool WatchedProgram::hasEnded() {
  if (m_id != 0 && waitpid(m_id, &m_status, WNOHANG) != 0) m_id = 0;
  return m_id == 0;
}

int WatchedProgram::waitForEnd() {
  bool isAsked = false;
  while (!hasEnded()) {
    if (Interruption::requested() && !std::exchange(isAsked, true)) kill(m_id, SIGTERM);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : 1;
}

void WatchedProgram::printOutput(std::FILE* stream) const {
  std::rewind(m_output.get());
  std::array<char, 65536> bytes{};
  while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), m_output.get())) {
    if (stream == stdout) {
      sayBytes({bytes.data(), count});
    } else {
      std::fwrite(bytes.data(), 1, count, stream);
    }
  }
  if (stream == stdout) {
    flushOutput();
  } else {
    std::fflush(stream);
  }
}

}  // namespace vornlab
