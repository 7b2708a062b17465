#include "platform/NotificationCenter.h"

#include <vector>

namespace vorn {

NotificationCenter::Subscription& NotificationCenter::Subscription::operator=(Subscription&& other) noexcept {
  if (this != &other) {
    end();
    m_center = std::move(other.m_center);
    m_id = other.m_id;
  }
  return *this;
}

void NotificationCenter::Subscription::end() {
  if (const auto center = m_center.lock()) (*center)->remove(m_id);
  m_center.reset();
}

NotificationCenter::NotificationCenter() : m_self(std::make_shared<NotificationCenter*>(this)) {}

NotificationCenter::~NotificationCenter() = default;

NotificationCenter::Subscription NotificationCenter::observe(std::string_view name, Handler handler,
                                                             const void* object) {
  const std::uint64_t id = ++m_lastId;
  m_observers.emplace(id, Observer{std::string(name), object, std::make_shared<Handler>(std::move(handler))});
  Subscription subscription;
  subscription.m_center = m_self;
  subscription.m_id = id;
  return subscription;
}

void NotificationCenter::post(std::string_view name, const void* object, Value userInfo) {
  const Notification notification{std::string(name), object, std::move(userInfo)};
  std::vector<std::uint64_t> due;
  for (const auto& [id, observer] : m_observers) {
    if (observer.name == name && (!observer.object || observer.object == object)) due.push_back(id);
  }
  for (const std::uint64_t id : due) {
    const auto found = m_observers.find(id);
    if (found == m_observers.end()) continue;
    const std::shared_ptr<Handler> handler = found->second.handler;
    (*handler)(notification);
  }
}

void NotificationCenter::remove(std::uint64_t id) { m_observers.erase(id); }

}  // namespace vorn
