#include "platform/NotificationCenter.h"

#include <vector>

namespace vorn {

NotificationCenter::Subscription& NotificationCenter::Subscription::operator=(Subscription&& other) noexcept {
  if (this != &other) {
    end();
    center_ = std::move(other.center_);
    id_ = other.id_;
  }
  return *this;
}

void NotificationCenter::Subscription::end() {
  if (const auto center = center_.lock()) (*center)->remove(id_);
  center_.reset();
}

NotificationCenter::NotificationCenter() : self_(std::make_shared<NotificationCenter*>(this)) {}

NotificationCenter::~NotificationCenter() = default;

NotificationCenter::Subscription NotificationCenter::observe(std::string_view name, Handler handler,
                                                             const void* object) {
  const std::uint64_t id = ++lastId_;
  observers_.emplace(id, Observer{std::string(name), object, std::make_shared<Handler>(std::move(handler))});
  Subscription subscription;
  subscription.center_ = self_;
  subscription.id_ = id;
  return subscription;
}

void NotificationCenter::post(std::string_view name, const void* object, Value userInfo) {
  const Notification notification{std::string(name), object, std::move(userInfo)};
  std::vector<std::uint64_t> due;
  for (const auto& [id, observer] : observers_) {
    if (observer.name == name && (!observer.object || observer.object == object)) due.push_back(id);
  }
  for (const std::uint64_t id : due) {
    const auto found = observers_.find(id);
    if (found == observers_.end()) continue;
    const std::shared_ptr<Handler> handler = found->second.handler;
    (*handler)(notification);
  }
}

void NotificationCenter::remove(std::uint64_t id) { observers_.erase(id); }

}  // namespace vorn
