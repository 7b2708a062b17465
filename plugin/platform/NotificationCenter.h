#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Named messages within the process: whoever posts does not know who observes.
//
// One concrete class in every world. Main thread only. A post is synchronous and reaches the observers in the
// order of their registration; one that is removed during a post is not called any more, one that is added
// during a post is not called for it.
class NotificationCenter {
 public:
  struct Notification {
    std::string name;
    const void* object = nullptr;
    Value userInfo;
  };
  using Handler = std::function<void(const Notification&)>;

  // The listener's hold on its registration: the registration ends with it. May outlive the center.
  class Subscription {
   public:
    Subscription() = default;
    Subscription(Subscription&& other) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { end(); }

    // Ends the registration now; a second call does nothing.
    void end();

   private:
    friend class NotificationCenter;
    std::weak_ptr<NotificationCenter*> m_center;
    std::uint64_t m_id = 0;
  };

  NotificationCenter();
  ~NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;

  // Observes a name. With an object, only posts about that very object are delivered.
  [[nodiscard]] Subscription observe(std::string_view name, Handler handler, const void* object = nullptr);

  void post(std::string_view name, const void* object = nullptr, Value userInfo = {});

 private:
  struct Observer {
    std::string name;
    const void* object;
    std::shared_ptr<Handler> handler;
  };

  void remove(std::uint64_t id);

  std::shared_ptr<NotificationCenter*> m_self;
  std::map<std::uint64_t, Observer> m_observers;
  std::uint64_t m_lastId = 0;
};

}  // namespace vorn
