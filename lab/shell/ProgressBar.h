#pragma once

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>

namespace vornlab {

// One line that grows on a terminal that can take it back; nothing anywhere else. Taken away with this object.
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
  std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
};

// The line after so many of a total, in at most that many columns: how much is done, and, when the seconds so far
// tell it, about how long the rest takes. A narrow terminal gets a shorter bar and then none. ASCII.
std::string progressLine(std::size_t done, std::size_t total, double seconds, std::size_t columns);

}  // namespace vornlab
