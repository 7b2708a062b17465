#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Named messages between the processes of one user session. Main thread only.
class DistributedNotifications {
 public:
  using Handler = std::function<void(const Value& userInfo)>;
  // The listener's hold on its registration: destroying it ends the registration.
  class Subscription {
   public:
    virtual ~Subscription() = default;
  };

  virtual ~DistributedNotifications() = default;

  // Posts at once. The dictionary holds text values only; absent means no payload. No failure is reported.
  virtual void post(std::string_view name, const Value& userInfo) = 0;
  // Observes a name from any process. The handler runs on the main thread.
  [[nodiscard]] virtual std::unique_ptr<Subscription> observe(std::string_view name, Handler handler) = 0;
};

}  // namespace vorn
