#include "lab/shell/ProgressBar.h"

#include <unistd.h>

#include <string>

namespace vornlab {

ProgressBar::ProgressBar(std::FILE* stream, std::size_t total)
    : m_stream(stream), m_total(total), m_isShown(total > 0 && isatty(fileno(stream)) != 0) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(std::size_t done) {
  if (!m_isShown) return;
  constexpr std::size_t kWidth = 40;
  const std::size_t filled = done * kWidth / m_total;
  const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
  std::fprintf(m_stream, "\r[%s] %zu of %zu", bar.c_str(), done, m_total);
  std::fflush(m_stream);
}

void ProgressBar::hide() {
  if (!m_isShown) return;
  std::fputs("\r\033[K", m_stream);
  std::fflush(m_stream);
}

}  // namespace vornlab
