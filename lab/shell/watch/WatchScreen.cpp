#include "lab/shell/watch/WatchScreen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "lab/shell/Terminal.h"

namespace vornlab {
namespace {

// Alternate screen and no cursor; and the way back.
constexpr std::string_view kEnter = "\033[?1049h\033[?25l";
constexpr std::string_view kLeave = "\033[?25h\033[?1049l";
constexpr std::string_view kHome = "\033[H";
constexpr std::string_view kClearLine = "\033[2K";
constexpr std::string_view kClearBelow = "\033[J";

volatile std::sig_atomic_t stopWanted = 0;

void write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

bool WatchScreen::isThere() { return drawsOnTerminal(STDOUT_FILENO); }

WatchScreen::WatchScreen() {
  m_hasKeys = tcgetattr(STDIN_FILENO, &m_before) == 0;
  struct sigaction action = {};
  action.sa_handler = [](int) { stopWanted = 1; };
  sigaction(SIGTSTP, &action, nullptr);
  enter();
}

WatchScreen::~WatchScreen() {
  leave();
  std::signal(SIGTSTP, SIG_DFL);
}

void WatchScreen::enter() {
  if (m_hasKeys) {
    termios quiet = m_before;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON);
    tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
  }
  m_shown.clear();
  write(kEnter);
}

void WatchScreen::leave() {
  write(kLeave);
  if (m_hasKeys) tcsetattr(STDIN_FILENO, TCSANOW, &m_before);
}

WatchFrame WatchScreen::emptyFrame() {
  WatchFrame frame;
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0) {
    frame.columns = size.ws_col;
    frame.rows = size.ws_row;
  }
  frame.hasColours = !isSet("NO_COLOR");
  return frame;
}

void WatchScreen::show(const std::vector<std::string>& lines) {
  if (lines == m_shown) return;
  std::string bytes(kHome);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    bytes += (i == 0 ? "" : "\r\n");
    // Before the text: behind a text that fills its line it would take the last character away.
    bytes += kClearLine;
    bytes += lines[i];
  }
  // Where the frame fills the screen nothing is below, and the same would happen to its last line.
  if (lines.size() < emptyFrame().rows) bytes += "\r\n" + std::string(kClearBelow);
  write(bytes);
  m_shown = lines;
}

bool WatchScreen::takeQuit() const {
  std::array<char, 64> typed{};
  const ssize_t count = read(STDIN_FILENO, typed.data(), typed.size());
  return count > 0 &&
         std::string_view(typed.data(), static_cast<std::size_t>(count)).find('q') != std::string::npos;
}

void WatchScreen::stopWhenAsked() {
  if (stopWanted == 0) return;
  stopWanted = 0;
  leave();
  raise(SIGSTOP);
  enter();
}

}  // namespace vornlab
