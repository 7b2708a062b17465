#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/DistributedNotifications.h"
#include "platform/RunLoop.h"

namespace vorn {

// Distributed notifications as signals on the D-Bus session bus, which also brings a process its own.
//
// On the wire each one is the signal "Posted" of the interface us.vorn.DistributedNotifications, sent from the
// object /us/vorn/DistributedNotifications with the signature "sba{ss}": the name, whether there is a dictionary,
// and the dictionary, empty where there is none.
//
// A name or text that is not UTF-8, or contains a zero byte, cannot travel: the post, or that entry, is left out.
// Handlers are called by the run loop, in the order in which the bus took the posts; none is called once this
// object or the subscription is gone. A bus that goes away later takes nothing and brings nothing any more.
class EmbeddedDistributedNotifications final : public DistributedNotifications {
 public:
  // Joins the bus at the address, or, when that is empty, the session bus of the environment. Null when none can
  // be reached; the library then keeps a little memory for each address that was given. The run loop must outlive
  // the result.
  static std::unique_ptr<EmbeddedDistributedNotifications> connect(RunLoop& runLoop,
                                                                   const std::string& address = {});
  // The same for a loop of another kind: how a task is posted to it, which is called on a thread of its own.
  using Post = std::function<void(RunLoop::Task)>;
  static std::unique_ptr<EmbeddedDistributedNotifications> connect(const Post& post,
                                                                   const std::string& address = {});
  ~EmbeddedDistributedNotifications() override;

  // Never waits: what the bus does not take at once goes out behind the caller's back.
  void post(std::string_view name, const Value& userInfo) override;
  [[nodiscard]] std::unique_ptr<Subscription> observe(std::string_view name, Handler handler) override;

 private:
  class Bus;
  struct Deliveries;

 public:
  // For connect() alone: nobody else can name the arguments.
  EmbeddedDistributedNotifications(std::shared_ptr<Deliveries> deliveries, std::unique_ptr<Bus> bus);

 private:
  std::shared_ptr<Deliveries> m_deliveries;
  std::unique_ptr<Bus> m_bus;
};

}  // namespace vorn
