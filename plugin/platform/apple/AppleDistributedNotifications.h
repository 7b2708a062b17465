#pragma once

#include "platform/DistributedNotifications.h"

namespace vorn {

// The distributed notifications of the session. Where their service cannot be reached nothing goes out and nothing
// comes in. A subscription that ends inside a handler is not called any more.
class AppleDistributedNotifications final : public DistributedNotifications {
 public:
  void post(std::string_view name, const Value& userInfo) override;
  [[nodiscard]] std::unique_ptr<Subscription> observe(std::string_view name, Handler handler) override;
};

}  // namespace vorn
