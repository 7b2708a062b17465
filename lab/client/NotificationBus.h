#pragma once

#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "lab/client/Envelope.h"

namespace vornlab {

// A bus that cannot be joined, or has gone. The message says why.
class NotificationError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// One connection to the bus that carries distributed notifications.
//
// On the wire a notification is the signal "Posted" of the interface us.vorn.DistributedNotifications on the D-Bus
// session bus, sent from the object /us/vorn/DistributedNotifications with the signature "sba{ss}": the name,
// whether there is a dictionary, and the dictionary, empty where there is none.
//
// One thread only. Every operation throws NotificationError when the bus has gone.
class NotificationBus {
 public:
  using Texts = std::map<std::string, std::string>;

  struct Notification {
    std::string name;
    bool hasUserInfo = false;
    Texts userInfo;
  };

  // Joins the session bus of the environment.
  NotificationBus();
  ~NotificationBus();
  NotificationBus(const NotificationBus&) = delete;
  NotificationBus& operator=(const NotificationBus&) = delete;

  // The next one that has come in, or nothing for now.
  std::optional<Notification> next();
  void send(const std::string& name, const Envelope& envelope);

  // What to wait for, as poll() has it, and where. What does not fit into the bus at once goes out when it can be
  // written again, so the events change.
  struct Awaited {
    int descriptor;
    short events;
  };
  Awaited awaited() const;

 private:
  struct Connection;

  std::unique_ptr<Connection> m_connection;
};

}  // namespace vornlab
