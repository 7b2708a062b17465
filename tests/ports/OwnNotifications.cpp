#include "platform/embedded/AsioRunLoop.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "tests/ports/NotificationsWorld.h"
#include "tests/support/PrivateBus.h"

namespace vorn {

namespace {

// Two connections are two processes to the bus.
class BusWorld final : public NotificationsWorld {
 public:
  bool isUp() const { return m_ours && m_theirs; }
  DistributedNotifications& notifications() override { return *m_ours; }
  void postElsewhere(std::string_view name, const Value& userInfo) override { m_theirs->post(name, userInfo); }
  bool runUntil(const std::function<bool()>& condition) override { return m_loop.runUntil(condition, 120); }

 private:
  AsioRunLoop m_loop;
  PrivateBus m_bus;
  std::unique_ptr<DistributedNotifications> m_ours =
      EmbeddedDistributedNotifications::connect(m_loop, m_bus.address());
  std::unique_ptr<DistributedNotifications> m_theirs =
      EmbeddedDistributedNotifications::connect(m_loop, m_bus.address());
};

}  // namespace

std::unique_ptr<NotificationsWorld> makeEmbeddedNotifications() {
  if (!PrivateBus::isInstalled()) return nullptr;
  auto world = std::make_unique<BusWorld>();
  return world->isUp() ? std::move(world) : nullptr;
}

}  // namespace vorn
