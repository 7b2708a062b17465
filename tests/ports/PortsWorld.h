#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DistributedNotifications.h"
#include "platform/Presenter.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "platform/embedded/PanelRecord.h"

namespace vorn {

// One implementation of the ports, with a small machine around it on which a test does what users, other programs
// and the host do. Folders are on the disk and go with the world.
class PortsWorld {
 public:
  virtual ~PortsWorld() = default;

  virtual Workspace& workspace() = 0;
  virtual UserDefaults& userDefaults() = 0;
  virtual Surroundings& surroundings() = 0;
  virtual Presenter& presenter() = 0;

  // Installs an application whose program tells of each start, and answers its bundle's path.
  virtual std::string install(const std::string& name, const std::string& identifier) = 0;
  virtual bool wasStarted(const std::string& bundle) = 0;
  // A process of the bundle's program begins, and ends.
  virtual void run(const std::string& bundle) = 0;
  virtual void quit() = 0;

  virtual void writeResource(const std::string& file, const std::string& content) = 0;
  // Another program's user defaults.
  virtual void writeDomain(const std::string& domain, const Value& content) = 0;

  // What an alert put before the user.
  struct Seen {
    HostObject window;
    std::string message;
    std::vector<std::string> buttons;
    bool hasIcon = false;
    std::string notAgainSwitch;
  };
  virtual HostObject window() = 0;
  // What the user does with the next alert.
  virtual void answerNext(const Presenter::Answer& answer) = 0;
  // The alerts so far, after everything that is due has run.
  virtual std::vector<Seen> alerts() = 0;
  // The messages of the sheets on the screen.
  virtual std::vector<std::string> sheets() = 0;
  // What the user sees of panels, and does in them; null where nothing draws them.
  virtual const PanelRecord* panels() = 0;
};

std::unique_ptr<PortsWorld> makeEmbeddedPorts();
// With a toolkit that has no workspace, with one that has, and with one whose workspace raises whatever it is
// asked.
std::unique_ptr<PortsWorld> makeApplePorts();
std::unique_ptr<PortsWorld> makeApplePortsWithWorkspace();
std::unique_ptr<PortsWorld> makeApplePortsWithRaisingWorkspace();

// One implementation of distributed notifications, and another process that posts.
class NotificationsWorld {
 public:
  virtual ~NotificationsWorld() = default;

  virtual DistributedNotifications& notifications() = 0;
  // The name as nobody uses it who is no part of this world.
  virtual std::string own(const std::string& name) { return name; }
  virtual void postElsewhere(std::string_view name, const Value& userInfo) = 0;
  // Whether observers may hear inside the post; else they hear from the loop.
  virtual bool mayDeliverAtOnce() { return false; }
  virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

// Null where no bus can be started.
std::unique_ptr<NotificationsWorld> makeEmbeddedNotifications();
std::unique_ptr<NotificationsWorld> makeAppleNotifications();

}  // namespace vorn
