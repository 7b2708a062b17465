#include "lab/shell/ProgressBar.h"

#include <unistd.h>

#include <string>

namespace vornlab {

ProgressBar::ProgressBar(std::FILE* stream, std::size_t total)
    : stream_(stream), total_(total), isShown_(total > 0 && isatty(fileno(stream)) != 0) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(std::size_t done) {
  if (!isShown_) return;
  constexpr std::size_t kWidth = 40;
  const std::size_t filled = done * kWidth / total_;
  const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
  std::fprintf(stream_, "\r[%s] %zu of %zu", bar.c_str(), done, total_);
  std::fflush(stream_);
}

void ProgressBar::hide() {
  if (!isShown_) return;
  std::fputs("\r\033[K", stream_);
  std::fflush(stream_);
}

}  // namespace vornlab
