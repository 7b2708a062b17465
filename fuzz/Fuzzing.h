#pragma once

// What the fuzzers share. Each one is a program of libFuzzer that feeds one reader of foreign input.

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace vorn::fuzzing {

// Ends the program, which libFuzzer takes for a find, when what must hold does not.
inline void check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// The input, taken apart from its front.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

  bool isEmpty() const { return m_rest.empty(); }
  // 0 behind the end.
  std::uint8_t byte() { return m_rest.empty() ? 0 : static_cast<std::uint8_t>(take(1)[0]); }
  // At most that many bytes.
  std::string_view take(std::size_t size) {
    const std::string_view taken = m_rest.substr(0, size);
    m_rest.remove_prefix(taken.size());
    return taken;
  }
  // Up to the next byte 0xFF, which belongs to neither part and to no text.
  std::string_view part() {
    const std::string_view taken = take(std::min(m_rest.find('\xFF'), m_rest.size()));
    take(1);
    return taken;
  }
  std::string_view rest() const { return m_rest; }

 private:
  std::string_view m_rest;
};

// A file name for this process, removed at its end.
class TemporaryFile {
 public:
  TemporaryFile() : m_path(std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(::getpid()))) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
  }
  std::string path() const { return m_path.string(); }

 private:
  std::filesystem::path m_path;
};

}  // namespace vorn::fuzzing
