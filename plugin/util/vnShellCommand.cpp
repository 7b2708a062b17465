#include "util/vnShellCommand.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "util/HighDescriptor.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr int kNotStarted = 127;

// Between fork and here nothing may be called that takes a lock: another thread may have held it.
[[noreturn]] void becomeShell(const char* command) {
  ::execl("/bin/sh", "sh", "-c", command, static_cast<char*>(nullptr));
  ::_exit(kNotStarted);
}

int waitFor(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

std::string readToEnd(int descriptor) {
  std::string output;
  std::array<char, 4096> piece;
  for (;;) {
    const ssize_t got = ::read(descriptor, piece.data(), piece.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return output;
    output.append(piece.data(), static_cast<std::size_t>(got));
  }
}

}  // namespace

OptionalText vnShellCommand::runAsCommand(const std::string& command) {
  std::array<int, 2> ends;
  if (::pipe(ends.data()) != 0) return std::nullopt;
  const int readEnd = highDescriptor(ends[0]);
  const int writeEnd = highDescriptor(ends[1]);
  const pid_t helper = readEnd < 0 || writeEnd < 0 ? -1 : ::fork();
  if (helper == 0) {
    // The shell is a grandchild, so that its end need not be waited for and leaves nothing behind.
    const pid_t shell = ::fork();
    if (shell != 0) ::_exit(shell < 0 ? kNotStarted : 0);
    ::dup2(writeEnd, STDOUT_FILENO);
    becomeShell(command.c_str());
  }
  ::close(writeEnd);
  const bool started = helper > 0 && waitFor(helper) == 0;
  std::string output = started ? readToEnd(readEnd) : std::string();
  ::close(readEnd);
  if (!started || !isValidUtf8(output)) return std::nullopt;
  return output;
}

std::int32_t vnShellCommand::runAsCommand_ret(const std::string& command) {
  const pid_t shell = ::fork();
  if (shell < 0) return -1;
  if (shell == 0) becomeShell(command.c_str());
  return waitFor(shell);
}

}  // namespace vorn
