#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "lab/shell/watch/WatchEvents.h"
#include "lab/shell/watch/WatchFolder.h"
#include "lab/shell/watch/WatchSocket.h"

namespace vornlab {

// Where a laboratory's process is watched: it listens, and sends each watcher what is told. It never waits: a
// watcher that does not keep up is let go, and where the system gives no socket nobody can watch. One in a
// process, which costs nothing before the first world begins. Main thread only.
class WatchPost {
 public:
  // The variable by which a program that is started says: this descriptor is a watcher already.
  static constexpr const char* kWatcherVariable = "VORNLAB_WATCHER";

  // `command` is what the process was asked to do.
  explicit WatchPost(const std::string& command);
  // Tells the watchers that this is the end.
  ~WatchPost();
  WatchPost(const WatchPost&) = delete;
  WatchPost& operator=(const WatchPost&) = delete;

  // Seconds since this object was made.
  double now() const;

  // Lets the process be found, with its present world.
  void announce(const std::filesystem::path& world);
  // Takes in whoever has come, greets each with these events, and sends on what was held up.
  void serve(const std::function<std::vector<WatchEvent>()>& greeting);
  // Whether it is worth making an event.
  bool isWatched() const { return !m_watchers.empty(); }
  void tell(const WatchEvent& event);

 private:
  struct Watcher {
    WatchDescriptor socket;
    std::string unsent;
  };

  void adoptWatcher();
  void takeNewcomers();
  // False when the watcher has gone, or has too much before it.
  static bool send(Watcher& watcher, const std::string& lines);

  WatchLaboratory m_laboratory;
  std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
  // Absent where there is no such folder.
  std::optional<WatchFolder> m_folder;
  WatchDescriptor m_listening;
  std::vector<Watcher> m_newcomers;
  std::vector<Watcher> m_watchers;
};

}  // namespace vornlab
