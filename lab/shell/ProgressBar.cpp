#include "lab/shell/ProgressBar.h"

#include <sys/ioctl.h>

#include <algorithm>
#include <cmath>

#include "lab/shell/Terminal.h"

namespace vornlab {
namespace {

constexpr std::size_t kUsualColumns = 80;
constexpr std::size_t kLongestBar = 40;
constexpr std::size_t kShortestBar = 10;

// The last column stays free: a cursor behind it is on the next line in some terminals.
std::size_t columnsOfTerminal(std::FILE* stream) {
  winsize size{};
  const bool isTold = ::ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
  return (isTold ? size.ws_col : kUsualColumns) - 1;
}

std::string timeLeft(double seconds) {
  const auto whole = static_cast<long>(std::ceil(seconds));
  if (whole < 60) return std::to_string(whole) + " s left";
  if (whole < 3600) return std::to_string(whole / 60) + " min " + std::to_string(whole % 60) + " s left";
  return std::to_string(whole / 3600) + " h " + std::to_string(whole % 3600 / 60) + " min left";
}

}  // namespace

std::string progressLine(std::size_t done, std::size_t total, double seconds, std::size_t columns) {
  std::string text = std::to_string(done) + " of " + std::to_string(total);
  if (done > 0 && done < total) {
    const std::string left =
        ", " + timeLeft(seconds / static_cast<double>(done) * static_cast<double>(total - done));
    if (text.size() + left.size() <= columns) text += left;
  }
  constexpr std::size_t kFrame = 3;
  const std::size_t taken = text.size() + kFrame;
  if (columns < taken + kShortestBar) return text.substr(0, columns);
  const std::size_t width = std::min(columns - taken, kLongestBar);
  const std::size_t filled = total == 0 ? width : std::min(done, total) * width / total;
  return "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] " + text;
}

ProgressBar::ProgressBar(std::FILE* stream, std::size_t total)
    : m_stream(stream), m_total(total), m_isShown(total > 0 && drawsOnTerminal(fileno(stream))) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(std::size_t done) {
  if (!m_isShown) return;
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - m_began;
  const std::string line = progressLine(done, m_total, since.count(), columnsOfTerminal(m_stream));
  std::fprintf(m_stream, "\r\033[K%s", line.c_str());
  std::fflush(m_stream);
}

void ProgressBar::hide() {
  if (!m_isShown) return;
  std::fputs("\r\033[K", m_stream);
  std::fflush(m_stream);
}

}  // namespace vornlab
