#include "lab/client/ClientLauncher.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <system_error>
#include <utility>

extern char** environ;

namespace vornlab {

namespace fs = std::filesystem;

std::vector<pid_t> processesOf(const fs::path& program) {
  std::error_code failed;
  const fs::path wanted = fs::weakly_canonical(program, failed);
  const fs::path replaced = wanted.string() + " (deleted)";
  std::vector<pid_t> found;
  for (fs::directory_iterator entry("/proc", failed), end; !failed && entry != end; entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    pid_t id = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), id);
    if (read.ec != std::errc{} || read.ptr != name.data() + name.size()) continue;
    // Another user's, or gone meanwhile.
    std::error_code unreadable;
    const fs::path running = fs::read_symlink(entry->path() / "exe", unreadable);
    // One whose program was replaced meanwhile runs on.
    if (!unreadable && (running == wanted || running == replaced)) found.push_back(id);
  }
  return found;
}

ClientLauncher::ClientLauncher(Journal& journal, fs::path program, std::vector<std::string> arguments)
    : m_journal(journal), m_program(std::move(program)), m_arguments(std::move(arguments)) {}

ClientLauncher::~ClientLauncher() {
  endOutput();
  if (m_process == 0) return;
  ::kill(m_process, SIGTERM);
  ::waitpid(m_process, nullptr, 0);
}

void ClientLauncher::launch() {
  if (!processesOf(m_program).empty()) return;
  // One that has ended meanwhile, or is ending and has no program any more, is waited for.
  if (m_process != 0) ::waitpid(std::exchange(m_process, 0), nullptr, 0);
  endOutput();
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
  m_output = ends[0];

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, ends[1], STDOUT_FILENO);
  // The signals that we take from a descriptor would not reach it otherwise.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  std::string program = m_program.string();
  std::vector<char*> words{program.data()};
  for (std::string& argument : m_arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  // A failure is seen at the output, which ends then.
  if (::posix_spawn(&m_process, program.c_str(), &files, &attributes, words.data(), environ) != 0) m_process = 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  ::close(ends[1]);
}

void ClientLauncher::takeOutput() {
  if (m_output < 0) return;
  std::array<char, 512> bytes{};
  const ssize_t count = ::read(m_output, bytes.data(), bytes.size());
  m_journal.note(count > 0 ? "launched" : "launch failed", nlohmann::json::object());
  endOutput();
}

void ClientLauncher::endOutput() {
  if (m_output >= 0) ::close(std::exchange(m_output, -1));
}

}  // namespace vornlab
