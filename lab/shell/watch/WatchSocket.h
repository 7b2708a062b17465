#pragma once

#include <filesystem>

namespace vornlab {

// A file descriptor that is closed with this object; -1 for none.
class WatchDescriptor {
 public:
  WatchDescriptor() = default;
  explicit WatchDescriptor(int number) : m_number(number) {}
  ~WatchDescriptor() { reset(); }
  WatchDescriptor(WatchDescriptor&& other) noexcept : m_number(other.release()) {}
  WatchDescriptor& operator=(WatchDescriptor&& other) noexcept;

  int number() const { return m_number; }
  explicit operator bool() const { return m_number >= 0; }
  int release();
  void reset();

 private:
  int m_number = -1;
};

// The sockets between laboratories and those who watch them. None ever blocks, and none is handed to a program
// that is started. Each is absent when the system refuses, also for a path that is too long for a socket.
WatchDescriptor listenForWatchers(const std::filesystem::path& path);

struct WatchConnection {
  WatchDescriptor socket;
  // Whether the path was left behind by somebody who listens no more.
  bool isLeftBehind = false;
};
WatchConnection connectToLaboratory(const std::filesystem::path& path);

}  // namespace vornlab
