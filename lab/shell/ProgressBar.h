#pragma once

#include <cstddef>
#include <cstdio>

namespace vornlab {

// One line that grows on a terminal; nothing anywhere else. Taken away with this object.
class ProgressBar {
 public:
  ProgressBar(std::FILE* stream, std::size_t total);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(std::size_t done);
  // Clears the line, so that something else can be printed.
  void hide();

 private:
  std::FILE* m_stream;
  std::size_t m_total;
  bool m_isShown;
};

}  // namespace vornlab
