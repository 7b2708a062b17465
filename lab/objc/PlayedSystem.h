#pragma once

#include <memory>
#include <string>

#include "platform/DistributedNotifications.h"

namespace vornlab {

// What Foundation tells a plug-in in this process of the system around it, in place of what it knows itself: the
// system's version, and distributed notifications, which travel over the session bus that the client is on.
// Without a bus they reach nobody. One at a time; main thread only.
class PlayedSystem {
 public:
  // What the constructor begins with, for a process whose toolkit begins before: it would ask for Foundation's own
  // center, and so start a server of the machine's.
  static void takeFoundationsPlace();

  // To be there before the plug-in is loaded. The version is one such as "10.14.6".
  explicit PlayedSystem(const std::string& version);
  ~PlayedSystem();
  PlayedSystem(const PlayedSystem&) = delete;
  PlayedSystem& operator=(const PlayedSystem&) = delete;

  // Whether a session bus has answered.
  bool hasBus() const { return m_bus != nullptr; }

 private:
  std::unique_ptr<vorn::DistributedNotifications> m_bus;
};

}  // namespace vornlab
