#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/DistributedNotifications.h"

namespace vorn {

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
