#include "tests/support/PrivateBus.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

extern char** environ;

namespace vorn {
namespace {

constexpr int kPatience = 10'000;  // milliseconds

// The process, or 0. Its standard output goes to the descriptor.
pid_t spawn(std::vector<std::string> words, int output) {
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  pid_t process = 0;
  const int failure = posix_spawnp(&process, argv[0], &files, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  return failure == 0 ? process : 0;
}

std::string firstLine(int descriptor) {
  std::string text;
  std::array<char, 512> bytes{};
  pollfd waiting{descriptor, POLLIN, 0};
  while (text.find('\n') == std::string::npos && ::poll(&waiting, 1, kPatience) > 0) {
    const ssize_t count = ::read(descriptor, bytes.data(), bytes.size());
    if (count <= 0) break;
    text.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return text.substr(0, text.find('\n'));
}

}  // namespace

PrivateBus::PrivateBus() {
  std::string name = (std::filesystem::temp_directory_path() / "busXXXXXX").string();
  m_folder = ::mkdtemp(name.data());
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
  m_process = spawn({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1",
                     "--address=unix:path=" + (m_folder / "bus").string()},
                    ends[1]);
  ::close(ends[1]);
  m_address = firstLine(ends[0]);
  ::close(ends[0]);
}

PrivateBus::~PrivateBus() {
  kill();
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

bool PrivateBus::isInstalled() {
  for (const char* folder : {"/usr/bin", "/usr/local/bin", "/bin"}) {
    if (::access((std::filesystem::path(folder) / "dbus-daemon").c_str(), X_OK) == 0) return true;
  }
  return false;
}

void PrivateBus::kill() {
  if (m_process == 0) return;
  ::kill(m_process, SIGKILL);
  ::waitpid(m_process, nullptr, 0);
  m_process = 0;
}

int PrivateBus::run(const std::string& tool, std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), {tool, "--bus=" + m_address});
  const pid_t process = spawn(std::move(arguments), STDOUT_FILENO);
  int status = 0;
  if (process == 0 || ::waitpid(process, &status, 0) != process) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace vorn
