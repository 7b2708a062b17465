#include "lab/objc/OwnWorld.h"

#include <fcntl.h>
#include <pwd.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <map>
#include <utility>

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/TemporaryFolder.h"
#include "util/AtomicFile.h"
#include "util/Utf16.h"

extern char** environ;

namespace vornlab {

namespace {

namespace fs = std::filesystem;

constexpr auto kWorldVariable = "VORNLAB_OBJC_WORLD";
constexpr auto kThisProgram = "/proc/self/exe";

// The configuration takes a path only as seen from the folder that the system has for the user.
fs::path fromUsersFolder(const fs::path& path) {
  const passwd* user = getpwuid(geteuid());
  return fs::proximate(path, user ? user->pw_dir : "/");
}

// Makes the folder ready, and gives what a program has to find in its environment to live there.
std::map<std::string, std::string> prepareWorld(const fs::path& world) {
  const fs::path configuration = world / "GNUstep.conf";
  std::ofstream(configuration) << "GNUSTEP_USER_CONFIG_FILE=none\nGNUSTEP_USER_DEFAULTS_DIR="
                               << fromUsersFolder(world / "home/Library/Preferences").string() << "\n";
  return {{kWorldVariable, world.string()},
          {"GNUSTEP_CONFIG_FILE", configuration.string()},
          {"HOME", (world / "home").string()}};
}

// What is no text cannot be a variable of a program that Foundation begins, and it would end at once.
std::vector<std::string> environmentWith(const std::map<std::string, std::string>& changes) {
  std::vector<std::string> entries;
  for (char** entry = environ; *entry; ++entry) {
    const std::string text = *entry;
    if (vorn::isValidUtf8(text) && !changes.contains(text.substr(0, text.find('=')))) entries.push_back(text);
  }
  for (const auto& [name, value] : changes) entries.push_back(name + "=" + value);
  return entries;
}

void requireTexts(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    if (!vorn::isValidUtf8(word)) throw UsageError("\"" + word + "\" is no text in UTF-8, which this host needs");
  }
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

pid_t startProgram(const fs::path& world, const std::vector<std::string>& words, const fs::path& errors) {
  std::vector<std::string> arguments{kThisProgram};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<std::string> environment = environmentWith(prepareWorld(world));
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  pid_t process = 0;
  const int failure = posix_spawn(&process, kThisProgram, &files, nullptr, pointersTo(arguments).data(),
                                  pointersTo(environment).data());
  posix_spawn_file_actions_destroy(&files);
  if (failure != 0) throw LabError(std::string("the host cannot be started: ") + std::strerror(failure));
  return process;
}

// The status of a process that has ended. One that is interrupted is asked to end as well, for it may be waiting.
int statusAtEnd(pid_t process) {
  int status = 0;
  bool hasAsked = false;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    if (Interruption::requested() && !std::exchange(hasAsked, true)) kill(process, SIGTERM);
  }
  Interruption::check();
  return status;
}

}  // namespace

fs::path enterOwnWorld(char** arguments) {
  if (const char* entered = std::getenv(kWorldVariable)) return entered;
  std::vector<std::string> words;
  for (char** word = arguments; *word; ++word) words.emplace_back(*word);
  requireTexts(words);
  const fs::path world = TemporaryFolder::make();
  std::vector<std::string> environment = environmentWith(prepareWorld(world));
  execve(kThisProgram, arguments, pointersTo(environment).data());
  throw LabError(std::string("cannot start in a world of its own: ") + std::strerror(errno));
}

std::string runInWorld(const fs::path& world, const std::vector<std::string>& words) {
  requireTexts(words);
  fs::create_directories(world);
  const fs::path errors = world.string() + ".err";
  Interruption::check();
  const int status = statusAtEnd(startProgram(world, words, errors));
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return "";
  constexpr std::size_t kMostBytes = 2000;
  std::string said = vorn::readFile(errors.string()).value_or("");
  if (said.size() > kMostBytes) said.erase(0, said.size() - kMostBytes);
  const std::string end = WIFEXITED(status) ? "it ended with code " + std::to_string(WEXITSTATUS(status))
                                            : "it was ended by signal " + std::to_string(WTERMSIG(status));
  return end + (said.empty() ? "" : ":\n" + said);
}

}  // namespace vornlab
