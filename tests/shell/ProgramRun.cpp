#include "tests/shell/ProgramRun.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

extern char** environ;

namespace vornlab::test {
namespace {

namespace fs = std::filesystem;

int waitForEnd(pid_t process) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  int status = 0;
  while (waitpid(process, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      kill(process, SIGKILL);
      waitpid(process, &status, 0);
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ProgramRun runProgram(const fs::path& program, const std::vector<std::string>& arguments) {
  const TemporaryFolder folder;
  const std::string output = folder / "out";
  const std::string errors = folder / "err";
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  constexpr int kNew = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), kNew, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), kNew, 0600);
  std::vector<std::string> words{program.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  ProgramRun run;
  pid_t process = 0;
  const int failure = posix_spawn(&process, program.c_str(), &files, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  EXPECT_EQ(failure, 0) << program;
  if (failure != 0) return run;
  run.exitCode = waitForEnd(process);
  run.output = contentOf(output);
  run.errors = contentOf(errors);
  return run;
}

std::string contentOf(const fs::path& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

}  // namespace vornlab::test
