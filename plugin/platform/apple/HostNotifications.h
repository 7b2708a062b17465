#pragma once

#include <string_view>

#include "platform/NotificationCenter.h"
#include "platform/apple/Ownership.h"

namespace vorn {

// Forwards notifications of the host's own center into ours, with the object's address as the object, as long as
// it exists. Main thread only.
class HostNotifications {
 public:
  // The center outlives this.
  HostNotifications(NotificationCenter& center, std::string_view name);
  ~HostNotifications();
  HostNotifications(const HostNotifications&) = delete;
  HostNotifications& operator=(const HostNotifications&) = delete;

 private:
  Retained<> m_forwarder;
};

}  // namespace vorn
