#include "lab/client/NotificationBus.h"

#include <sdbus-c++/sdbus-c++.h>

#include <utility>

namespace vornlab {
namespace {

constexpr auto kPath = "/us/vorn/DistributedNotifications";
constexpr auto kInterface = "us.vorn.DistributedNotifications";
constexpr auto kSignal = "Posted";
constexpr auto kMatchRule = "type='signal',interface='us.vorn.DistributedNotifications',member='Posted'";

// The library's errors as our own.
template <typename Work>
auto onBus(const char* trouble, const Work& work) {
  try {
    return work();
  } catch (const sdbus::Error& error) {
    throw NotificationError(trouble + error.getMessage());
  }
}

constexpr auto kGone = "the session bus has gone: ";

}  // namespace

struct NotificationBus::Connection {
  Connection()
      : bus(sdbus::createSessionBusConnection()),
        sender(sdbus::createObject(*bus, kPath)),
        match(bus->addMatch(kMatchRule, [this](sdbus::Message& message) { receive(message); })) {}

  void receive(sdbus::Message& message) {
    try {
      Notification notification;
      message >> notification.name >> notification.hasUserInfo >> notification.userInfo;
      arrived = std::move(notification);
    } catch (const sdbus::Error&) {
      // A signal with other arguments.
    }
  }

  std::optional<Notification> arrived;
  std::unique_ptr<sdbus::IConnection> bus;
  std::unique_ptr<sdbus::IObject> sender;
  sdbus::Slot match;
};

NotificationBus::NotificationBus()
    : m_connection(onBus("no session bus can be joined: ",
                         [] { return std::make_unique<NotificationBus::Connection>(); })) {}

NotificationBus::~NotificationBus() = default;

std::optional<NotificationBus::Notification> NotificationBus::next() {
  return onBus(kGone, [this] {
    while (!m_connection->arrived && m_connection->bus->processPendingRequest()) {
    }
    return std::exchange(m_connection->arrived, std::nullopt);
  });
}

void NotificationBus::send(const std::string& name, const Envelope& envelope) {
  const Texts userInfo = {{"actionId", std::to_string(envelope.action)}, {"content", envelope.content}};
  onBus(kGone, [&] {
    m_connection->sender->emitSignal(kSignal).onInterface(kInterface).withArguments(name, true, userInfo);
  });
}

NotificationBus::Awaited NotificationBus::awaited() const {
  return onBus(kGone, [this] {
    const auto data = m_connection->bus->getEventLoopPollData();
    return Awaited{data.fd, data.events};
  });
}

}  // namespace vornlab
