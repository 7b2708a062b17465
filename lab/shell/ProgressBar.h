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
  std::FILE* stream_;
  std::size_t total_;
  bool isShown_;
};

}  // namespace vornlab
