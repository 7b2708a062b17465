#pragma once

#include <string>
#include <utility>
#include <vector>

#include "lab/shell/watch/WatchSocket.h"

namespace vornlab {

// The watcher's end of a connection: what comes, by lines.
class WatchFeed {
 public:
  explicit WatchFeed(WatchDescriptor socket) : m_socket(std::move(socket)) {}

  int descriptor() const { return m_socket.number(); }
  // The whole lines that have come, without their breaks; does not wait.
  std::vector<std::string> read();
  // Whether nothing more can come.
  bool isOver() const { return !m_socket; }

 private:
  WatchDescriptor m_socket;
  // The beginning of a line, which holds no break.
  std::string m_begun;
};

}  // namespace vornlab
